// The rows of a query as a recordset: streamed from SQLite, never held, all of one moment.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/database.h"
#include "sqlite/sqlite_connection.h"
#include "sqlite/sqlite_database.h"
#include "sqlite/sqlite_types.h"

namespace zorkanca {

class SqliteField;

/// Stands on a row of its statement. `MoveLast` makes the count exact by a counting query and stands on the last row
/// in name only: the statement is moved there when a value is asked for, at the cost of a walk through the rows.
/// `MoveFirst` costs nothing while the statement is on its first row; else the query runs again. Bof is true only
/// when there are no rows at all.
///
/// A column that declares no type has one type for all rows, that of the widest kind of value in it. The counting query
/// finds it on its way; who asks for a type or a value before `MoveLast` sets the query going earlier.
class SqliteRecordset final : public Recordset {
 public:
  /// Runs the query and stands on its first row. Errors: those of `SqliteConnection`.
  /// @param types  of columns that were settled by the caller
  SqliteRecordset(std::shared_ptr<SqliteConnection> connection, const std::string& sql, bool forwardOnly,
                  const SqliteColumnTypes& types);
  ~SqliteRecordset() override;

  bool Bof() const override { return position_ == Position::kAfterRows && reached_ == 0; }
  bool Eof() const override { return position_ == Position::kAfterRows; }
  /// Errors: 3021 without rows, 3219 in a forward-only recordset, 91 when closed.
  void MoveFirst() override;
  void MoveLast() override;
  /// Errors: 3021 after the last row, 91 when closed.
  void MoveNext() override;
  /// Rows reached so far, all of them after `MoveLast`. Errors: 6 when there are more than 2147483647.
  std::int32_t RecordCount() const override;
  std::int32_t FieldCount() const override;
  Field& FieldAt(std::int32_t index) override;
  Field& FieldNamed(TextView name) override;
  void Close() override;

 private:
  friend class SqliteField;

  enum class Position {
    kOnRow,      ///< the statement stands on the current row
    kOnLast,     ///< the last row is current, wherever the statement stands
    kAfterRows,  ///< no row is current
  };

  struct NameHash {
    using is_transparent = void;
    std::size_t operator()(TextView name) const;
  };
  struct NameEqual {
    using is_transparent = void;
    bool operator()(TextView left, TextView right) const { return EqualsIgnoringCase(left, right); }
  };

  void MakeFields(const SqliteColumnTypes& types);
  void RequireRows() const;
  void RequireBackwards() const;
  void Step();
  void Rewind();
  void Survey();
  void WalkThroughRows(const std::vector<int>& columns, std::vector<ValueKind>& kinds);
  sqlite3_stmt* StatementOnRow();

  std::unique_ptr<SqliteSnapshot> snapshot_;  // outlives the statement; null when closed
  SqliteQuery query_;
  bool forwardOnly_;
  std::vector<std::unique_ptr<SqliteField>> fields_;
  std::unordered_map<Text, std::size_t, NameHash, NameEqual> fieldsByName_;

  Position position_ = Position::kAfterRows;
  bool statementOnRow_ = false;
  std::int64_t row_ = 0;          // on which the statement stands, from 1
  std::int64_t reached_ = 0;      // the highest row so far
  std::int64_t surveyed_ = -1;    // number of all rows; -1 until the query was surveyed
  std::int64_t count_ = -1;       // the same, once `MoveLast` was called
  std::uint64_t generation_ = 1;  // changes whenever another row becomes current
};

}  // namespace zorkanca
