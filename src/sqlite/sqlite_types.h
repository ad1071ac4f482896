// Column types: what a declared type of SQLite, or the value where none is declared, is in DAO's terms.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/database.h"

namespace zorkanca {

struct SqliteColumnType {
  FieldType type = FieldType::kText;
  std::int32_t size = 0;  ///< characters of a text column; 0 where none are declared
};

/// The type that a column declares, for example "VARCHAR(40)" or "double precision"; case and runs of blanks do not
/// matter. The table of all types is in docs/formats/sqlite.md.
SqliteColumnType DeclaredType(std::string_view declaration);

/// A column of a statement.
struct SqliteColumn {
  Text name;
  std::optional<SqliteColumnType> type;  ///< nothing where none is declared
};

/// @param column  from 0. Errors: 7.
SqliteColumn DescribeColumn(sqlite3_stmt* statement, int column);

/// What the values of a column that declares no type (an expression) ask for, from the narrowest to the widest; a
/// column that holds several kinds has the widest. Nothing but Null asks for nothing.
enum class ValueKind { kNull, kLong, kBigInteger, kReal, kText, kMemo, kBinary };

/// The kind of one value.
ValueKind KindOf(sqlite3_value* value);

/// The type of a column whose values ask for no more than this. Nulls alone: text.
FieldType TypeOfKind(ValueKind kind);

}  // namespace zorkanca
