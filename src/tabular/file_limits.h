// What a file of records may ask for, and how a refusal is told.
#pragma once

#include <cstddef>

#include "runtime/text.h"
#include "tabular/utf8_input.h"

namespace zorkanca {

inline constexpr std::size_t kMostColumns = 2000;       ///< as many as a table of SQLite has
inline constexpr std::size_t kLongestColumnName = 255;  ///< bytes
inline constexpr std::size_t kDeepestNesting = 100;     ///< arrays and objects within each other

Text MostColumnsText();
Text LongestColumnNameText();
Text LongestRecordText();
Text DeepestNestingText();
/// A NUL character, which may be half of a character of UTF-16.
Text NulText(TextEncoding encoding);
/// Bytes that are no character of the encoding.
Text NoCharacterText(TextEncoding encoding);

}  // namespace zorkanca
