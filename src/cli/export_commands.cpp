// Commands that export the rows of a query.
#include <memory>

#include "cli/command_line.h"
#include "cli/host_platform.h"
#include "cli/progress_display.h"
#include "cli/query_arguments.h"
#include "export/column_names.h"
#include "export/zor_office.h"
#include "host/desktop/quiet_shell.h"
#include "host/sqlite/sqlite_database.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

// Options that every export over a query has.
struct QueryOptions {
  std::string database;
  std::string select;
  std::string names;
  std::int16_t options = 0;
  float step = 1.0f;
  std::string multiplier;
  std::int16_t blankRecords = 0;
};

void AddQueryOptions(CLI::App& command, QueryOptions& query) {
  command.add_option("--db", query.database, "SQLite database file")->required();
  command.add_option("--select", query.select, "SELECT statement; - reads it from standard input")->required();
  command.add_option("--names", query.names, "column names separated by ';'");
  command.add_option("--options", query.options, "options passed to the database");
  command.add_option("--step", query.step, "percent between two progress events")->capture_default_str();
  command.add_option("--multiplier", query.multiplier, "column that tells how often a record is written");
  command.add_option("--blank-records", query.blankRecords, "empty records before the data");
}

// A path given by the user means the current folder; to the library a bare name would mean the work folder.
Text OutputFile(const std::string& path, FileSystem& files) {
  if (path.empty()) return Text();
  const Text absolute = files.GetAbsolutePathName(FromUtf8(path));
  if (path.ends_with('/') || files.FolderExists(absolute)) throw UsageError("-o names a folder, not a file: " + path);
  return absolute;
}

// An export of this program: the office object, its events on the terminal, the database.
class QueryExport {
 public:
  QueryExport(const CommandContext& context, const QueryOptions& query, const Platform& platform, bool showsStates)
      : interrupted_(context.interrupted),
        display_(context.options.events, !context.options.quiet, showsStates, context.interrupted),
        database_(SqlitePath(query.database), &context.interrupted),
        office_(platform) {
    office_.Advise(&display_);
    office_.PercentInterval(query.step);
    office_.Multiplier(FromUtf8(query.multiplier));
    office_.BlankRecordsBefore(query.blankRecords);
  }

  cZorOffice& office() { return office_; }
  Database& database() { return database_; }

  // Exit status of an export with this result.
  int StatusOf(bool done) const { return done ? kDone : interrupted_ ? kInterrupted : kFailed; }

 private:
  const std::atomic<bool>& interrupted_;
  ProgressDisplay display_;
  SqliteDatabase database_;
  cZorOffice office_;
};

struct HtmlOptions {
  QueryOptions query;
  std::string output;
  std::string title;
  std::int16_t border = 1;
  std::int16_t padding = 1;
  std::int16_t spacing = 0;
  bool noOpen = false;
};

int RunHtml(const CommandContext& context, const HtmlOptions& options) {
  QuietShell nothingOpens(context.platform.shell);
  const bool opens = !options.noOpen && HasDisplay();
  const Platform platform = opens ? context.platform : context.platform.With(nothingOpens);

  HtmlExportArguments arguments{.rsFieldNames = FromUtf8(options.query.names),
                                .ri_rsOptions = options.query.options,
                                .rsSourceFile = OutputFile(options.output, platform.files),
                                .rsTitle = FromUtf8(options.title),
                                .riTblBorder = options.border,
                                .riTblCellPadding = options.padding,
                                .riTblCellSpacing = options.spacing};
  QueryExport run(context, options.query, platform, opens);
  const bool done = run.office().HTMLExport(run.database(), Statement(options.query.select), arguments);
  if (done) PrintLine(arguments.rsSourceFile);
  return run.StatusOf(done);
}

void AddHtml(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("html", "Write the rows of a query as an HTML table");
  const auto options = std::make_shared<HtmlOptions>();
  AddQueryOptions(*command, options->query);
  command->add_option("-o,--output", options->output, "output file (default: a temporary file in the work folder)");
  command->add_option("--title", options->title, "title of the page");
  command->add_option("--border", options->border, "border width of the table")->capture_default_str();
  command->add_option("--padding", options->padding, "cell padding")->capture_default_str();
  command->add_option("--spacing", options->spacing, "cell spacing")->capture_default_str();
  command->add_flag("--no-open", options->noOpen, "do not open the result in its associated program");
  command->callback(
      [&chosen, options] { chosen = [options](const CommandContext& context) { return RunHtml(context, *options); }; });
}

void AddNames(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("names", "Print the column names that a SELECT gives");
  const auto select = std::make_shared<std::string>();
  command->add_option("SELECT", *select, "SELECT statement")->required();
  command->callback([&chosen, select] {
    chosen = [select](const CommandContext&) {
      PrintLine(ColumnCaptionsFromSelect(FromUtf8(*select), TextView(&kExportSeparator, 1)));
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
