// How texts spell numbers in a locale.
//
//   number    blanks, one each of + - ( and the currency symbol in any order, digits, exponent, then
//             blanks, ")", the currency symbol, a sign if none came first
//   digits    with group separators between them and one decimal separator
//   exponent  e E d D, a sign, digits
//   bits      &H and hexadecimal digits, &O and octal digits
#pragma once

#include <cstdint>
#include <optional>

#include "runtime/decimal_digits.h"
#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca {

/// The number that a text spells.
struct SpelledNumber {
  DecimalDigits digits;
  /// Of the form &H or &O the bits as written: a narrow integer takes them as its own, sign included (&HFFFF is the
  /// Integer -1 and the Long 65535).
  std::optional<std::uint64_t> bits;
};

/// The number that the whole text spells; nothing when it spells none.
std::optional<SpelledNumber> ReadNumber(TextView text, const Locale& locale);

/// The blanks that texts of numbers and dates may hold: space, tab, CR, LF, no-break space.
constexpr bool IsBlankUnit(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == u'\r' || unit == u'\n' || unit == u'\u00A0';
}

}  // namespace zorkanca
