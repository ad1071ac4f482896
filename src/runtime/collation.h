// The dictionary order of texts, for lists that people read.
#pragma once

#include "runtime/text.h"

namespace zorkanca {

/// Czech text comparison: case ignored, accents decide only between otherwise equal texts, č ř š ž are letters of their
/// own and "ch" follows "h".
/// @return -1, 0 or 1
int CompareTexts(TextView left, TextView right);

/// Comparison of the texts as the automation runtime sees them in memory: byte by byte, the low byte of each UTF-16
/// unit first, so that "č" (010D) comes before "d" (0064), even before "a". A text comes after every beginning of it.
/// @return -1, 0 or 1
int CompareBinary(TextView left, TextView right);

}  // namespace zorkanca
