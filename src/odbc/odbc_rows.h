// The rows of one query, fetched block by block; while one block is read, the next one is on its way.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "odbc/odbc_cursor.h"
#include "odbc/odbc_session.h"
#include "platform/database.h"

namespace zorkanca {

/// Whether rows are fetched before they are asked for.
enum class OdbcFetching { kAhead, kOnDemand };

class OdbcRows {
 public:
  /// Prepares the query. Errors: 3146; 18. @param types  settled by the caller
  OdbcRows(std::shared_ptr<OdbcSession> session, SqlQuery query, std::vector<std::pair<Text, FieldType>> types,
           OdbcFetching fetching);
  ~OdbcRows();
  OdbcRows(const OdbcRows&) = delete;
  OdbcRows& operator=(const OdbcRows&) = delete;

  const std::vector<OdbcColumn>& columns() const { return work_->cursor->columns(); }
  const SqlQuery& query() const { return work_->query; }

  /// The number of rows, of the moment that they are read in. To be asked before the query runs.
  std::int64_t Count();
  /// Runs the query and stands before its first row. @param values  for the parameters by name, none of them null
  void Run(std::span<const Value* const> values);
  /// Goes to the next row. @return false behind the last one
  bool Next();
  /// Gives up the rest.
  void Close();

  bool isOnRow() const { return onRow_; }
  OdbcCell Cell(std::size_t column) const { return block_->At(row_, column); }

 private:
  // What belongs to the jobs, too.
  struct Work {
    SqlQuery query;
    std::unique_ptr<OdbcCursor> cursor;
    OdbcBlock blocks[2];
    std::int64_t count = 0;
  };

  void RunJob(std::function<void()> body);
  OdbcWorker::Ticket StartJob(std::function<void()> body);
  void StartFetch();

  std::shared_ptr<OdbcSession> session_;
  std::shared_ptr<Work> work_;
  OdbcFetching fetching_;
  const OdbcBlock* block_ = nullptr;  // that is read
  std::size_t filling_ = 0;           // the block that is filled next
  OdbcWorker::Ticket fetch_;          // of the block that is filled; null when none is
  std::size_t row_ = 0;
  bool onRow_ = false;
  bool running_ = false;
};

/// A place in the rows, for the fields.
class OdbcRecords {
 public:
  virtual ~OdbcRecords() = default;
  /// The rows, on the current one. Errors: 3021 when there is none.
  virtual const OdbcRows& OnCurrentRow() = 0;
  /// Changes whenever another record becomes current.
  std::uint64_t generation() const { return generation_; }

 protected:
  std::uint64_t generation_ = 1;
};

/// A column; remembers its value until another record becomes current.
class OdbcField final : public Field {
 public:
  OdbcField(OdbcRecords& records, const OdbcColumn& column, std::size_t index)
      : records_(records), column_(column), index_(index) {}

  const Text& Name() const override { return column_.name; }
  FieldType Type() const override { return column_.type; }
  std::int32_t Size() const override { return column_.size; }
  const zorkanca::Value& Value() override;

 private:
  OdbcRecords& records_;
  const OdbcColumn& column_;
  std::size_t index_;
  zorkanca::Value value_;
  std::uint64_t generation_ = 0;  // of the records when the value was read
};

}  // namespace zorkanca
