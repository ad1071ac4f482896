#include "tabular/column_type.h"

namespace zorkanca {

// What stands behind the type's name settles what SQLite stores and how it compares: in a column of reals 5 is no
// integer, so that 5 / 2 is 2.5; numbers kept as texts are ordered by their values.
const char* DeclarationOf(ColumnType type) {
  switch (type) {
    case ColumnType::kText:
      return "TEXT";
    case ColumnType::kLongText:
      return "LONGTEXT";
    case ColumnType::kInteger:
      return "INTEGER";
    case ColumnType::kBigInteger:
      return "BIGINT";
    case ColumnType::kDecimal:
      return "DECIMAL REAL";
    case ColumnType::kLongDecimal:
      return "DECIMAL TEXT COLLATE DECIMAL";
    case ColumnType::kDouble:
      return "DOUBLE";
    case ColumnType::kCurrency:
      return "CURRENCY REAL";
    case ColumnType::kLongCurrency:
      return "CURRENCY TEXT COLLATE DECIMAL";
    case ColumnType::kDate:
      return "DATETIME";
    case ColumnType::kYesNo:
      return "BOOLEAN";
  }
  return "TEXT";
}

const char* WordOf(ColumnType type) {
  switch (type) {
    case ColumnType::kInteger:
    case ColumnType::kBigInteger:
      return "integer";
    case ColumnType::kDecimal:
    case ColumnType::kLongDecimal:
      return "decimal";
    case ColumnType::kDouble:
      return "double";
    case ColumnType::kCurrency:
    case ColumnType::kLongCurrency:
      return "currency";
    case ColumnType::kDate:
      return "date";
    case ColumnType::kYesNo:
      return "boolean";
    default:
      return "text";
  }
}

}  // namespace zorkanca
