// File names by wildcards.
#pragma once

#include "runtime/text.h"

namespace zorkanca {

/// True when the whole name matches: "*" is any run, "?" one unit, case is ignored, and "*.*" is every name, with or
/// without a dot. Time is bounded by the product of the lengths.
bool MatchesWildcards(TextView name, TextView wildcards);

}  // namespace zorkanca
