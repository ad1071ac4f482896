// Queries of details: one statement, prepared once and run for each record that encloses its records.
//
// A parameter ":column" of the statement takes the value of that column of the enclosing record. It is bound, never
// pasted, so that no value can be read as SQL. Inside of texts, quoted names and comments ":" means nothing, and
// neither does "::".
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "platform/database.h"

namespace zorkanca {

/// A prepared query with parameters, and the records of its last run. Read forwards only, nothing of the result is
/// kept.
class DetailQuery {
 public:
  virtual ~DetailQuery() = default;

  /// Names of the parameters as written, without ":", each once, in the order of their first places.
  virtual const std::vector<Text>& Parameters() const = 0;

  /// The columns are known from the beginning; a field follows the current record of every run.
  virtual std::int32_t FieldCount() const = 0;
  /// @param index  position from 0. Errors: 3265 outside the columns.
  virtual Field& FieldAt(std::int32_t index) = 0;
  /// The first field of this name, case ignored; null when there is none.
  virtual Field* FindField(TextView name) = 0;

  /// Runs the query, giving up what the run before left unread; stands before the first record.
  /// @param values  one for each of `Parameters`, none of them null; they are copied
  /// Errors: 13 for a value that no database takes (an object); whatever the database says.
  virtual void Run(std::span<const Value* const> values) = 0;
  /// Goes to the next record. @return false behind the last one, and until the first run
  virtual bool Next() = 0;
};

/// A database that prepares queries of details. All that is read of it while one of its recordsets or queries is alive
/// is of one moment, as far as the database can.
class DetailSource {
 public:
  virtual ~DetailSource() = default;
  /// @param sql  one statement that returns records and changes nothing
  /// Errors: whatever the database says; 3061 for parameters that are not written ":name".
  virtual std::unique_ptr<DetailQuery> PrepareDetail(TextView sql) = 0;
};

/// A query of details and the fields that its parameters take their values from.
class BoundDetail {
 public:
  /// Finds a column of the enclosing record, or of the records around that one; null when there is none.
  using FindColumn = std::function<Field*(TextView name)>;

  /// @param query  outlives this object, as the fields do
  /// Errors: 3265 for a parameter that names no column.
  BoundDetail(DetailQuery& query, const FindColumn& find);

  DetailQuery& query() const { return query_; }
  /// Runs the query for the record that the enclosing fields stand on. Errors: those of `DetailQuery::Run` and of
  /// reading the fields.
  void Run();

 private:
  DetailQuery& query_;
  std::vector<Field*> fields_;
  std::vector<const Value*> values_;
};

}  // namespace zorkanca
