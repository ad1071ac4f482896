// Values on their way into a statement: what a field gave, as drivers take it.
#pragma once

#include <string>
#include <vector>

#include "odbc/odbc_driver.h"
#include "odbc/odbc_library.h"
#include "runtime/value.h"

namespace zorkanca {

/// A bound value; docs/formats/odbc.md has the table of all kinds.
struct OdbcParameter {
  SQLSMALLINT cType = SQL_C_CHAR;
  SQLSMALLINT sqlType = SQL_VARCHAR;
  SQLULEN columnSize = 1;
  SQLSMALLINT digits = 0;
  SQLLEN length = 0;  ///< of the buffer, in bytes
  SQLLEN indicator = SQL_NULL_DATA;

  /// Copies the value. Errors: 13 for an object.
  void Take(const Value& value, const OdbcDriver& driver);
  /// Holds until the next `Take`.
  SQLPOINTER data() { return buffer_.data(); }

 private:
  void TakeText(const std::string& text, SQLSMALLINT type, SQLULEN size, SQLSMALLINT decimals);
  void TakeWide(const Text& text);
  template <typename Number>
  void TakeNumber(Number number, SQLSMALLINT c, SQLSMALLINT sql);

  std::vector<char> buffer_;
};

}  // namespace zorkanca
