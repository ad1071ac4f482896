// The command that fills a spreadsheet-XML template.
#include <cstdio>
#include <memory>
#include <vector>

#include "cli/command_line.h"
#include "cli/document_kinds.h"
#include "cli/fill_steps.h"
#include "cli/interrupt.h"
#include "cli/output_file.h"
#include "runtime/error.h"
#include "runtime/utf8.h"
#include "xmltemplate/template_factory.h"

namespace zorkanca::cli {

namespace {

struct FillOptions {
  std::string templateFile;
  std::string steps;
  std::string output;
};

// A step that failed, by its path; the reason may have been shown before.
class StepFailure : public std::runtime_error {
 public:
  StepFailure(const std::string& path, const std::string& reason)
      : std::runtime_error("step " + path + ": " + reason) {}
};

// Runs the steps on a workbook, keeping the values that were asked for.
class FillRun {
 public:
  FillRun(cExcel2003XmlTemplateFactory& factory, const std::atomic<bool>& interrupted)
      : factory_(factory), interrupted_(interrupted) {}

  const std::vector<Text>& values() const { return values_; }

  void Run(const std::vector<FillStep>& steps) {
    Each(steps, "", [this](const FillStep& step, const std::string& path) { AddWorksheet(step, path); });
  }

 private:
  template <typename Body>
  void Each(const std::vector<FillStep>& steps, const std::string& pathStart, const Body& body) {
    for (std::size_t index = 0; index < steps.size() && !interrupted_; ++index) {
      const auto path = [&] { return pathStart + std::to_string(index + 1); };
      try {
        body(steps[index], steps[index].hasSteps ? path() : std::string());
      } catch (const Error& error) {
        throw StepFailure(path(), error.what());
      }
    }
  }

  void AddWorksheet(const FillStep& step, const std::string& path) {
    const WorksheetReference worksheet = factory_.AddWorksheet(step.texts[0], step.texts[1]);
    if (!worksheet) Raise(RuntimeError::kInvalidCall, u"the worksheet was not added");
    Each(step.steps, path + ".",
         [&](const FillStep& inner, const std::string& innerPath) { RunOnWorksheet(*worksheet, inner, innerPath); });
  }

  void RunOnWorksheet(cExcel2003XmlWorksheet& worksheet, const FillStep& step, const std::string& path) {
    switch (step.id()) {
      case FillOperationId::kAddWorksheetSection:
        return AddSection(worksheet, step, path);
      case FillOperationId::kSetAttributeValueToTable:
        return worksheet.SetAttributeValueToTable(step.texts[0], step.texts[1]);
      case FillOperationId::kGetAttributeValueFromTable:
        values_.push_back(worksheet.GetAttributeValueFromTable(step.texts[0]));
        return;
      case FillOperationId::kSetColumnWidth:
        return worksheet.SetColumnWidth(step.numbers[0], step.single, step.boolean);
      default:
        return RunOnText(worksheet, step);
    }
  }

  void AddSection(cExcel2003XmlWorksheet& worksheet, const FillStep& step, const std::string& path) {
    const WorksheetSectionReference section = worksheet.AddWorksheetSection(step.numbers[0]);
    if (!section) Raise(RuntimeError::kInvalidCall, u"the worksheet has no section " + DecimalText(step.numbers[0]));
    Each(step.steps, path + ".", [&](const FillStep& inner, const std::string&) { RunOnText(*section, inner); });
  }

  // What worksheets and sections have both.
  template <typename Target>
  void RunOnText(Target& target, const FillStep& step) {
    const auto& [first, second, third, fourth] = step.numbers;
    const TaggedCell cell{.ColSign = first, .RowSign = second, .ColIndex = third, .RowIndex = fourth};
    switch (step.id()) {
      case FillOperationId::kSetDataIntoTaggedCell:
        return target.SetDataIntoTaggedCell(step.texts[0], cell);
      case FillOperationId::kRemoveDataFromTaggedCell:
        return target.RemoveDataFromTaggedCell(cell);
      case FillOperationId::kSetAttributeValueToTaggedCell:
        return target.SetAttributeValueToTaggedCell(step.texts[0], step.texts[1], cell);
      case FillOperationId::kGetAttributeValueFromTaggedCell:
        values_.push_back(target.GetAttributeValueFromTaggedCell(step.texts[0], cell));
        return;
      case FillOperationId::kSetColsOfTaggedGrid:
        return target.SetColsOfTaggedGrid(first, second);
      case FillOperationId::kSetRowsOfTaggedGrid:
        return target.SetRowsOfTaggedGrid(first, second);
      default:
        Raise(RuntimeError::kNotSupported);  // the reader lets nothing else through
    }
  }

  cExcel2003XmlTemplateFactory& factory_;
  const std::atomic<bool>& interrupted_;
  std::vector<Text> values_;
};

// Errors: `UsageError` that names the file and the step.
std::vector<FillStep> StepsOf(const FillOptions& options) {
  const std::string json = options.steps == "-" ? ReadStandardInput() : BytesOf(options.steps);
  try {
    return ReadFillSteps(json);
  } catch (const UsageError& error) {
    throw UsageError((options.steps == "-" ? "standard input" : options.steps) + ": " + error.what());
  }
}

int RunFill(const CommandContext& context, const FillOptions& options) {
  FileSystem& files = context.platform.files;
  OutputFile output(context, options.output, {u"xml"});
  const std::vector<FillStep> steps = StepsOf(options);

  cExcel2003XmlTemplateFactory factory(context.platform);
  if (!factory.ReadTemplateFile(files.GetAbsolutePathName(FromUtf8(options.templateFile)))) return kFailed;
  if (!IsSpreadsheetXml(BytesOf(options.templateFile))) {
    Raise(RuntimeError::kInvalidCall, u"No template in spreadsheet XML: " + FromUtf8(options.templateFile));
  }
  FillRun run(factory, context.interrupted);
  try {
    run.Run(steps);
  } catch (const StepFailure& failure) {
    context.report.Failure(FromUtf8(failure.what()));
    return kFailed;
  }
  if (context.interrupted) return kInterrupted;
  if (!factory.SaveWorkbook(output.path())) return kFailed;
  for (const Text& value : run.values()) context.report.Value(value);
  output.Written(output.path());
  return kDone;
}

}  // namespace

void AddFillCommands(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("fill", "Fill a spreadsheet-XML template");
  const auto options = std::make_shared<FillOptions>();
  command->add_option("TEMPLATE", options->templateFile, "spreadsheet-XML template")->required();
  command->add_option("STEPS", options->steps, "JSON file of the steps; - reads them from standard input")->required();
  command->add_option("-o,--output", options->output, "workbook to write, .xml; - writes it to standard output")
      ->required();
  command->callback(
      [&chosen, options] { chosen = [options](const CommandContext& context) { return RunFill(context, *options); }; });
}

}  // namespace zorkanca::cli
