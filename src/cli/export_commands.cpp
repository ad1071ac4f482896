// Commands that export the rows of a query.
#include <memory>
#include <optional>
#include <vector>

#include "cli/check.h"
#include "cli/command_line.h"
#include "cli/export_run.h"
#include "cli/host_platform.h"
#include "cli/output_check.h"
#include "cli/output_file.h"
#include "cli/query_arguments.h"
#include "cli/query_database.h"
#include "cli/template_arguments.h"
#include "export/column_names.h"
#include "host/desktop/quiet_shell.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

// Any name is taken: the export gives it the extension that it needs.
std::vector<Text> HtmlExtensions(const std::string& output) {
  return output == "-" ? std::vector<Text>{u"htm"} : std::vector<Text>();
}

struct HtmlOptions {
  QueryOptions query;
  std::string output;
  std::string title;
  std::int16_t border = 1;
  std::int16_t padding = 1;
  std::int16_t spacing = 0;
  bool noOpen = false;
  TemplateOptions checking;  // --check alone: there is no template
};

CheckOrder CheckOf(const CommandContext& context, const HtmlOptions& options) {
  const auto tryOutput = [&context, &options] {
    if (options.output.empty()) return RequireWritableFolder(context, context.platform.files.TemporaryFolder());
    OutputFile(context, options.output, HtmlExtensions(options.output));
  };
  return {.query = options.query, .fromTemplate = options.checking, .tryOutput = tryOutput, .hasTemplate = false};
}

int RunHtml(const CommandContext& context, const HtmlOptions& options) {
  if (options.checking.check) return RunCheck(context, CheckOf(context, options));
  QuietShell nothingOpens(context.platform.shell);
  const bool opens = !options.noOpen && options.output != "-" && HasDisplay();
  const Platform platform = opens ? context.platform : context.platform.With(nothingOpens);

  std::optional<OutputFile> output;
  if (!options.output.empty()) output.emplace(context, options.output, HtmlExtensions(options.output));
  HtmlExportArguments arguments{.rsFieldNames = NamesOf(options.query),
                                .ri_rsOptions = options.query.options,
                                .rsSourceFile = output ? output->path() : Text(),
                                .rsTitle = FromUtf8(options.title),
                                .riTblBorder = options.border,
                                .riTblCellPadding = options.padding,
                                .riTblCellSpacing = options.spacing};
  QueryDatabase database(context, options.query);
  ExportRun run(context, platform, options.query, opens);
  const bool done = run.office().HTMLExport(database, Statement(options.query), arguments);
  if (done && output) output->Written(arguments.rsSourceFile);
  if (done && !output) context.report.File(arguments.rsSourceFile);
  return run.StatusOf(done, "HTMLExport");
}

void AddHtml(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("html", "Write the rows of a query as an HTML table");
  const auto options = std::make_shared<HtmlOptions>();
  AddQueryOptions(*command, options->query);
  AddRecordOptions(*command, options->query);
  command->add_option("-o,--output", options->output, "output file (default: a temporary file in the work folder)");
  AddUnicodeOption(*command, options->query);
  command->add_option("--title", options->title, "title of the page (default: empty)");
  command->add_option("--border", options->border, "border width of the table")->capture_default_str();
  command->add_option("--padding", options->padding, "cell padding")->capture_default_str();
  command->add_option("--spacing", options->spacing, "cell spacing")->capture_default_str();
  command->add_flag("--no-open", options->noOpen, "do not open the result in its associated program");
  AddCheckOption(*command, options->checking);
  SetCallback(*command, chosen, options, RunHtml);
}

void AddNames(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("names", "Print the column names that a SELECT gives");
  const auto select = std::make_shared<std::string>();
  command->add_option("SELECT", *select, "SELECT statement")->required();
  command->callback([&chosen, select] {
    chosen = [select](const CommandContext& context) {
      try {
        context.report.Value(ColumnCaptionsFromSelect(FromUtf8(*select), TextView(&kExportSeparator, 1)));
      } catch (const Error&) {
        Raise(RuntimeError::kInvalidCall,
              u"Names are read from SELECT ... FROM ..., not from \"" + FromUtf8(*select) + u"\"");
      }
      return kDone;
    };
  });
}

}  // namespace

void AddExportCommands(CLI::App& app, Command& chosen) {
  AddHtml(app, chosen);
  AddNames(app, chosen);
}

}  // namespace zorkanca::cli
