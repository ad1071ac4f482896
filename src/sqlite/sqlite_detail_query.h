// A prepared query with parameters over an SQLite file, run again and again in one snapshot.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/detail_query.h"
#include "sqlite/sqlite_connection.h"
#include "sqlite/sqlite_database.h"

namespace zorkanca {

class SqliteDetailField;

/// A column that declares no type has in each record the type of its value there: to find one for all records, every
/// run would be read twice.
class SqliteDetailQuery final : public DetailQuery {
 public:
  /// Errors: those of `SqliteConnection::PrepareDetail`.
  /// @param types  of columns that were settled by the caller
  SqliteDetailQuery(std::shared_ptr<SqliteConnection> connection, const std::string& sql,
                    const SqliteColumnTypes& types);
  ~SqliteDetailQuery() override;

  const std::vector<Text>& Parameters() const override { return parameters_; }
  std::int32_t FieldCount() const override;
  Field& FieldAt(std::int32_t index) override;
  Field* FindField(TextView name) override;
  void Run(std::span<const Value* const> values) override;
  bool Next() override;

 private:
  friend class SqliteDetailField;

  SqliteSnapshot snapshot_;  // outlives the statement
  SqliteStatement statement_;
  std::vector<Text> parameters_;
  std::vector<std::unique_ptr<SqliteDetailField>> fields_;
  bool running_ = false;
  bool onRow_ = false;
  std::uint64_t generation_ = 1;  // changes whenever another record becomes current
};

}  // namespace zorkanca
