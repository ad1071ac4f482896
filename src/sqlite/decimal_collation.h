// The order of decimal numbers that are kept as texts because no real holds all of their digits.
#pragma once

#include <sqlite3.h>

#include <compare>
#include <string_view>

namespace zorkanca {

/// Plain numbers by their values, "9.50" and "9.5" being equal, then all other texts by their bytes.
std::strong_ordering CompareDecimalTexts(std::string_view left, std::string_view right);

/// Gives a connection the collation DECIMAL.
void AddDecimalCollation(sqlite3* connection);

}  // namespace zorkanca
