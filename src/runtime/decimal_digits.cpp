// From a Double to digits and back. Invariants of a number: no zero at either end of the digits, no digit and no sign
// for zero; so equal numbers look alike, and "rounds to nothing" is seen at once.
//
// The digits of a Double are those of its exact binary value, rounded once, halves away from zero. Nearly always the
// shortest digits that lead back to it serve: they need no rounding, or they round as the exact value does. Rounded
// from the exact value are only shortest digits that end in a half which the value merely approaches, found by an exact
// comparison, and numbers next to zero, of whose bits few are left. Amounts, which are most of what passes, are tried
// first by one multiplication. A conversion takes the same short time whatever the number.
#include "runtime/decimal_digits.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace zorkanca {

namespace {

void StripTrailingZeros(DecimalDigits& number) {
  while (number.count > 0 && number.digits[number.count - 1] == '0') --number.count;
}

// The digits of value / 10^scale.
void SetInteger(DecimalDigits& number, std::uint64_t value, int scale) {
  if (value == 0) return;
  const std::to_chars_result end = std::to_chars(number.digits, number.digits + DecimalDigits::kCapacity, value);
  number.count = static_cast<int>(end.ptr - number.digits);
  number.point = number.count - scale;
  StripTrailingZeros(number);
}

bool SetAmount(DecimalDigits& number, double magnitude) {
  const std::uint64_t tenThousandths = TenThousandthsOf(magnitude);
  SetInteger(number, tenThousandths, 4);
  return tenThousandths != 0;
}

// Takes over digits and exponent of the form d.ddde+nn.
void ReadScientific(DecimalDigits& number, const char* text, const char* end) {
  const char* const mark = std::find(text, end, 'e');
  number.digits[0] = text[0];
  number.count = 1;
  for (const char* digit = text + 2; digit < mark; ++digit) number.digits[number.count++] = *digit;
  int exponent = 0;
  std::from_chars(mark + (mark[1] == '+' ? 2 : 1), end, exponent);
  number.point = exponent + 1;
  StripTrailingZeros(number);
}

// The shortest digits that lead back to the same Double.
void SetShortest(DecimalDigits& number, double magnitude) {
  char text[32];
  ReadScientific(number, text, std::to_chars(text, text + sizeof text, magnitude, std::chars_format::scientific).ptr);
}

// The exact value rounded; exact halves go to even.
void SetRounded(DecimalDigits& number, double magnitude, int limit) {
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text, magnitude, std::chars_format::scientific, limit - 1);
  ReadScientific(number, text, end.ptr);
}

// True when the digits, which end in 5, are exactly the Double. Both sides are divided by 5 so that all factors are
// exact Doubles; the fused operation then tells equality without rounding.
bool IsExactly(const DecimalDigits& number, double magnitude) {
  constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10,
                                1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21};
  constexpr std::int64_t kLargest = std::size(kPowers) - 1;
  std::uint64_t integer = 0;
  std::from_chars(number.digits, number.digits + number.count, integer);
  const auto fifth = static_cast<double>(integer / 5);  // NOLINT(bugprone-integer-division): no rest, it ends in 5
  const std::int64_t power = number.point - number.count;
  if (power > kLargest || -power - 1 > kLargest) return false;  // such a number has more digits than a Double holds
  if (power >= 0) return std::fma(fifth, 5 * kPowers[power], -magnitude) == 0;
  return std::fma(magnitude, 2 * kPowers[-power - 1], -fifth) == 0;
}

// The shortest digits, at most 15 of them, are the digits rounded to 15: two decimals of 15 digits never share a
// Double. Longer ones round as the exact value does, unless they end in a half that the value only approaches.
void SetSignificant(DecimalDigits& number, double magnitude, int limit) {
  if (magnitude < std::numeric_limits<double>::min()) return SetRounded(number, magnitude, limit);  // few bits are left
  SetShortest(number, magnitude);
  if (number.count <= limit) return;
  const bool half = number.count == limit + 1 && number.digits[limit] == '5';
  if (half && !IsExactly(number, magnitude)) return SetRounded(number, magnitude, limit);
  RoundToDecimals(number, limit - number.point, RoundingMode::kHalfAwayFromZero);
}

}  // namespace

DecimalDigits DigitsOf(double value, int limit) {
  DecimalDigits number;
  const double magnitude = std::fabs(value);
  if (magnitude == 0) return number;
  number.negative = value < 0;
  if (limit == kDoubleDigits && SetAmount(number, magnitude)) return number;
  SetSignificant(number, magnitude, limit);
  return number;
}

DecimalDigits DigitsOf(std::int64_t value) {
  DecimalDigits number;
  number.negative = value < 0;
  const auto bits = static_cast<std::uint64_t>(value);
  SetInteger(number, value < 0 ? 0 - bits : bits, 0);
  return number;
}

DecimalDigits DigitsOf(Currency value) {
  DecimalDigits number = DigitsOf(value.tenThousandths);
  if (!number.IsZero()) number.point -= 4;
  return number;
}

DecimalDigits DigitsOf(const Decimal& value) {
  DecimalDigits number;
  if (value.high == 0) {
    SetInteger(number, value.low, value.scale);
  } else {
    // Groups of nine digits from the right, by long division of the three 32-bit limbs.
    constexpr std::uint32_t kBillion = 1000000000;
    std::uint32_t limbs[3] = {value.high, static_cast<std::uint32_t>(value.low >> 32),
                              static_cast<std::uint32_t>(value.low)};
    char reversed[36];
    int length = 0;
    while (limbs[0] != 0 || limbs[1] != 0 || limbs[2] != 0) {
      std::uint64_t rest = 0;
      for (std::uint32_t& limb : limbs) {
        const std::uint64_t part = rest << 32 | limb;
        limb = static_cast<std::uint32_t>(part / kBillion);
        rest = part % kBillion;
      }
      for (int digit = 0; digit < 9; ++digit, rest /= 10) reversed[length++] = static_cast<char>('0' + rest % 10);
    }
    while (reversed[length - 1] == '0') --length;
    std::reverse_copy(reversed, reversed + length, number.digits);
    number.count = length;
    number.point = length - value.scale;
    StripTrailingZeros(number);
  }
  number.negative = value.negative && !number.IsZero();
  return number;
}

void RoundToDecimals(DecimalDigits& number, std::int64_t decimals, RoundingMode mode) {
  const std::int64_t kept = number.point + decimals;
  if (kept >= number.count) return;
  bool up = false;
  if (kept >= 0) {
    const char next = number.digits[kept];
    const bool tie = next == '5' && kept + 1 == number.count;
    const bool even = kept == 0 || (number.digits[kept - 1] - '0') % 2 == 0;
    up = tie && mode == RoundingMode::kHalfToEven ? !even : next >= '5';
  }
  number.count = static_cast<int>(std::max<std::int64_t>(kept, 0));
  if (up) {
    while (number.count > 0 && number.digits[number.count - 1] == '9') --number.count;
    if (number.count == 0) {
      number.digits[0] = '1';
      number.count = 1;
      ++number.point;
    } else {
      ++number.digits[number.count - 1];
    }
  }
  StripTrailingZeros(number);
  if (number.IsZero()) number.negative = false, number.point = 0;
}

double NearestDouble(const DecimalDigits& number) {
  if (number.IsZero()) return 0;
  constexpr std::int64_t kBeyondAll = 2000;  // keeps the exponent a short text; a Double ends at 10^308
  char text[DecimalDigits::kCapacity + 16];
  char* end = std::copy(number.digits, number.digits + number.count, text);
  *end++ = 'e';
  const std::int64_t exponent = std::clamp(number.point, -kBeyondAll, kBeyondAll) - number.count;
  end = std::to_chars(end, text + sizeof text, exponent).ptr;
  double value = 0;
  if (std::from_chars(text, end, value).ec == std::errc::result_out_of_range) {
    value = number.point > 0 ? std::numeric_limits<double>::infinity() : 0;
  }
  return number.negative ? -value : value;
}

std::optional<std::int64_t> WholeNumber(DecimalDigits number, int decimals) {
  constexpr int kLongest = 19;  // decimal digits of the largest 64-bit integer
  RoundToDecimals(number, decimals, RoundingMode::kHalfToEven);
  if (number.IsZero()) return 0;
  const std::int64_t length = number.point + decimals;
  if (length > kLongest) return std::nullopt;
  std::uint64_t value = 0;
  for (std::int64_t index = 0; index < length; ++index) {
    value = value * 10 + (index < number.count ? static_cast<std::uint64_t>(number.digits[index] - '0') : 0);
  }
  constexpr auto kMax = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  if (value > kMax + (number.negative ? 1 : 0)) return std::nullopt;
  return static_cast<std::int64_t>(number.negative ? 0 - value : value);
}

namespace {

void AppendPlain(Text& text, const char* digits, std::int64_t count) {
  const std::size_t start = text.size();
  text.resize(start + static_cast<std::size_t>(count));
  std::copy(digits, digits + count, text.begin() + static_cast<std::ptrdiff_t>(start));
}

void AppendScientific(Text& text, const DecimalDigits& number, TextView decimalSeparator) {
  AppendPlain(text, number.digits, 1);
  if (number.count > 1) {
    text.append(decimalSeparator);
    AppendPlain(text, number.digits + 1, number.count - 1);
  }
  const std::int64_t exponent = number.point - 1;
  const std::int64_t magnitude = exponent < 0 ? -exponent : exponent;
  text.append(exponent < 0 ? u"E-" : u"E+");
  if (magnitude < 10) text.push_back(u'0');
  AppendDecimal(text, magnitude);
}

}  // namespace

void AppendDigits(Text& text, const DecimalDigits& number, TextView decimalSeparator, int limit) {
  if (number.negative) text.push_back(u'-');
  const std::int64_t decimals = number.count - number.point;
  if (decimals > limit || number.point > limit) return AppendScientific(text, number, decimalSeparator);
  if (number.point <= 0) {
    text.push_back(u'0');
  } else {
    const std::int64_t known = std::min<std::int64_t>(number.count, number.point);
    AppendPlain(text, number.digits, known);
    text.append(static_cast<std::size_t>(number.point - known), u'0');
  }
  if (decimals <= 0 || number.IsZero()) return;
  text.append(decimalSeparator);
  if (number.point < 0) text.append(static_cast<std::size_t>(-number.point), u'0');
  const std::int64_t first = std::max<std::int64_t>(number.point, 0);
  AppendPlain(text, number.digits + first, number.count - first);
}

void DigitCollector::Add(char16_t digit) {
  any_ = true;
  if (digit == u'0' && number_.count == 0) {
    if (afterPoint_) --number_.point;
    return;
  }
  if (number_.count < DecimalDigits::kCapacity - 1) {
    number_.digits[number_.count++] = static_cast<char>('0' + (digit - u'0'));
  } else if (digit != u'0') {
    more_ = true;
  }
  if (!afterPoint_) ++number_.point;
}

DecimalDigits DigitCollector::Finish(std::int64_t exponent, bool negative) {
  if (more_) number_.digits[number_.count++] = '1';  // any digit does: the number lies above what was kept
  StripTrailingZeros(number_);
  number_.point = number_.IsZero() ? 0 : number_.point + exponent;
  number_.negative = negative && !number_.IsZero();
  return number_;
}

}  // namespace zorkanca
