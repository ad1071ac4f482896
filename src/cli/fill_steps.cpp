#include "cli/fill_steps.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>

#include "cli/command_line.h"
#include "runtime/nearest_name.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

// Where an operation can stand: among the steps of the workbook, of a worksheet, of a section.
enum Level : unsigned { kWorkbook = 1, kWorksheet = 2, kSection = 4 };

enum class ArgumentType { kText, kInteger, kSingle, kBoolean };

struct Parameter {
  std::string_view name;
  ArgumentType type;
};

constexpr Parameter kColSign{"ColSign", ArgumentType::kInteger};
constexpr Parameter kRowSign{"RowSign", ArgumentType::kInteger};
constexpr Parameter kColIndex{"ColIndex", ArgumentType::kInteger};
constexpr Parameter kRowIndex{"RowIndex", ArgumentType::kInteger};
constexpr Parameter kAttributeName{"AttributeName", ArgumentType::kText};
constexpr Parameter kAttributeValue{"AttributeValue", ArgumentType::kText};

std::string_view Wanted(ArgumentType type) {
  switch (type) {
    case ArgumentType::kText:
      return "a text";
    case ArgumentType::kInteger:
      return "a whole number from -32768 to 32767";
    case ArgumentType::kSingle:
      return "a number";
    case ArgumentType::kBoolean:
      return "true or false";
  }
  return {};
}

}  // namespace

struct FillOperation {
  FillOperationId id;
  std::string_view name;
  unsigned levels;
  std::size_t required;  // of the parameters; the others have defaults
  std::vector<Parameter> parameters;
};

namespace {

using Id = FillOperationId;

const std::vector<FillOperation>& Operations() {
  constexpr unsigned kBoth = kWorksheet | kSection;
  static const std::vector<FillOperation> operations = {
      {Id::kSetDataIntoTaggedCell,
       "SetDataIntoTaggedCell",
       kBoth,
       3,
       {{"data", ArgumentType::kText}, kColSign, kRowSign, kColIndex, kRowIndex}},
      {Id::kRemoveDataFromTaggedCell, "RemoveDataFromTaggedCell", kBoth, 2, {kColSign, kRowSign, kColIndex, kRowIndex}},
      {Id::kSetAttributeValueToTaggedCell,
       "SetAttributeValueToTaggedCell",
       kBoth,
       4,
       {kAttributeName, kAttributeValue, kColSign, kRowSign, kColIndex, kRowIndex}},
      {Id::kGetAttributeValueFromTaggedCell,
       "GetAttributeValueFromTaggedCell",
       kBoth,
       3,
       {kAttributeName, kColSign, kRowSign, kColIndex, kRowIndex}},
      {Id::kSetAttributeValueToTable, "SetAttributeValueToTable", kWorksheet, 2, {kAttributeName, kAttributeValue}},
      {Id::kGetAttributeValueFromTable, "GetAttributeValueFromTable", kWorksheet, 1, {kAttributeName}},
      {Id::kSetColsOfTaggedGrid,
       "SetColsOfTaggedGrid",
       kBoth,
       2,
       {{"iColSign", ArgumentType::kInteger}, {"iNumberOfCols", ArgumentType::kInteger}}},
      {Id::kSetRowsOfTaggedGrid,
       "SetRowsOfTaggedGrid",
       kBoth,
       2,
       {{"iRowSign", ArgumentType::kInteger}, {"iNumberOfRows", ArgumentType::kInteger}}},
      {Id::kSetColumnWidth,
       "SetColumnWidth",
       kWorksheet,
       2,
       {kColIndex, {"ColWidth", ArgumentType::kSingle}, {"AutoFitWidth", ArgumentType::kBoolean}}},
      {Id::kAddWorksheetSection, "AddWorksheetSection", kWorksheet, 1, {{"SectionNumber", ArgumentType::kInteger}}},
      {Id::kAddWorksheet,
       "AddWorksheet",
       kWorkbook,
       1,
       {{"sWorksheetName", ArgumentType::kText}, {"sWorksheetKey", ArgumentType::kText}}},
  };
  return operations;
}

bool TakesSteps(Id id) {
  return id == Id::kAddWorksheet || id == Id::kAddWorksheetSection;
}

const FillOperation* FindOperation(std::string_view name) {
  const auto& all = Operations();
  const auto found = std::find_if(all.begin(), all.end(), [&](const FillOperation& each) { return each.name == name; });
  return found == all.end() ? nullptr : &*found;
}

// Builds the steps from the parser's events. A step is checked as it comes: no more is kept than what fits.
class StepReader {
 public:
  std::vector<FillStep> Take() { return std::move(steps_); }

  bool start_array(std::size_t) {
    if (lists_.empty()) {
      lists_.push_back({.steps = &steps_});
    } else if (FillStep* step = lists_.back().open) {
      BeginInnerSteps(*step);
    } else {
      List& list = lists_.back();
      list.open = &list.steps->emplace_back();
      list.given = list.textCount = list.numberCount = 0;
    }
    return true;
  }

  bool end_array() {
    if (lists_.back().open) {
      FinishStep();
    } else {
      lists_.pop_back();
    }
    return true;
  }

  bool string(std::string& value) {
    FillStep& step = OpenStep();
    if (!step.operation) {
      SetOperation(step, value);
    } else {
      ExpectArgument(step, ArgumentType::kText);
      step.texts[lists_.back().textCount++] = FromUtf8(value);
    }
    return true;
  }

  bool number_integer(std::int64_t value) {
    FillStep& step = OpenStep();
    if (NextParameter(step).type == ArgumentType::kSingle) return Single(step, static_cast<double>(value));
    ExpectArgument(step, ArgumentType::kInteger);
    using Limits = std::numeric_limits<std::int16_t>;
    if (value < Limits::min() || value > Limits::max()) FailAt(step.operation->parameters[lists_.back().given - 1]);
    step.numbers[lists_.back().numberCount++] = static_cast<std::int16_t>(value);
    return true;
  }
  bool number_unsigned(std::uint64_t value) {
    return number_integer(static_cast<std::int64_t>(std::min<std::uint64_t>(value, 1u << 30)));
  }
  bool number_float(double value, const std::string&) { return Single(OpenStep(), value); }

  bool boolean(bool value) {
    FillStep& step = OpenStep();
    ExpectArgument(step, ArgumentType::kBoolean);
    step.boolean = value;
    return true;
  }

  bool null() { Fail("null is no argument"); }
  bool start_object(std::size_t) { Fail("steps hold no objects"); }
  bool key(std::string&) { return false; }
  bool end_object() { return false; }
  bool binary(std::vector<std::uint8_t>&) { return false; }

  bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception& error) {
    std::string_view message = error.what();  // "[json.exception...] parse error at line 1, column 2: ..."
    message.remove_prefix(std::min(message.size(), message.find(']') + 2));
    Fail(std::string(message));
  }

 private:
  // Steps being read, and how far the last of them is.
  struct List {
    std::vector<FillStep>* steps = nullptr;
    FillStep* open = nullptr;
    std::size_t given = 0;  // arguments
    std::size_t textCount = 0;
    std::size_t numberCount = 0;
  };

  [[noreturn]] void Fail(const std::string& reason) const {
    std::string path;
    for (const List& list : lists_) {
      const bool isBetween = !list.open && &list == &lists_.back();  // what is wrong stands where a step should
      path += (path.empty() ? "step " : ".") + std::to_string(list.steps->size() + (isBetween ? 1 : 0));
    }
    throw UsageError((path.empty() ? "steps" : path) + ": " + reason);
  }
  [[noreturn]] void FailAt(const Parameter& parameter) const {
    Fail(std::string(parameter.name) + " must be " + std::string(Wanted(parameter.type)));
  }

  FillStep& OpenStep() const {
    if (lists_.empty()) Fail("the steps must be an array");
    if (!lists_.back().open) Fail("a step is an array: [\"operation\", arguments...]");
    return *lists_.back().open;
  }

  void SetOperation(FillStep& step, const std::string& name) {
    step.operation = FindOperation(name);
    if (!step.operation) {
      std::vector<std::string> known;
      for (const FillOperation& each : Operations()) known.emplace_back(each.name);
      Fail("unknown operation \"" + name + "\"" + DidYouMean(NearestName(name, known)));
    }
    if (step.operation->levels & (1u << (lists_.size() - 1))) return;
    constexpr std::string_view kPlaces[] = {"the workbook", "a worksheet", "a section"};
    Fail(name + " is no operation of " + std::string(kPlaces[lists_.size() - 1]));
  }

  std::string Signature(const FillOperation& operation) const {
    std::string text(operation.name);
    text += " takes ";
    for (std::size_t index = 0; index < operation.parameters.size(); ++index) {
      if (index > 0) text += index == operation.required ? " and may take " : ", ";
      text += operation.parameters[index].name;
    }
    return text;
  }

  const Parameter& NextParameter(const FillStep& step) const {
    if (!step.operation) Fail("a step begins with the name of an operation");
    if (step.hasSteps) Fail("nothing may follow the steps of " + std::string(step.operation->name));
    const auto& parameters = step.operation->parameters;
    if (lists_.back().given == parameters.size()) Fail(Signature(*step.operation));
    return parameters[lists_.back().given];
  }

  void ExpectArgument(const FillStep& step, ArgumentType type) {
    const Parameter& parameter = NextParameter(step);
    if (parameter.type != type) FailAt(parameter);
    ++lists_.back().given;
  }

  bool Single(FillStep& step, double value) {
    ExpectArgument(step, ArgumentType::kSingle);
    if (!(std::abs(value) <= std::numeric_limits<float>::max()))
      FailAt(step.operation->parameters[lists_.back().given - 1]);
    step.single = static_cast<float>(value);
    return true;
  }

  void CheckCount(const FillStep& step) const {
    if (!step.operation) Fail("a step begins with the name of an operation");
    if (lists_.back().given < step.operation->required) Fail(Signature(*step.operation));
  }

  void BeginInnerSteps(FillStep& step) {
    if (!step.operation) Fail("a step begins with the name of an operation");
    if (!TakesSteps(step.operation->id)) Fail(std::string(step.operation->name) + " has no steps of its own");
    CheckCount(step);
    if (step.hasSteps) Fail("nothing may follow the steps of " + std::string(step.operation->name));
    step.hasSteps = true;
    lists_.push_back({.steps = &step.steps});
  }

  void FinishStep() {
    CheckCount(*lists_.back().open);
    lists_.back().open = nullptr;
  }

  std::vector<FillStep> steps_;
  std::vector<List> lists_;
};

}  // namespace

FillOperationId FillStep::id() const {
  return operation->id;
}

std::vector<FillStep> ReadFillSteps(std::string_view json) {
  StepReader reader;
  nlohmann::json::sax_parse(json, &reader);
  return reader.Take();
}

}  // namespace zorkanca::cli
