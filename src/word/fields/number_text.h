// Numbers as texts of data have them.
#pragma once

#include <optional>

#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca::word {

/// The number that a text spells in the locale, with blanks, no-break or narrow no-break spaces between its digits too;
/// nothing when it spells none.
std::optional<double> NumberOf(TextView text, const Locale& locale);

}  // namespace zorkanca::word
