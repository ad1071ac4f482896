#include "cli/query_arguments.h"

#include <algorithm>
#include <map>

#include "cli/command_line.h"
#include "cli/interrupt.h"
#include "runtime/error.h"
#include "runtime/nearest_name.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

void AddQueryOptions(CLI::App& command, QueryOptions& query) {
  command
      .add_option("--db", query.databases,
                  "an SQLite file; a CSV file (*.csv, *.tsv, csv:PATH) or a JSON file (*.json, *.jsonl, json:PATH), a "
                  "table of the file's name; :memory: for no table; several are one database")
      ->required()
      ->allow_extra_args(false);
  CLI::Option* select = command.add_option(
      "--select", query.select, "SELECT statement, - reads it from standard input; this or --sql-file is required");
  command
      .add_option("--sql-file", query.sqlFile,
                  "file that holds the SELECT statement, UTF-8; in place of --select (default: none)")
      ->excludes(select);
  command
      .add_option("--type", query.types,
                  "COLUMN=boolean, integer, currency, double, date or text: the type of a computed column, or of a "
                  "column of CSV and JSON files (default: that of its values)")
      ->allow_extra_args(false);
  command.add_option("--separator", query.separator,
                     "what separates the fields of CSV files, one character or tab (default: the comma, semicolon, tab "
                     "or | that fits the first records)");
  command
      .add_option("--encoding", query.fileEncoding,
                  "ansi, utf-8 or utf-16: how CSV and JSON files without a byte-order mark are read (default: utf-8)")
      ->check(CLI::IsMember({"ansi", "utf-8", "utf-16"}));
  command.add_option("--options", query.options, "options passed to the database")->capture_default_str();
  command.add_option("--part", query.part,
                     "the K-th of N equal shares of the records, K/N, for N computers (default: 1/1)");
  AddStepOption(command, query);
}

void AddRecordOptions(CLI::App& command, QueryOptions& query) {
  command.add_option("--names", query.names,
                     "column names separated by ';'; or database: the names of the recordset (default), or select: "
                     "those that are read from the text of the SELECT");
  command.add_option("--multiplier", query.multiplier,
                     "column that tells how often a record is written (default: once)");
  AddBlankRecordsOption(command, query);
}

void AddStepOption(CLI::App& command, QueryOptions& query) {
  command.add_option("--step", query.step, "percent between two progress events")
      ->check(CLI::Validator(
          [](const std::string& value) { return std::stof(value) > 0 ? "" : "is above 0, not " + value; }, ""))
      ->capture_default_str();
}

void AddBlankRecordsOption(CLI::App& command, QueryOptions& query) {
  command.add_option("--blank-records", query.blankRecords, "empty records before the data")
      ->check(CLI::NonNegativeNumber)
      ->capture_default_str();
}

void AddPreparedFileOptions(CLI::App& command, PreparedFileOptions& prepared) {
  command.add_option("--headers", prepared.headers, "file with the column names, separated by ';'")->required();
  command.add_option("--data", prepared.data, "file with the records, one a line")->required();
}

void AddEncodingOption(CLI::App& command, QueryOptions& query) {
  command
      .add_option("--encoding", query.encoding,
                  "ansi, utf-8 or utf-16: how the data files are read (default: by their byte-order mark, else ansi)")
      ->check(CLI::IsMember({"ansi", "utf-8", "utf-16"}));
}

void AddUnicodeOption(CLI::App& command, QueryOptions& query) {
  command.add_flag("--unicode", query.unicode, "keep characters that the ANSI page does not have");
}

ExportPreferences PreferencesOf(const QueryOptions& query, bool strict) {
  const DataEncoding encoding = query.encoding == "ansi"     ? DataEncoding::kAnsi
                                : query.encoding == "utf-8"  ? DataEncoding::kUtf8
                                : query.encoding == "utf-16" ? DataEncoding::kUtf16
                                                             : DataEncoding::kByMark;
  return {.namesOfRecordset = TakesNamesOfRecordset(query),
          .currentFolder = true,
          .strict = strict,
          .unicode = query.unicode,
          .dataEncoding = encoding};
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

// A statement has several words; one word is a slip: the statement's file, most likely.
bool IsFileName(const std::string& statement) {
  return statement.ends_with(".sql") && statement.find_first_of(" \t\n") == std::string::npos;
}

// What is no UTF-8 would come out as other letters, or as no statement at all.
void RequireUtf8(const std::string& statement, const QueryOptions& query) {
  const std::string where = !query.sqlFile.empty() ? query.sqlFile
                            : query.select == "-"  ? "standard input"
                                                   : "--select";
  Text ignored;
  if (statement.starts_with("\xFF\xFE") || statement.starts_with("\xFE\xFF")) {
    Raise(RuntimeError::kTypeMismatch, FromUtf8("A statement is UTF-8; this is UTF-16: " + where));
  }
  if (!AppendUtf8(ignored, statement))
    Raise(RuntimeError::kTypeMismatch, FromUtf8("A statement is UTF-8; this is none: " + where));
  if (statement.find('\0') != std::string::npos) {
    Raise(RuntimeError::kTypeMismatch, FromUtf8("A statement is a text; this holds NUL characters: " + where));
  }
}

std::string EmptyStatement(const QueryOptions& query) {
  if (!query.sqlFile.empty()) return "the file holds no statement: " + query.sqlFile;
  return query.select == "-" ? "standard input holds no statement" : "--select or --sql-file is required";
}

}  // namespace

SqliteColumnTypes TypesOf(const QueryOptions& query) {
  static const std::map<std::string, FieldType> kTypes = {
      {"boolean", FieldType::kBoolean}, {"integer", FieldType::kLong}, {"currency", FieldType::kCurrency},
      {"double", FieldType::kDouble},   {"date", FieldType::kDate},    {"text", FieldType::kText}};
  SqliteColumnTypes types;
  for (const std::string& argument : query.types) {
    const std::size_t equals = argument.rfind('=');
    const auto type = equals == std::string::npos ? kTypes.end() : kTypes.find(argument.substr(equals + 1));
    if (type == kTypes.end() || equals == 0) {
      std::vector<std::string> known;
      for (const auto& [name, ignored] : kTypes) known.push_back(name);
      const std::string given = equals == std::string::npos ? "" : argument.substr(equals + 1);
      throw UsageError("--type takes COLUMN=boolean, integer, currency, double, date or text, not " + argument +
                       DidYouMean(NearestName(given, known)));
    }
    const Text column = FromUtf8(argument.substr(0, equals));
    const auto isSame = [&column](const auto& each) { return EqualsIgnoringCase(each.first, column); };
    if (std::any_of(types.begin(), types.end(), isSame)) {
      throw UsageError("--type settles " + argument.substr(0, equals) + " twice");
    }
    types.emplace_back(column, type->second);
  }
  return types;
}

Text Statement(const QueryOptions& query) {
  const bool fromFile = !query.sqlFile.empty();
  std::string statement = fromFile ? BytesOf(query.sqlFile) : query.select == "-" ? ReadStandardInput() : query.select;
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (statement.starts_with(kMark)) statement.erase(0, kMark.size());
  RequireUtf8(statement, query);
  if (statement.find_first_not_of(" \t\r\n;") == std::string::npos) throw UsageError(EmptyStatement(query));
  if (!fromFile && IsFileName(statement)) {
    throw UsageError("--select takes a statement, not the name of a file; a file is named by --sql-file " + statement);
  }
  return FromUtf8(OnOneLine(std::move(statement)));
}

namespace {

// What --names says before a specification of a bar code, "" without it.
std::string NamesKeyword(const QueryOptions& query) {
  std::string names = query.names.substr(0, query.names.find('{'));
  while (names.ends_with(',') || names.ends_with(' ')) names.pop_back();
  return names;
}

}  // namespace

Text NamesOf(const QueryOptions& query) {
  const std::string keyword = NamesKeyword(query);
  const bool isKeyword = keyword == "database" || keyword == "select";
  return FromUtf8(isKeyword ? query.names.substr(keyword.size()) : query.names);
}

bool TakesNamesOfRecordset(const QueryOptions& query) {
  return NamesKeyword(query) != "select";
}

Text NumberedName(std::int64_t number, TextView extension) {
  constexpr std::size_t kDigits = 4;
  Text name = DecimalText(number);
  if (name.size() < kDigits) name.insert(0, kDigits - name.size(), u'0');
  return name.append(extension);
}

}  // namespace zorkanca::cli
