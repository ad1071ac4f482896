// Commands that make Word documents: merges, of a query, of prepared files or of a data file, and forms.
#include <cstdlib>
#include <memory>
#include <vector>

#include "cli/bar_code_arguments.h"
#include "cli/check.h"
#include "cli/command_line.h"
#include "cli/data_file.h"
#include "cli/document_names.h"
#include "cli/document_output.h"
#include "cli/export_run.h"
#include "cli/query_arguments.h"
#include "cli/query_database.h"
#include "cli/template_arguments.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

struct WordOptions {
  QueryOptions query;
  TemplateOptions fromTemplate;
  OutputOptions output;
  std::vector<std::string> formats;
  std::string dataFile;
  bool multi = false;
  PreparedFileOptions prepared;  // of word-file
};

struct FormOptions {
  QueryOptions query;
  TemplateOptions fromTemplate;
  OutputOptions output;
  std::vector<std::string> formats;
  std::vector<std::size_t> oneChar;  // columns from 1
  WdExportFormArguments arguments;
  std::string barCode;
};

// Runs an operation of the office object that makes one document, or with --multi several.
// @param run  the operation; its document is in `result` then
template <typename Operation>
int MakeDocuments(const CommandContext& context, const WordOptions& options, const Text& rsTemplate, const char* name,
                  const WordDocumentReference& result, Operation run, const QueryDatabase* query = nullptr) {
  using Count = DocumentOutput::Count;
  DocumentOutput output(context, options.output, options.multi ? Count::kSeveral : Count::kOne, rsTemplate, query);
  ExportRun exporting(context, context.platform, options.query, /*showsStates=*/true, options.fromTemplate.strict);
  const auto add = [&](const FinishedDocument& document) {
    exporting.RequireNoWarnings();
    output.Add(document);
  };
  if (options.multi) exporting.office().WhenDocumentIsFinished(add);
  const bool done = run(exporting.office());
  if (done && !options.multi) add({result, nullptr});
  output.Finish(done);
  if (done && output.IsEmpty())
    Raise(RuntimeError::kNoCurrentRecord, u"There is no record, so that no document was made");
  return exporting.StatusOf(done, name);
}

template <typename Operation>
int RunWordExport(const CommandContext& context, const WordOptions& options, WordExportArguments& arguments,
                  const char* name, Operation run, const QueryDatabase* query = nullptr) {
  SetTemplate(arguments, options.fromTemplate);
  arguments.MultiDocument = options.multi;
  arguments.rvFormat = FormatsOf(options.formats);
  arguments.rbSetAppVisible = false;
  const DataFile dataFile(context, options.dataFile, arguments.rsSourceFile);
  return MakeDocuments(context, options, arguments.rsTemplate, name, arguments.roRetDoc, run, query);
}

// What --name asks for is known before the work where the names of the records are the database's own.
void RequireNames(QueryDatabase& database, const QueryOptions& query, const OutputOptions& output) {
  if (!NamesOf(query).empty() || !TakesNamesOfRecordset(query)) return;
  database.Require("--name", DocumentNames(output.name).ColumnNames());
}

void RequireColumns(QueryDatabase& database, const WordOptions& options, const CommandContext& context) {
  database.Require("--names", ColumnsOfBarCodeBehind(options.query.names, context.platform.locale));
  database.RequireCount("--format", options.formats.size());
  RequireNames(database, options.query, options.output);
}

void RequireColumns(QueryDatabase& database, const FormOptions& options, const CommandContext& context) {
  RequireNames(database, options.query, options.output);
  database.RequireCount("--format", options.formats.size());
  for (const std::size_t column : options.oneChar) database.RequireCount("--one-char", column);
  if (options.barCode.empty()) return;
  database.Require("--barcode", ColumnsOfBarCode(options.barCode, context.platform.locale));
  database.Require("--barcode", {OutputOfBarCode(options.barCode, context.platform.locale)});
}

// Where the documents would go, for --check.
template <typename Options>
CheckOrder CheckOf(const CommandContext& context, const Options& options, DocumentOutput::Count count,
                   TemplateUse use = TemplateUse::kMerge) {
  return {.query = options.query,
          .fromTemplate = options.fromTemplate,
          .use = use,
          .tryOutput = [&context, &options, count] { DocumentOutput(context, options.output, count, Text(), nullptr); },
          .require = [&context, &options](QueryDatabase& database) { RequireColumns(database, options, context); }};
}

DocumentOutput::Count CountOf(const WordOptions& options) {
  return options.multi ? DocumentOutput::Count::kSeveral : DocumentOutput::Count::kOne;
}

int RunWord(const CommandContext& context, const WordOptions& options) {
  if (options.fromTemplate.check) return RunCheck(context, CheckOf(context, options, CountOf(options)));
  QueryDatabase database(context, options.query);
  RequireColumns(database, options, context);
  const Text select = Statement(options.query);
  WdExportArguments arguments;
  arguments.rsFieldNames = NamesOf(options.query);
  arguments.ri_rsOptions = options.query.options;
  return RunWordExport(
      context, options, arguments, "WdExport",
      [&](cZorOffice& office) { return office.WdExport(database, select, arguments); }, &database);
}

int RunWordFile(const CommandContext& context, const WordOptions& options) {
  if (options.fromTemplate.check) {
    CheckOrder order = CheckOf(context, options, CountOf(options));
    order.headers = options.prepared.headers;
    order.data = options.prepared.data;
    return RunCheck(context, order);
  }
  FileSystem& files = context.platform.files;
  const Text headers = files.GetAbsolutePathName(FromUtf8(options.prepared.headers));
  const Text data = files.GetAbsolutePathName(FromUtf8(options.prepared.data));
  WordExportArguments arguments;
  return RunWordExport(context, options, arguments, "WdExport_file",
                       [&](cZorOffice& office) { return office.WdExport_file(headers, data, arguments); });
}

int RunMerge(const CommandContext& context, const WordOptions& options) {
  if (options.fromTemplate.check) {
    CheckOrder order = CheckOf(context, options, CountOf(options));
    order.data = options.dataFile;
    return RunCheck(context, order);
  }
  FileSystem& files = context.platform.files;
  MakeMailDocumentArguments arguments{
      .rsTemplate = files.GetAbsolutePathName(FromUtf8(options.fromTemplate.name)),
      .rsDataSourceFile = files.GetAbsolutePathName(FromUtf8(options.dataFile)),
      .MultiDocument = options.multi,
      .rbSetAppVisible = false,
  };
  WarnOfNoField(context, arguments.rsTemplate);
  return MakeDocuments(context, options, arguments.rsTemplate, "MakeMailDocument", arguments.roRetDoc,
                       [&](cZorOffice& office) { return office.MakeMailDocument(arguments); });
}

int RunForm(const CommandContext& context, const FormOptions& options) {
  const auto isGiven = [](float margin) { return margin != WdExportFormArguments().LeftMargin; };
  if (isGiven(options.arguments.LeftMarginP2) && !isGiven(options.arguments.LeftMargin))
    throw UsageError("--left2 needs --left");
  if (isGiven(options.arguments.TopMarginP2) && !isGiven(options.arguments.TopMargin))
    throw UsageError("--top2 needs --top");
  if (options.fromTemplate.check) {
    return RunCheck(context, CheckOf(context, options, DocumentOutput::Count::kUnknown, TemplateUse::kForm));
  }
  QueryDatabase database(context, options.query);
  RequireColumns(database, options, context);
  WdExportFormArguments arguments = options.arguments;
  SetTemplate(arguments, options.fromTemplate);
  arguments.ri_rsOptions = options.query.options;
  arguments.rsBarCodeParam = FromUtf8(options.barCode);
  arguments.rvFormat = FormatsOf(options.formats);
  arguments.rbSetAppVisible = false;
  for (const std::size_t column : options.oneChar) {
    if (arguments.rvOneChar.size() < column) arguments.rvOneChar.resize(column);
    arguments.rvOneChar[column - 1] = true;
  }
  DocumentOutput output(context, options.output, DocumentOutput::Count::kUnknown, arguments.rsTemplate, &database);
  ExportRun run(context, context.platform, options.query, /*showsStates=*/true, options.fromTemplate.strict);
  run.office().WhenDocumentIsFinished([&](const FinishedDocument& document) {
    run.RequireNoWarnings();
    output.Add(document);
  });
  const bool done = run.office().WdExportForm(database, Statement(options.query), arguments);
  output.Finish(done);
  return run.StatusOf(done, "WdExportForm");
}

void AddMultiOption(CLI::App& command, WordOptions& options) {
  command.add_flag("--multi", options.multi, "one document for each record");
}

void AddWordExportOptions(CLI::App& command, WordOptions& options) {
  AddTemplateOptions(command, options.fromTemplate);
  AddFormatOption(command, options.formats);
  AddMultiOption(command, options);
  command.add_option("--data-file", options.dataFile, "keep the data file of the merge here (default: it is removed)");
  AddOutputOptions(command, options.output);
}

void AddWord(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("word", "Merge the rows of a query into a Word template");
  const auto options = std::make_shared<WordOptions>();
  AddQueryOptions(*command, options->query);
  AddRecordOptions(*command, options->query);
  AddWordExportOptions(*command, *options);
  SetCallback(*command, chosen, options, RunWord);
}

void AddWordFile(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("word-file", "Merge prepared files into a Word template");
  const auto options = std::make_shared<WordOptions>();
  AddPreparedFileOptions(*command, options->prepared);
  AddEncodingOption(*command, options->query);
  AddStepOption(*command, options->query);
  AddBlankRecordsOption(*command, options->query);
  AddWordExportOptions(*command, *options);
  SetCallback(*command, chosen, options, RunWordFile);
}

// What the largest page takes.
CLI::Validator IsMargin() {
  const auto isOne = [](const std::string& value) {
    const float centimetres = std::strtof(value.c_str(), nullptr);
    return centimetres >= 0 && centimetres <= 55.8f ? "" : "takes centimetres from 0 to 55.8, not " + value;
  };
  return CLI::Validator(isOne, "");
}

void AddForm(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("form", "Fill a Word form once for each row of a query");
  const auto options = std::make_shared<FormOptions>();
  AddQueryOptions(*command, options->query);
  AddTemplateOptions(*command, options->fromTemplate);
  AddFormatOption(*command, options->formats);
  command->add_option("--barcode", options->barCode,
                      "symbology;items;output column;check flag: a column becomes a bar code (default: none)");
  command
      ->add_option("--one-char", options->oneChar,
                   "column, from 1, of which each character has a field of its own (default: none)")
      ->allow_extra_args(false)
      ->check(CLI::Range(1, 1000));
  command->add_option("--left", options->arguments.LeftMargin, "left margin in cm (default: the template's)")
      ->check(IsMargin());
  command->add_option("--top", options->arguments.TopMargin, "top margin in cm (default: the template's)")
      ->check(IsMargin());
  command
      ->add_option("--left2", options->arguments.LeftMarginP2,
                   "left margin of the second section in cm (default: the template's)")
      ->check(IsMargin());
  command
      ->add_option("--top2", options->arguments.TopMarginP2,
                   "top margin of the second section in cm (default: the template's)")
      ->check(IsMargin());
  AddOutputOptions(*command, options->output);
  SetCallback(*command, chosen, options, RunForm);
}

void AddMerge(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("merge", "Merge a Word template with a data file");
  const auto options = std::make_shared<WordOptions>();
  command->add_option("--template", options->fromTemplate.name, "Word template or document")->required();
  command->add_option("--data-file", options->dataFile, "data file: names in the first line, ';' between values")
      ->required();
  AddMultiOption(*command, *options);
  AddCheckOptions(*command, options->fromTemplate);
  AddEncodingOption(*command, options->query);
  AddStepOption(*command, options->query);
  AddOutputOptions(*command, options->output);
  SetCallback(*command, chosen, options, RunMerge);
}

void AddSplit(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("split", "Split a line of a prepared data file, one value a line");
  const auto line = std::make_shared<std::string>();
  command->add_option("LINE", *line, "the line")->required();
  command->callback([&chosen, line] {
    chosen = [line](const CommandContext& context) {
      std::vector<Text> values;
      SplitColumnsFromDataRow(FromUtf8(*line), values);
      for (const Text& value : values) context.report.Value(value);
      return kDone;
    };
  });
}

}  // namespace

void AddWordCommands(CLI::App& app, Command& chosen) {
  AddWord(app, chosen);
  AddWordFile(app, chosen);
  AddForm(app, chosen);
  AddMerge(app, chosen);
  AddSplit(app, chosen);
}

}  // namespace zorkanca::cli
