// Dates written by patterns of letters (the list of letters stands in runtime/format.h and docs/semantics.md), and the
// text of a date without any pattern.
#pragma once

#include <cstddef>

#include "runtime/date.h"
#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca {

/// A pattern's AM/PM marker, which also switches hours to 12.
enum class AmPmMarker { kNone, kAmPm, kShort, kOfLocale };

/// The word that the pattern begins with (AM/PM, A/P or AMPM, case ignored) and its length in units.
AmPmMarker ReadAmPmMarker(TextView pattern, std::size_t& length);

/// A date pattern ready for use; the text of the pattern must outlive it.
struct DatePattern {
  explicit DatePattern(TextView pattern);
  DatePattern(TextView pattern, bool hasTwelveHours) : text(pattern), twelveHours(hasTwelveHours) {}

  TextView text;
  bool twelveHours;  ///< the pattern has an AM/PM marker somewhere
};

/// Appends a date by a pattern.
void AppendDate(Text& text, const DateParts& date, const DatePattern& pattern, const Locale& locale);

/// Appends the date as CStr does: the time alone on 30.12.1899, otherwise the short date, and the long time unless
/// it is midnight.
void AppendDate(Text& text, const DateParts& date, const Locale& locale);

}  // namespace zorkanca
