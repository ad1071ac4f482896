// The wildcard match of the language runtime, binary comparison.
//
//   ?  one character      *  any run      #  one of 0-9
//   [abc] [a-z] [!abc]  one character of (outside) a set; special characters stand literally as [*] [?] [#] [[]
#pragma once

#include "runtime/text.h"

namespace zorkanca {

/// True when the whole text matches the pattern. Time is bounded by text length times pattern length.
/// Errors: 93 for a set without "]" or a range that runs backwards.
bool Like(TextView text, TextView pattern);

}  // namespace zorkanca
