// The two separators of the user's numbers, found the way that the suite has always found them: by looking at a number.
#pragma once

#include "runtime/locale.h"

namespace zorkanca {

struct NumberSeparators {
  char16_t grouping = u' ';
  char16_t decimal = u',';
};

/// Separators of the locale's numbers, read off 1234 formatted with "#,##0.00".
/// A locale that groups nothing gets a space as grouping separator.
NumberSeparators FindNumberSeparators(const Locale& locale);

}  // namespace zorkanca
