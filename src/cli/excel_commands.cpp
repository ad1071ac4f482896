// Commands that make Excel workbooks: plain tables of a query, and templates filled from a query or prepared files.
#include <memory>
#include <optional>
#include <vector>

#include "cli/bar_code_arguments.h"
#include "cli/check.h"
#include "cli/command_line.h"
#include "cli/data_file.h"
#include "cli/export_run.h"
#include "cli/host_platform.h"
#include "cli/output_check.h"
#include "cli/output_file.h"
#include "cli/query_arguments.h"
#include "cli/query_database.h"
#include "cli/template_arguments.h"
#include "platform/paths.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

struct ExcelOptions {
  QueryOptions query;
  PreparedFileOptions prepared;
  TemplateOptions fromTemplate;
  std::string dataFile;
  std::string output;
  bool noOpen = false;
};

// Where the workbook goes.
class WorkbookOutput {
 public:
  // What is wrong with -o is told before any work.
  WorkbookOutput(const CommandContext& context, const ExcelOptions& options) : context_(context), options_(options) {
    if (options.output.empty()) {
      RequireWritableFolder(context, context.platform.files.GetAbsolutePathName(u"."));
      const Text basis = FromUtf8(options.fromTemplate.name);
      if (!basis.empty()) RequireNew(context, DefaultPath(basis));
    } else {
      file_.emplace(context, options.output, kExtensions);
    }
  }

  // @param basis  gives the workbook its name where -o does not: a template, or the name itself
  void Save(ExcelWorkbook& workbook, const Text& basis) {
    const Text path = file_ ? file_->path() : DefaultPath(basis);
    if (!file_) RequireNew(context_, path);
    if (LowerCase(GetExtensionName(path)) == u"pdf") {
      workbook.ExportAsFixedFormat({.fileName = path});
    } else {
      workbook.SaveAs(path, ExcelSaveFormat::kWorkbookXml);
    }
    if (file_) return file_->Written(path);
    context_.report.File(path);
    if (!options_.noOpen && HasDisplay()) context_.platform.shell.OpenDocument(path);
  }

 private:
  Text DefaultPath(const Text& basis) const {
    return context_.platform.files.GetAbsolutePathName(Text(GetBaseName(basis)) + u".xlsx");
  }

  inline static const std::vector<Text> kExtensions = {u"xlsx", u"xlsm", u"pdf"};

  const CommandContext& context_;
  const ExcelOptions& options_;
  std::optional<OutputFile> file_;
};

// Runs an operation of the office object and saves its workbook.
// @param basis  see `WorkbookOutput::Save`; known when the operation is done
template <typename Arguments, typename Operation>
int MakeWorkbook(const CommandContext& context, const ExcelOptions& options, Arguments& arguments, const Text& basis,
                 const char* name, Operation run) {
  WorkbookOutput output(context, options);
  const DataFile dataFile(context, options.dataFile, arguments.rsSourceFile);
  arguments.rbSetAppVisible = false;
  ExportRun exporting(context, context.platform, options.query, /*showsStates=*/true, options.fromTemplate.strict);
  const bool done = run(exporting.office());
  if (done) exporting.RequireNoWarnings();
  if (done) output.Save(*arguments.roRetXls, basis);
  return exporting.StatusOf(done, name);
}

void RequireColumns(QueryDatabase& database, const ExcelOptions& options, const CommandContext& context) {
  database.Require("--names", ColumnsOfBarCodeBehind(options.query.names, context.platform.locale));
}

// Where the workbook would go, for --check.
CheckOrder CheckOf(const CommandContext& context, const ExcelOptions& options) {
  return {.query = options.query,
          .fromTemplate = options.fromTemplate,
          .use = TemplateUse::kCells,
          .tryOutput = [&context, &options] { WorkbookOutput(context, options); },
          .require = [&context, &options](QueryDatabase& database) { RequireColumns(database, options, context); }};
}

int RunExcel(const CommandContext& context, const ExcelOptions& options) {
  if (options.fromTemplate.check) {
    CheckOrder order = CheckOf(context, options);
    order.use = TemplateUse::kMerge;  // its columns are called as those of a merge
    order.hasTemplate = false;
    order.require = nullptr;  // nor do they have a bar code
    return RunCheck(context, order);
  }
  QueryDatabase database(context, options.query);
  const Text select = Statement(options.query);
  XlExportArguments arguments{.rsFieldNames = NamesOf(options.query), .ri_rsOptions = options.query.options};
  return MakeWorkbook(context, options, arguments, u"export", "XlExport",
                      [&](cZorOffice& office) { return office.XlExport(database, select, arguments); });
}

int RunExcelTemplate(const CommandContext& context, const ExcelOptions& options) {
  // The rows of the sheet are made by the sum of the multiplier over the whole query.
  if (!options.query.part.empty() && !options.query.multiplier.empty()) {
    throw UsageError("--part and --multiplier do not go together in a workbook of a template");
  }
  if (options.fromTemplate.check) return RunCheck(context, CheckOf(context, options));
  QueryDatabase database(context, options.query);
  RequireColumns(database, options, context);
  const Text select = Statement(options.query);
  XlSabArguments arguments;
  SetTemplate(arguments, options.fromTemplate);
  arguments.rsFieldNames = NamesOf(options.query);
  arguments.ri_rsOptions = options.query.options;
  return MakeWorkbook(context, options, arguments, arguments.rsTemplate, "XlExport_sab",
                      [&](cZorOffice& office) { return office.XlExport_sab(database, select, arguments); });
}

int RunExcelTemplateFile(const CommandContext& context, const ExcelOptions& options) {
  if (options.fromTemplate.check) {
    CheckOrder order = CheckOf(context, options);
    order.headers = options.prepared.headers;
    order.data = options.prepared.data;
    return RunCheck(context, order);
  }
  FileSystem& files = context.platform.files;
  const Text headers = files.GetAbsolutePathName(FromUtf8(options.prepared.headers));
  const Text data = files.GetAbsolutePathName(FromUtf8(options.prepared.data));
  XlTemplateArguments arguments;
  SetTemplate(arguments, options.fromTemplate);
  return MakeWorkbook(context, options, arguments, arguments.rsTemplate, "XlExport_sab_file",
                      [&](cZorOffice& office) { return office.XlExport_sab_file(headers, data, arguments); });
}

void AddWorkbookOptions(CLI::App& command, ExcelOptions& options, const char* defaultName) {
  command.add_option("--data-file", options.dataFile, "keep the file that Excel imports here (default: it is removed)");
  AddUnicodeOption(command, options.query);
  command.add_option(
      "-o,--output", options.output,
      std::string(".xlsx, .xlsm or .pdf file; - writes an .xlsx to standard output (default: ") + defaultName);
  command.add_flag("--no-open", options.noOpen, "do not open the result in its associated program");
}

void AddExcel(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("excel", "Write the rows of a query as a table of an Excel workbook");
  const auto options = std::make_shared<ExcelOptions>();
  AddQueryOptions(*command, options->query);
  AddRecordOptions(*command, options->query);
  AddWorkbookOptions(*command, *options, "export.xlsx)");
  AddCheckOption(*command, options->fromTemplate);
  SetCallback(*command, chosen, options, RunExcel);
}

void AddExcelTemplate(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("excel-template", "Fill an Excel template with the rows of a query");
  const auto options = std::make_shared<ExcelOptions>();
  AddQueryOptions(*command, options->query);
  AddRecordOptions(*command, options->query);
  AddTemplateOptions(*command, options->fromTemplate);
  AddWorkbookOptions(*command, *options, "the template's name with .xlsx)");
  SetCallback(*command, chosen, options, RunExcelTemplate);
}

void AddExcelTemplateFile(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("excel-template-file", "Fill an Excel template with prepared files");
  const auto options = std::make_shared<ExcelOptions>();
  AddPreparedFileOptions(*command, options->prepared);
  AddEncodingOption(*command, options->query);
  AddStepOption(*command, options->query);
  AddBlankRecordsOption(*command, options->query);
  AddTemplateOptions(*command, options->fromTemplate);
  AddWorkbookOptions(*command, *options, "the template's name with .xlsx)");
  SetCallback(*command, chosen, options, RunExcelTemplateFile);
}

}  // namespace

void AddExcelCommands(CLI::App& app, Command& chosen) {
  AddExcel(app, chosen);
  AddExcelTemplate(app, chosen);
  AddExcelTemplateFile(app, chosen);
}

}  // namespace zorkanca::cli
