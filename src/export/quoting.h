// Quoting of values in the ";"-separated data files that the office applications read.
#pragma once

#include "runtime/text.h"

namespace zorkanca {

/// Appends a value as it stands in a data file: with a double quote in it, every double quote is doubled and the whole
/// enclosed in double quotes; else enclosed when it holds ";" or CR LF. A lone CR or LF needs no quotes.
void AppendQuotedValue(Text& line, TextView value);

/// Appends a value enclosed in double quotes, whatever is in it; its own are doubled.
void AppendEnclosedValue(Text& line, TextView value);

/// Appends a value that stands beside other text: with a double quote in it, every double quote is doubled and the
/// value enclosed in double quotes; any other value as it is.
void AppendQuotedIfHasQuotes(Text& line, TextView value);

}  // namespace zorkanca
