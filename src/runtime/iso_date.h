// ISO 8601 dates, as files and databases write them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "runtime/value.h"

namespace zorkanca {

/// The date of "YYYY-MM-DD", with an optional time "HH:MM[:SS[.fff]]" after "T" or a space, or of such a time alone.
/// Fractions of a second are dropped; a trailing "Z" means nothing, the clock time is taken as it stands.
/// @return nothing for any other text and for days that do not exist
std::optional<Date> ParseIsoDate(std::string_view text);

/// The shortest of those forms that says it all: "YYYY-MM-DD" of a day, "HH:MM:SS" of a time on the day 0, and both
/// with a space between for any other. Errors: 6 outside the range of dates.
std::string IsoDateText(Date date);

}  // namespace zorkanca
