// The rows of a query as a recordset: streamed from the server, never held, all of one moment where the server can.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "odbc/odbc_rows.h"
#include "platform/database.h"

namespace zorkanca {

/// Goes forward only; going back to the first record runs the query again, and costs nothing while that record is
/// current. The records are counted by the server before the query runs, in the same transaction. `MoveLast` stands on
/// the last row in name only: the rows are walked through when a value is asked for.
class OdbcRecordset final : public Recordset, public OdbcRecords {
 public:
  /// Counts, unless it is forward only, runs the query and stands on its first row. Errors: 3146, 18.
  OdbcRecordset(std::shared_ptr<OdbcSession> session, SqlQuery query, std::vector<std::pair<Text, FieldType>> types,
                bool forwardOnly);
  ~OdbcRecordset() override;

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
  enum class Position {
    kOnRow,      ///< the rows stand on the current one
    kOnLast,     ///< the last row is current, wherever the rows stand
    kAfterRows,  ///< no row is current
  };

  const OdbcRows& OnCurrentRow() override;
  void RequireRows() const;
  void RequireBackwards() const;
  void Step();
  void Rewind();

  std::unique_ptr<OdbcSnapshot> snapshot_;  // outlives the rows; null when closed
  std::unique_ptr<OdbcRows> rows_;
  bool forwardOnly_;
  std::vector<std::unique_ptr<OdbcField>> fields_;
  std::vector<OdbcColumn> columns_;  // of the fields, also when closed
  Position position_ = Position::kAfterRows;
  std::int64_t row_ = 0;       // on which the rows stand, from 1
  std::int64_t reached_ = 0;   // the highest row so far
  std::int64_t counted_ = -1;  // by the server
  std::int64_t count_ = -1;    // the same, once `MoveLast` was called
};

}  // namespace zorkanca
