// Which character separates the fields of a CSV file.
#pragma once

#include <string_view>

namespace zorkanca {

/// The one of comma, semicolon, tab and "|" by which most of the first records have as many fields as the first one,
/// and no quotation mark is out of place; of several the one that gives the most fields, then the first one named here.
/// The comma where none of them stands in the first record.
/// @param start       of the file
/// @param isComplete  it is all of the file
char FindCsvSeparator(std::string_view start, bool isComplete);

}  // namespace zorkanca
