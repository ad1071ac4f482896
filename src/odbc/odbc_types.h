// Column types: what a driver says of a column, as a type of DAO and as the form in which its values are read.
#pragma once

#include <cstddef>
#include <cstdint>

#include "odbc/odbc_driver.h"
#include "odbc/odbc_library.h"
#include "platform/database.h"

namespace zorkanca {

/// What the driver describes a column by.
struct OdbcDescription {
  Text name;
  SQLSMALLINT type = SQL_VARCHAR;
  std::uint64_t size = 0;  ///< characters, bytes or digits
  SQLSMALLINT digits = 0;  ///< behind the decimal point
  bool isUnsigned = false;
  Text typeName;  ///< the server's own, in lower case
};

/// The form in which a driver gives values.
enum class OdbcForm {
  kInteger,  ///< std::int64_t
  kReal,     ///< double
  kBit,      ///< one byte
  kText,     ///< UTF-8, or letters and digits of ASCII alone
  kWide,     ///< UTF-16
  kBinary,
  kHexText,  ///< bytes as text, "\\x00ff"
};

struct OdbcColumn {
  Text name;
  FieldType type = FieldType::kText;
  std::int32_t size = 0;  ///< characters of a text column; 0 where none are defined
  OdbcForm form = OdbcForm::kText;
  std::size_t width = 0;  ///< bytes that hold every value, a closing NUL included; 0: read piece by piece
  TextView cast{};        ///< behind the column's name in the query around the query; empty where none is needed
};

/// The column of a description; docs/formats/odbc.md has the table of all types.
OdbcColumn OdbcColumnOf(const OdbcDescription& description, const OdbcDriver& driver);

/// Makes a column one of a type that the caller settled: its values are read as texts and converted.
void SettleOdbcColumn(OdbcColumn& column, FieldType type);

/// Makes a column one whose values are read as parts of a row's text.
void ReadAsText(OdbcColumn& column);

/// SQL_C_… of a form.
SQLSMALLINT CTypeOf(OdbcForm form);

}  // namespace zorkanca
