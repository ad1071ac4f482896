// Values: what a driver gave, as the value that a field of a DAO type has. Nothing is lost on the way: what does not
// fit the type stays the text that it is.
#pragma once

#include "odbc/odbc_cursor.h"

namespace zorkanca {

/// Reads a value; docs/formats/odbc.md has the table of all cases.
/// @param value  takes the result; its storage is used again where it can be
/// Errors: 13 when a text is no valid Unicode or holds a NUL character.
void ReadOdbcValue(Value& value, const OdbcCell& cell, const OdbcColumn& column);

}  // namespace zorkanca
