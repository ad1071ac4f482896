#include "word/merge/program.h"

#include <string>

namespace zorkanca::word {

namespace {

struct TraitsVisitor {
  ProgramTraits& traits;

  void operator()(const ConstantStep&) const {}
  void operator()(const IfStep& step) const {
    Add(step.whenTrue);
    Add(step.whenFalse);
    traits.varies = true;
  }
  void operator()(const SuppressStep& step) const { Add(step.content); }
  void operator()(const NextStep&) const { traits = {true, true}; }
  void operator()(const SkipIfStep&) const { traits = {true, true}; }
  void operator()(const CellStep& step) const { Add(step.content); }
  void operator()(const AlternateStep& step) const {
    Add(step.choice);
    Add(step.fallback);
  }
  void operator()(const LastCopyStep& step) const {
    Add(step.others);
    Add(step.last);
    traits.varies = true;
  }
  template <typename Other>
  void operator()(const Other&) const {
    traits.varies = true;
  }

  void Add(const Program& program) const {
    for (const Step& step : program) std::visit(*this, step.action);
  }
};

}  // namespace

ProgramTraits TraitsOf(const Program& program) {
  ProgramTraits traits;
  TraitsVisitor{traits}.Add(program);
  return traits;
}

std::string NameInCopy(const NameStep& bookmark, std::size_t copy) {
  return copy == 0 ? bookmark.name : bookmark.stem + '_' + std::to_string(copy + 1);
}

Operand PlainOperand(TextView text) {
  Operand operand;
  if (!text.empty()) operand.parts.push_back({ConstantStep{std::string(), Text(text)}});
  return operand;
}

}  // namespace zorkanca::word
