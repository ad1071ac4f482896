// Values on their way into a statement: what a field gave, as SQLite compares it with what it stores.
#pragma once

#include <sqlite3.h>

#include "runtime/value.h"

namespace zorkanca {

/// Binds a value to a parameter; docs/formats/sqlite.md has the table of all kinds.
/// @param parameter  from 1
/// Errors: 13 for an object; 7.
void BindSqliteValue(sqlite3_stmt* statement, int parameter, const Value& value);

}  // namespace zorkanca
