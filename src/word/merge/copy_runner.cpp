// Runs a program for one copy.
//
// The same visitor makes XML, text or nothing (a copy that is only counted): what is written differs, which steps run
// and how records move never does, so that all three always agree. A value that is a column as it stands is appended
// straight from the record; all others are made as text first. Arguments of fields are programs too and are run into a
// text; what they show does not count for the lines that go when nothing was shown.
//
// The cost of a copy is that of what it appends.
#include "word/merge/copy_runner.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "opc/xml_escape.h"
#include "runtime/error.h"
#include "runtime/utf8.h"
#include "word/fields/field_messages.h"
#include "word/fields/formula.h"
#include "word/merge/formula_scope.h"

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

  void operator()(const ConstantStep& step) {
    output_.Constant(step);
    if (runner_.cell_) *runner_.cell_ += step.units;
  }
  void operator()(const ValueStep& step) {
    const std::string_view value = runner_.ValueOf(step);
    if (value.empty()) return;
    runner_.shown_ += value.size();
    output_.Value(step, value);
    if (runner_.cell_ && step.inText) AppendValueUnits(*runner_.cell_, value);
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
  void operator()(const NameStep& step) { output_.Name(NameInCopy(step, runner_.start_.copy)); }
  void operator()(const HeaderStep& step) {
    if (runner_.input_.headers) output_.Name(runner_.input_.headers->IdOf(step.header, runner_.start_.copy));
  }
  void operator()(const AlternateStep& step) {
    const std::size_t record = runner_.record_;
    Run(step.choice);
    runner_.MoveTo(record);
    Run(step.fallback);
  }
  // A cell of a table inside another one's is part of that one's text, too.
  void operator()(const CellStep& step) {
    Text text;
    Text* const outer = std::exchange(runner_.cell_, &text);
    Run(step.content);
    runner_.cell_ = outer;
    if (outer) *outer += text;
    runner_.passed_[step.table.get()][{step.row, step.column}] = std::move(text);
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
  passed_.clear();
  cell_ = nullptr;
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
  Text* const cell = std::exchange(cell_, nullptr);
  StepVisitor<TextOutput>(*this, output).Run(operand.parts);
  cell_ = cell;
  shown_ = shown;
  return text;
}

bool CopyRunner::IsTrue(const Condition& condition) {
  const Text left = TextOf(condition.left);
  return Compare(left, condition.comparison, TextOf(condition.right), input_.locale);
}

Text CopyRunner::TextOfCell(const TableCells& table, std::size_t row, std::size_t column) {
  if (const auto passed = passed_.find(&table); passed != passed_.end()) {
    if (const auto cell = passed->second.find({row, column}); cell != passed->second.end()) return cell->second;
  }
  return TextOf(table.ahead[row][column]);
}

Text CopyRunner::FormulaText(const ValueStep& step) {
  const FormulaScope& scope = *step.scope;
  std::map<const TableCells*, FormulaTable> tables;
  const auto tableOf = [&](const std::shared_ptr<const TableCells>& cells) -> const FormulaTable* {
    if (!cells) return nullptr;
    const auto text = [this, cells](std::size_t row, std::size_t column) { return TextOfCell(*cells, row, column); };
    return &tables.try_emplace(cells.get(), FormulaTable{cells->widths, text}).first->second;
  };
  FormulaContext context{tableOf(scope.table), scope.row, scope.column, {}, {}};
  context.textOfName = [&](TextView name) -> std::optional<Text> {
    const Text key = UpperCase(name);
    if (const auto variable = variables_.find(key); variable != variables_.end()) return variable->second;
    const auto bookmark = scope.bookmarks.find(key);
    return bookmark == scope.bookmarks.end() ? std::nullopt : std::optional(TextOf(*bookmark->second));
  };
  context.tableOfName = [&](TextView name) -> const FormulaTable* {
    const auto marked = scope.tables.find(UpperCase(name));
    return marked == scope.tables.end() ? nullptr : tableOf(marked->second);
  };
  const FormulaResult result = EvaluateFormula(TextOf(step.argument), context, input_.locale);
  if (result.error.empty()) return step.format.Apply(result.number, input_.locale);
  WarnOnce(u"A formula gives " + result.error + u".");
  return result.error;
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
    case ValueStep::Source::kFormula:
      return value_ = XmlCharacters(FormulaText(step));
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
