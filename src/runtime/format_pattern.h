// Compiled format patterns: what format_compile.cpp makes and format_number.cpp, format_text.cpp and date_text.cpp
// apply. Every kind writes straight into the target text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <variant>
#include <vector>

#include "runtime/date_text.h"
#include "runtime/decimal_digits.h"
#include "runtime/format.h"
#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca {

/// One step of a number section, in the order of the pattern.
struct NumberStep {
  enum class Kind {
    kInteger,   ///< `size` placeholders before the decimal point
    kPoint,     ///< the decimal separator
    kFraction,  ///< `size` placeholders behind it
    kExponent,  ///< E+ and the like: `size` is the least number of its digits
    kLiteral,   ///< `size` units of the section's literals
  };
  Kind kind;
  std::size_t size = 0;
  char16_t exponentMark = u'E';
  bool plusSign = false;  ///< the exponent shows "+" where it is not negative
};

/// One section of a number pattern. Whether a placeholder is "0" or "#" matters only for the two least numbers of
/// digits: from the first "0" to the point and from the point to the last "0" every place shows a digit.
struct NumberSection {
  bool given = false;  ///< the pattern holds at least one character for it, were it only ""
  std::vector<NumberStep> steps;
  Text literals;  ///< of all steps, one behind the other
  std::int64_t integerPlaces = 0;
  std::int64_t fractionPlaces = 0;
  std::int64_t leastInteger = 0;
  std::int64_t leastFraction = 0;
  std::int64_t shift = 0;  ///< powers of ten by "%" (2) and scaling commas (-3)
  bool grouped = false;
  bool scientific = false;

  bool HasPlaces() const { return integerPlaces + fractionPlaces > 0; }
};

/// positive;negative;zero. A section for Null may follow and is never used: Null gives nothing.
struct NumberFormat {
  std::vector<NumberSection> sections;  ///< one to three
  bool signs = true;                    ///< false when no section has a placeholder: then literals are all there is
};

/// An amount in the locale's layout.
struct CurrencyFormat {
  NumberFormat amount;
};

/// One of two words of the locale.
struct TruthFormat {
  Text Locale::*trueWord;
  Text Locale::*falseWord;
};

struct DateFormat {
  Text pattern;
  bool twelveHours = false;
};

/// One step of a text section.
struct TextStep {
  enum class Kind {
    kCharacterOrSpace,    ///< `size` times @
    kCharacterOrNothing,  ///< `size` times &
    kLiteral,             ///< `size` units of the section's literals
  };
  Kind kind;
  std::size_t size = 0;
};

struct TextSection {
  bool given = false;
  std::vector<TextStep> steps;
  Text literals;
  std::size_t places = 0;
  bool fromLeft = false;
  bool lower = false;
  bool upper = false;
};

/// text;empty
struct PlaceholderFormat {
  std::vector<TextSection> sections;  ///< one or two
};

/// Nothing but literals: numbers and dates are replaced by them, a text follows them.
struct LiteralFormat {
  NumberFormat forNumbers;
  PlaceholderFormat forTexts;
};

/// The value's own text.
struct GeneralFormat {};

using AnyFormat = std::variant<GeneralFormat, NumberFormat, CurrencyFormat, TruthFormat, DateFormat, PlaceholderFormat,
                               LiteralFormat>;

struct FormatPattern::Compiled {
  AnyFormat format;
};

/// Appends the number. The digits are used up.
void AppendNumber(Text& text, DecimalDigits& number, const NumberFormat& format, const Locale& locale);
void AppendAmount(Text& text, DecimalDigits& number, const CurrencyFormat& format, const Locale& locale);

/// Replaces the text behind `start` by its formatted form.
void FormatTail(Text& text, std::size_t start, const PlaceholderFormat& format);

}  // namespace zorkanca
