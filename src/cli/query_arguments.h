// What the commands over a database share: the database, its statement, and the names of several results.
#pragma once

#include <CLI/App.hpp>
#include <cstdint>
#include <string>
#include <vector>

#include "export/export_preferences.h"
#include "runtime/text.h"
#include "sqlite/sqlite_database.h"

namespace zorkanca::cli {

/// Options of the exports over a database.
struct QueryOptions {
  std::vector<std::string> databases;
  std::string select;
  std::string sqlFile;
  std::int16_t options = 0;
  std::string names;
  float step = 1.0f;
  std::vector<std::string> types;  ///< COLUMN=TYPE
  std::string multiplier;
  std::string part;  ///< K/N
  std::int16_t blankRecords = 0;
  std::string encoding;      ///< of prepared files and data files; empty: by the mark
  std::string separator;     ///< of the fields of CSV files; empty: it is found
  std::string fileEncoding;  ///< of CSV and JSON files without a mark; empty: UTF-8
  bool unicode = false;
};

/// The query itself.
void AddQueryOptions(CLI::App& command, QueryOptions& query);
/// How its columns are called and how often its records are written.
void AddRecordOptions(CLI::App& command, QueryOptions& query);
void AddStepOption(CLI::App& command, QueryOptions& query);
void AddBlankRecordsOption(CLI::App& command, QueryOptions& query);

/// The prepared files that stand in the place of a query.
struct PreparedFileOptions {
  std::string headers;
  std::string data;
};

void AddPreparedFileOptions(CLI::App& command, PreparedFileOptions& prepared);
void AddEncodingOption(CLI::App& command, QueryOptions& query);
void AddUnicodeOption(CLI::App& command, QueryOptions& query);

/// The types of columns as --type settles them. Errors: `UsageError` for an unknown type.
SqliteColumnTypes TypesOf(const QueryOptions& query);

/// The statement as --select or --sql-file gave it, on one line; "-" is all of standard input.
/// Errors: `UsageError` for an empty one and for the name of a file in its place; 13 for what is no text in UTF-8; 53,
/// 57 when it cannot be read.
Text Statement(const QueryOptions& query);

/// The options as preferences of the office object.
ExportPreferences PreferencesOf(const QueryOptions& query, bool strict);

/// The column names as --names gave them, empty where they come from elsewhere ("database", "select").
Text NamesOf(const QueryOptions& query);
/// True unless --names says otherwise.
bool TakesNamesOfRecordset(const QueryOptions& query);

/// Name of the n-th of several results, in at least four digits: "0001.docx".
/// @param extension  with its point
Text NumberedName(std::int64_t number, TextView extension);

}  // namespace zorkanca::cli
