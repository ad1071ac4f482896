// Dates as people typed them over the years: without dots, with two-digit years, on days that the month does not have.
#pragma once

#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca {

/// The date that a text means, written with the pattern: "24122026" is 24.12.2026, "1/2/26" is 1.2.2026, "31.4.2026"
/// the last day of April.
/// @return the empty text when no date can be made of it
Text RepairedDateText(TextView typed, TextView pattern, const Locale& locale);

}  // namespace zorkanca
