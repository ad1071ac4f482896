// The database of a command's query: it serves the share of the records that --part asks for.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "cli/command_line.h"
#include "cli/query_arguments.h"
#include "cli/query_sources.h"
#include "platform/database.h"
#include "platform/detail_query.h"

namespace zorkanca::cli {

/// The k-th of n equal shares of the records, in order.
struct Share {
  std::int64_t k = 1;
  std::int64_t n = 1;

  bool IsAll() const { return n == 1; }
  /// Record, from 1, that a share of so many records begins with; that of the next share is the one behind the last.
  std::int64_t First(std::int64_t records) const { return (k - 1) * records / n + 1; }
  std::int64_t Last(std::int64_t records) const { return k * records / n; }
};

/// "2/5". Errors: `UsageError` for anything else. @param text  empty for all records
Share ShareOf(const std::string& text);

class QueryDatabase final : public Database, public DetailSource {
 public:
  /// Opens what --db names, once it is needed. Errors: `UsageError` for options that make no sense.
  QueryDatabase(const CommandContext& context, const QueryOptions& options);
  ~QueryDatabase() override;
  QueryDatabase(const QueryDatabase&) = delete;
  QueryDatabase& operator=(const QueryDatabase&) = delete;

  /// Columns that an option asks for. The query must have them, case ignored.
  /// @param option  with its dashes, for the error
  void Require(const std::string& option, const std::vector<Text>& columns);

  /// The query must have so many columns at least. @param option  for the error
  void RequireCount(const std::string& option, std::size_t columns);

  /// Errors: those of the database; for the query itself also 3265 for a column that an option asks for.
  std::unique_ptr<Recordset> OpenRecordset(TextView name, RecordsetType type, std::int16_t options) override;

  /// Errors: those of the database.
  std::unique_ptr<DetailQuery> PrepareDetail(TextView sql) override;

  const QuerySources& sources() const { return sources_; }
  /// The tables of CSV and JSON files; known once the database was opened.
  const std::vector<LoadedTable>& LoadedTables() const { return loaded_; }

  /// How many records of the query stand before the share; known once it was opened.
  std::int64_t RecordsBefore() const { return state_->before; }

 private:
  struct State {
    std::int64_t before = 0;
  };
  class CountedRecordset;
  struct Required {
    Text option;
    Text column;
  };

  void CheckColumns(Recordset& recordset);

  std::vector<Text> Load(SqliteConnection& connection, const FileReading& reading);

  QuerySources sources_;
  std::vector<LoadedTable> loaded_;
  std::unique_ptr<Database> database_;
  DetailSource* details_ = nullptr;  // the database, too
  Share share_;
  std::vector<Required> required_;
  std::vector<std::pair<Text, std::size_t>> counts_;
  std::shared_ptr<State> state_ = std::make_shared<State>();
};

}  // namespace zorkanca::cli
