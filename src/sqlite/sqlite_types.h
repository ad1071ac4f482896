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

/// The type of the value itself, for columns that declare none (expressions). Nothing for Null.
/// @param statement  standing on a row
std::optional<FieldType> StoredType(sqlite3_stmt* statement, int column);

}  // namespace zorkanca
