// Decimal numbers of plain texts.
#include <algorithm>
#include <cmath>

#include "runtime/convert.h"
#include "runtime/decimal_digits.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr std::int64_t kLargestScale = 28;

// Multiplies the 96-bit integer by ten and adds a digit; false when it does not fit.
bool AddDigit(Decimal& number, std::uint32_t digit) {
  const std::uint64_t low = (number.low & 0xFFFFFFFF) * 10 + digit;
  const std::uint64_t middle = (number.low >> 32) * 10 + (low >> 32);
  const std::uint64_t high = std::uint64_t{number.high} * 10 + (middle >> 32);
  number.low = middle << 32 | (low & 0xFFFFFFFF);
  number.high = static_cast<std::uint32_t>(high);
  return high >> 32 == 0;
}

// The digits with exactly `scale` decimals; false when they do not fit.
bool Assemble(DecimalDigits digits, std::int64_t scale, Decimal& number) {
  RoundToDecimals(digits, scale, RoundingMode::kHalfToEven);
  number = Decimal{.scale = static_cast<std::uint8_t>(scale), .negative = digits.negative};
  const std::int64_t length = digits.IsZero() ? 0 : digits.point + scale;
  const auto digit = [&](std::int64_t index) {
    return index < digits.count ? static_cast<std::uint32_t>(digits.digits[index] - '0') : 0;
  };
  std::int64_t index = 0;
  for (constexpr std::int64_t kOf64Bits = 19; index < std::min(length, kOf64Bits); ++index) {
    number.low = number.low * 10 + digit(index);
  }
  for (; index < length; ++index) {
    if (!AddDigit(number, digit(index))) return false;
  }
  return true;
}

}  // namespace

std::optional<Decimal> ToDecimal(double value) {
  if (std::uint64_t amount = TenThousandthsOf(std::fabs(value)); amount != 0) {
    std::uint8_t scale = 4;
    for (; scale > 0 && amount % 10 == 0; --scale) amount /= 10;
    return Decimal{.low = amount, .scale = scale, .negative = value < 0};
  }
  DecimalDigits rounded = DigitsOf(value);
  RoundToDecimals(rounded, kLargestScale, RoundingMode::kHalfToEven);
  Decimal decimal;
  if (!Assemble(rounded, std::max<std::int64_t>(rounded.count - rounded.point, 0), decimal)) return std::nullopt;
  return decimal;
}

Decimal ToDecimal(TextView plainText) {
  const bool negative = plainText.starts_with(u'-');
  if (negative) plainText.remove_prefix(1);
  DigitCollector collector;
  std::int64_t decimals = 0;
  bool point = false;
  for (const char16_t unit : plainText) {
    if (unit == u'.' && !point) {
      point = true;
      collector.AddPoint();
    } else if (IsDigit(unit)) {
      collector.Add(unit);
      decimals += point ? 1 : 0;
    } else {
      Raise(RuntimeError::kTypeMismatch);
    }
  }
  if (!collector.any()) Raise(RuntimeError::kTypeMismatch);
  const DecimalDigits digits = collector.Finish(0, negative);
  // Decimals give way to the integer part where 96 bits do not hold both: from 29 digits on one or two attempts fail.
  constexpr std::int64_t kMostDigits = 29;
  Decimal number;
  std::int64_t scale = std::min({decimals, kLargestScale, kMostDigits - std::max<std::int64_t>(digits.point, 0)});
  for (; scale >= 0; --scale) {
    if (Assemble(digits, scale, number)) return number;
  }
  Raise(RuntimeError::kOverflow);
}

}  // namespace zorkanca
