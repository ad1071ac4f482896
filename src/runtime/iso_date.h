// ISO 8601 dates, as files and databases write them.
#pragma once

#include <optional>
#include <string_view>

#include "runtime/value.h"

namespace zorkanca {

/// The date of "YYYY-MM-DD", with an optional time "HH:MM[:SS[.fff]]" after "T" or a space, or of such a time alone.
/// Fractions of a second are dropped; a trailing "Z" means nothing, the clock time is taken as it stands.
/// @return nothing for any other text and for days that do not exist
std::optional<Date> ParseIsoDate(std::string_view text);

}  // namespace zorkanca
