#include "word/merge/copy_runner.h"

#include <algorithm>
#include <charconv>

#include "opc/xml_escape.h"
#include "runtime/error.h"
#include "runtime/utf8.h"
#include "word/fields/field_messages.h"

namespace zorkanca::word {

namespace {

// Appends a value as the inside of a w:t: escaped, line ends and tabs as elements of their own.
void AppendValueXml(std::string& xml, std::string_view value, bool inCode) {
  const auto put = [&](std::string_view piece) { xml += piece; };
  EscapeXml(value, put, [&](std::size_t at) {
    if (value[at] == '\n' && at > 0 && value[at - 1] == '\r') return;
    if (inCode) return xml.push_back(' ');
    xml.append("</w:t>").append(value[at] == '\t' ? "<w:tab/>" : "<w:br/>").append("<w:t xml:space=\"preserve\">");
  });
}

void AppendValueUnits(Text& units, std::string_view value) {
  const std::size_t start = units.size();
  AppendUtf8(units, value);
  std::size_t kept = start;
  for (std::size_t i = start; i < units.size(); ++i) {
    if (units[i] == u'\r' && i + 1 < units.size() && units[i + 1] == u'\n') continue;
    const bool lineEnd = units[i] == u'\r' || units[i] == u'\n';
    units[kept++] = lineEnd ? kLineBreak : units[i];
  }
  units.resize(kept);
}

void AppendNumber(std::string& xml, std::int64_t number) {
  char digits[24];
  const auto end = std::to_chars(digits, digits + sizeof digits, number);
  xml.append(digits, end.ptr);
}

struct XmlOutput {
  std::string& xml;

  void Constant(const ConstantStep& step) { xml += step.xml; }
  void Value(const ValueStep& step, std::string_view value) {
    xml += step.open;
    AppendValueXml(xml, value, step.inCode);
    xml += step.close;
  }
  void Number(std::int64_t number) { AppendNumber(xml, number); }
  void Name(std::string_view name) { AppendXmlAttribute(xml, name); }
  std::size_t Mark() const { return xml.size(); }
  void Cut(std::size_t mark) { xml.resize(mark); }
};

struct TextOutput {
  Text& units;

  void Constant(const ConstantStep& step) { units += step.units; }
  void Value(const ValueStep& step, std::string_view value) {
    if (step.inText) AppendValueUnits(units, value);
  }
  void Number(std::int64_t) {}
  void Name(std::string_view) {}
  std::size_t Mark() const { return units.size(); }
  void Cut(std::size_t mark) { units.resize(mark); }
};

struct NoOutput {
  void Constant(const ConstantStep&) {}
  void Value(const ValueStep&, std::string_view) {}
  void Number(std::int64_t) {}
  void Name(std::string_view) {}
  std::size_t Mark() const { return 0; }
  void Cut(std::size_t) {}
};

}  // namespace

template <typename Output>
class StepVisitor {
 public:
  StepVisitor(CopyRunner& runner, Output& output) : runner_(runner), output_(output) {}

  void Run(const Program& program) {
    for (const Step& step : program) {
      if (runner_.skipped_) return;
      std::visit(*this, step.action);
    }
  }

  void operator()(const ConstantStep& step) { output_.Constant(step); }
  void operator()(const ValueStep& step) {
    const std::string_view value = runner_.ValueOf(step);
    if (value.empty()) return;
    runner_.shown_ += value.size();
    output_.Value(step, value);
  }
  void operator()(const IfStep& step) { Run(runner_.IsTrue(step.condition) ? step.whenTrue : step.whenFalse); }
  void operator()(const SuppressStep& step) {
    const std::size_t mark = output_.Mark();
    const std::size_t shown = runner_.shown_;
    Run(step.content);
    if (runner_.shown_ == shown) output_.Cut(mark);
  }
  void operator()(const NextStep& step) {
    if (!step.condition || runner_.IsTrue(*step.condition)) runner_.MoveTo(runner_.record_ + 1);
  }
  void operator()(const SkipIfStep& step) { runner_.skipped_ = runner_.IsTrue(step.condition); }
  void operator()(const SetStep& step) { runner_.variables_[step.name] = runner_.TextOf(step.value); }
  void operator()(const NumberStep& step) {
    const std::int64_t copy = static_cast<std::int64_t>(runner_.start_.copy);
    output_.Number(copy == 0 ? step.original : step.first + (copy - 1) * step.stride);
  }
  void operator()(const NameStep& step) {
    if (runner_.start_.copy == 0) return output_.Name(step.name);
    output_.Name(step.stem + '_' + std::to_string(runner_.start_.copy + 1));
  }
  void operator()(const HeaderStep& step) {
    if (runner_.input_.headers) output_.Name(runner_.input_.headers->IdOf(step.header, runner_.start_.copy));
  }
  void operator()(const AlternateStep& step) {
    const std::size_t record = runner_.record_;
    Run(step.choice);
    runner_.MoveTo(record);
    Run(step.fallback);
  }
  void operator()(const LastCopyStep& step) { Run(runner_.start_.last ? step.last : step.others); }

 private:
  CopyRunner& runner_;
  Output& output_;
};

template <typename Output>
CopyEnd CopyRunner::Run(const Program& program, const CopyStart& start, Output& output) {
  if (input_.cancelled && input_.cancelled()) Raise(RuntimeError::kUserInterrupt);
  start_ = start;
  skipped_ = false;
  variables_.clear();
  MoveTo(start.record);
  StepVisitor<Output>(*this, output).Run(program);
  return {skipped_, std::min(record_ + 1, std::max(input_.endRecord, start.record + 1))};
}

CopyEnd CopyRunner::AppendXml(const Program& program, const CopyStart& start, std::string& xml) {
  XmlOutput output{xml};
  return Run(program, start, output);
}

CopyEnd CopyRunner::AppendText(const Program& program, const CopyStart& start, Text& units) {
  TextOutput output{units};
  return Run(program, start, output);
}

CopyEnd CopyRunner::Skim(const Program& program, const CopyStart& start) {
  NoOutput output;
  return Run(program, start, output);
}

void CopyRunner::MoveTo(std::size_t record) {
  record_ = record;
  if (read_ == record || record >= input_.endRecord) return;
  input_.source.records().Read(record, values_);
  read_ = record;
}

// Behind the last record all fields are empty.
std::string_view CopyRunner::Column(std::size_t column) {
  return record_ < input_.endRecord ? values_[column] : std::string_view();
}

Text CopyRunner::TextOf(const Operand& operand) {
  Text text;
  TextOutput output{text};
  const std::size_t shown = shown_;  // arguments are not shown
  StepVisitor<TextOutput>(*this, output).Run(operand.parts);
  shown_ = shown;
  return text;
}

bool CopyRunner::IsTrue(const Condition& condition) {
  const Text left = TextOf(condition.left);
  return Compare(left, condition.comparison, TextOf(condition.right), input_.locale);
}

// Copies are made again and again.
void CopyRunner::WarnOnce(const Text& warning) {
  constexpr std::size_t kMost = 1000;
  if (input_.warn && warned_.size() < kMost && warned_.insert(warning).second) input_.warn(warning);
}

std::string_view CopyRunner::ValueOf(const ValueStep& step) {
  const bool framed = !step.before.parts.empty() || !step.after.parts.empty();
  if (step.source == ValueStep::Source::kColumn && !framed && !step.format.ChangesText()) return Column(step.column);
  Text text;
  switch (step.source) {
    case ValueStep::Source::kColumn:
      text = FromUtf8(Column(step.column));
      break;
    case ValueStep::Source::kNamedColumn: {
      if (record_ >= input_.endRecord) return {};
      const Text name = TextOf(step.argument);
      const std::ptrdiff_t column = input_.source.ColumnOf(name);
      if (column < 0) {
        WarnOnce(u"There is no column for the merge field " + name + u".");
        return value_ = ToUtf8(kMissingColumn);
      }
      text = FromUtf8(Column(static_cast<std::size_t>(column)));
      break;
    }
    case ValueStep::Source::kRecordNumber:
      text = DecimalText(static_cast<std::int64_t>(record_) + 1);
      break;
    case ValueStep::Source::kSequenceNumber:
      text = DecimalText(static_cast<std::int64_t>(start_.copy) + 1);
      break;
    case ValueStep::Source::kVariable: {
      const auto found = variables_.find(UpperCase(TextOf(step.argument)));
      if (found != variables_.end()) text = found->second;
      break;
    }
    case ValueStep::Source::kArgument:
      text = TextOf(step.argument);
      break;
  }
  if (!text.empty() || step.format.argumentMissing) {
    if (step.format.ChangesText()) text = step.format.Apply(text, input_.locale);
    if (framed) text = TextOf(step.before) + text + TextOf(step.after);
  }
  std::replace(text.begin(), text.end(), kLineBreak, u'\n');
  value_ = XmlCharacters(text);
  return value_;
}

}  // namespace zorkanca::word
