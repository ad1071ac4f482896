// What stands in a document in place of a result that a field cannot have, in the word processor's own words.
#pragma once

#include "runtime/text.h"

namespace zorkanca::word {

/// A merge field names no column.
inline constexpr TextView kMissingColumn = u"Error! MergeField was not found in header record of data source.";
/// A picture switch has no picture.
inline constexpr TextView kMissingArgument = u"Error! Switch argument not specified.";

}  // namespace zorkanca::word
