// A number as its decimal digits: what texts, formats and exact conversions work on.
// Every kind of number meets here, so that rounding and writing exist once.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>

#include "runtime/ascii.h"
#include "runtime/text.h"
#include "runtime/value.h"

namespace zorkanca {

/// Significant decimal digits that a Double and a Single show.
inline constexpr int kDoubleDigits = 15;
inline constexpr int kSingleDigits = 7;

/// The number 0.d1d2d3... times 10 to the power `point`, without leading and trailing zeros; zero has no digits.
struct DecimalDigits {
  static constexpr int kCapacity = 64;

  bool negative = false;
  int count = 0;
  std::int64_t point = 0;
  char digits[kCapacity];  // '0' to '9'; left uninitialised, because clearing costs more than most conversions

  bool IsZero() const { return count == 0; }
};

/// What happens to a number that lies exactly between two candidates.
enum class RoundingMode { kHalfAwayFromZero, kHalfToEven };

/// Ten-thousandths that are this very Double, above zero and with at most 15 digits; 0 when there are none. Amounts and
/// counts are most numbers, and n / 10^4 that rounds to the Double is its only decimal of 15 digits, found without the
/// general search.
inline std::uint64_t TenThousandthsOf(double magnitude) {
  const double scaled = magnitude * 1e4;
  if (!(scaled < 1e15)) return 0;
  const auto whole = static_cast<std::uint64_t>(scaled + 0.5);
  return static_cast<double>(whole) / 1e4 == magnitude ? whole : 0;
}

/// The digits of the exact binary value rounded to `limit` significant digits, halves away from zero.
/// The value must be finite.
DecimalDigits DigitsOf(double value, int limit = kDoubleDigits);
DecimalDigits DigitsOf(std::int64_t value);
DecimalDigits DigitsOf(Currency value);
DecimalDigits DigitsOf(const Decimal& value);

/// Rounds to a number of decimals; a number that becomes zero loses its sign.
void RoundToDecimals(DecimalDigits& number, std::int64_t decimals, RoundingMode mode);

/// The nearest Double, infinite when the number is too large.
double NearestDouble(const DecimalDigits& number);
/// The number times 10 to the power `decimals`, rounded to a whole number, halves to even.
/// @return nothing when that does not fit
std::optional<std::int64_t> WholeNumber(DecimalDigits number, int decimals = 0);

/// The 15 significant digits of a number as a Decimal with as many decimals as they have, rounded to 28, halves to
/// even; nothing when the integer part does not fit. The value must be finite.
std::optional<Decimal> ToDecimal(double value);

/// Appends sign, integer part (at least "0"), separator and fraction; `limit` digits on either side of the separator,
/// beyond that d,dddE+nn.
void AppendDigits(Text& text, const DecimalDigits& number, TextView decimalSeparator,
                  int limit = std::numeric_limits<int>::max());

/// Gathers the digits of a text from left to right; digits beyond the capacity only tell that there was more.
class DigitCollector {
 public:
  void Add(char16_t digit);
  void AddPoint() { afterPoint_ = true; }
  /// True once any digit was added.
  bool any() const { return any_; }
  /// The number gathered, times 10 to the power `exponent`.
  DecimalDigits Finish(std::int64_t exponent, bool negative);

 private:
  DecimalDigits number_;
  bool any_ = false;
  bool afterPoint_ = false;
  bool more_ = false;
};

}  // namespace zorkanca
