#include "cli/query_arguments.h"

#include "cli/command_line.h"
#include "files/file_bytes.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

void AddQueryOptions(CLI::App& command, QueryOptions& query) {
  command.add_option("--db", query.database, "SQLite database file")->required();
  command.add_option("--select", query.select, "SELECT statement; - reads it from standard input")->required();
  command.add_option("--options", query.options, "options passed to the database");
  AddStepOption(command, query);
}

void AddRecordOptions(CLI::App& command, QueryOptions& query) {
  command.add_option("--names", query.names, "column names separated by ';'");
  command.add_option("--multiplier", query.multiplier, "column that tells how often a record is written");
  AddBlankRecordsOption(command, query);
}

void AddStepOption(CLI::App& command, QueryOptions& query) {
  command.add_option("--step", query.step, "percent between two progress events")->capture_default_str();
}

void AddBlankRecordsOption(CLI::App& command, QueryOptions& query) {
  command.add_option("--blank-records", query.blankRecords, "empty records before the data");
}

void AddPreparedFileOptions(CLI::App& command, PreparedFileOptions& prepared) {
  command.add_option("--headers", prepared.headers, "file with the column names, separated by ';'")->required();
  command.add_option("--data", prepared.data, "file with the records, one a line")->required();
}

const std::string& SqlitePath(const std::string& argument) {
  if (!argument.starts_with("ODBC;")) return argument;
  throw UsageError("--db takes an SQLite file; ODBC connections are not supported by this program yet");
}

namespace {

// Column names that are derived from a SELECT lose the blanks round them, but no line ends and tabs: here these become
// blanks. They stay in literals and quoted names, and where they end a comment.
std::string OnOneLine(std::string statement) {
  char inside = 0;  // the quote, or "-" of a comment, that we are in
  for (std::size_t at = 0; at < statement.size(); ++at) {
    char& unit = statement[at];
    if (inside == '-') {
      if (unit == '\n') inside = 0;
    } else if (inside != 0) {
      if (unit == inside) inside = 0;
    } else if (unit == '\'' || unit == '"' || unit == '`') {
      inside = unit;
    } else if (unit == '-' && statement.compare(at, 2, "--") == 0) {
      inside = '-';
    } else if (unit == '\n' || unit == '\r' || unit == '\t') {
      unit = ' ';
    }
  }
  return statement;
}

}  // namespace

Text Statement(const std::string& argument) {
  return FromUtf8(OnOneLine(argument == "-" ? ReadToEnd(STDIN_FILENO) : argument));
}

Text NumberedName(std::int64_t number, TextView extension) {
  constexpr std::size_t kDigits = 4;
  Text name = DecimalText(number);
  if (name.size() < kDigits) name.insert(0, kDigits - name.size(), u'0');
  return name.append(extension);
}

}  // namespace zorkanca::cli
