// One statement of a connection, and blocks of its rows. All of it is called on the connection's worker thread alone.
//
// Columns whose values have a length that is known are bound, so that a call fetches 500 rows. From the first other
// column on values are asked for one by one, long ones piece by piece, as drivers allow it: in the order of the
// columns.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "odbc/odbc_connection.h"
#include "odbc/odbc_parameter.h"
#include "odbc/odbc_types.h"
#include "odbc/row_text.h"
#include "odbc/sql_query.h"
#include "runtime/value.h"

namespace zorkanca {

/// The bytes of a value; no data for NULL.
struct OdbcCell {
  const char* data = nullptr;
  std::size_t size = 0;

  bool IsNull() const { return data == nullptr; }
};

/// Some rows, one after the other. Filled by a cursor.
class OdbcBlock {
 public:
  std::size_t rows() const { return rows_; }
  /// Holds until a value of another row is asked for. Rows are asked for in their order.
  OdbcCell At(std::size_t row, std::size_t column) const;

 private:
  friend class OdbcCursor;

  // Of a bound column: where the value of row 0 lies, and the lengths of all.
  struct Bound {
    std::vector<char> values;
    std::vector<SQLLEN> lengths;
    std::size_t width = 0;
  };

  std::size_t rows_ = 0;
  std::vector<Bound> bound_;
  // Where not all columns are bound: the values, row by row, each where it begins and with its length or SQL_NULL_DATA.
  bool isCopied_ = false;
  std::vector<char> bytes_;
  std::vector<std::pair<std::size_t, SQLLEN>> copies_;
  // Where each of these is a row's text: the row that was read.
  bool isRowText_ = false;
  mutable RowText text_;
  mutable std::size_t textOfRow_ = kNoRow;
  static constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);
};

class OdbcCursor {
 public:
  explicit OdbcCursor(std::shared_ptr<OdbcConnection> connection);
  ~OdbcCursor();
  OdbcCursor(const OdbcCursor&) = delete;
  OdbcCursor& operator=(const OdbcCursor&) = delete;

  /// Prepares a query and describes its columns.
  /// @param types  settled by the caller
  /// Errors: 3146 with the server's words; when it returns no records.
  void Prepare(const SqlQuery& query, const std::vector<std::pair<Text, FieldType>>& types);
  const std::vector<OdbcColumn>& columns() const { return columns_; }

  /// Runs the query. @param values  one for each "?", none null
  void Execute(const std::vector<const Value*>& values);
  /// Takes the next rows, up to 500; none behind the last one. Errors: 3146, also for a value that the driver cannot
  /// give.
  void Fetch(OdbcBlock& block);
  /// Gives up the rest of the rows; the query can be run again.
  void Close();

  /// The number of rows, found by fetching them all. The query was run.
  std::int64_t CountRows();

 private:
  void PrepareText(TextView sql);
  OdbcDescription Describe(SQLUSMALLINT column) const;
  SQLLEN Attribute(SQLUSMALLINT column, SQLUSMALLINT attribute) const;
  Text RowTextQuery(const Text& sql) const;
  void ChooseBlocks();
  void Shape(OdbcBlock& block) const;
  void Bind(OdbcBlock& block);
  std::size_t FetchRows();
  void RequireWhole(const OdbcBlock& block) const;
  void FetchCopied(OdbcBlock& block);
  void CopyBound(OdbcBlock& block) const;
  void CopyPieces(OdbcBlock& block, std::size_t column);
  void RequireSuccess(SQLRETURN code) const { connection_->RequireSuccess(code, SQL_HANDLE_STMT, statement_); }

  std::shared_ptr<OdbcConnection> connection_;
  SQLHSTMT statement_ = SQL_NULL_HSTMT;
  std::vector<OdbcColumn> columns_;
  std::vector<OdbcColumn> fetchedColumns_;  // the same, or the one of the rows' texts
  bool isRowText_ = false;
  std::size_t boundColumns_ = 0;  // the first ones
  std::size_t rowsOfBlock_ = 1;   // that one call fetches
  bool isOpen_ = false;
  bool atEnd_ = false;
  const OdbcBlock* boundTo_ = nullptr;
  SQLULEN fetched_ = 0;
  std::vector<SQLUSMALLINT> states_;
  std::vector<OdbcParameter> parameters_;
};

/// The number of a query's rows by a query around it; nothing where the server does not take that.
std::optional<std::int64_t> CountByQuery(const std::shared_ptr<OdbcConnection>& connection, const SqlQuery& query);

}  // namespace zorkanca
