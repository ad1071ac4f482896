// Values: what SQLite stored, as the value that a field of a DAO type has. Nothing is lost on the way: what does not
// fit the type stays what it is.
#pragma once

#include <sqlite3.h>

#include "platform/database.h"

namespace zorkanca {

/// Reads one column of the row on which the statement stands; docs/formats/sqlite.md has the table of all cases.
/// @param value  takes the result; its storage is used again where it can be
/// @param name   of the column, for the error's description
/// Errors: 13 when a text is no valid Unicode or holds a NUL character.
void ReadSqliteValue(Value& value, sqlite3_stmt* statement, int column, FieldType type, const Text& name);

}  // namespace zorkanca
