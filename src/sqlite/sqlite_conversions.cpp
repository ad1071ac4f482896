#include "sqlite/sqlite_conversions.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "runtime/date.h"

namespace zorkanca {

namespace {

constexpr std::int64_t kSecondsADay = 86400;

/// @param day  days since 30.12.1899
std::optional<Date> DateOf(std::int64_t day, std::int64_t secondOfDay) {
  const double time = static_cast<double>(secondOfDay) / static_cast<double>(kSecondsADay);
  const auto whole = static_cast<double>(day);
  const Date date{day < 0 ? whole - time : whole + time};
  return IsDateSerial(date.serial) ? std::optional(date) : std::nullopt;
}

constexpr int kDigits = 15;  // that a real gives back as they were written
constexpr double kLargestOfDigits = 1e15 - 1;
constexpr int kMostDecimals = 28;

Decimal DecimalOfParts(std::uint64_t digits, int scale, bool negative) {
  return {.high = 0, .low = digits, .scale = static_cast<std::uint8_t>(scale), .negative = negative};
}

// The decimal number with few decimals that reads as exactly this real, if there is one. With at most 15 digits it is
// the only one of that length, so that it is also what 15 printed digits show.
std::optional<Decimal> ShortDecimalOf(double magnitude, bool negative) {
  constexpr std::array<double, 7> kPowers{1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
  for (std::size_t scale = 0; scale < kPowers.size(); ++scale) {
    const double digits = std::nearbyint(magnitude * kPowers[scale]);
    if (digits > kLargestOfDigits) break;
    if (digits / kPowers[scale] == magnitude) {
      return DecimalOfParts(static_cast<std::uint64_t>(digits), static_cast<int>(scale), negative);
    }
  }
  return std::nullopt;
}

// digits * 10^power in 96 bits; nothing when it does not fit.
std::optional<Decimal> ScaledUp(std::uint64_t digits, int power, bool negative) {
  std::uint64_t low = digits;
  std::uint64_t high = 0;
  for (; power > 0; --power) {
    const std::uint64_t lowHalf = (low & 0xFFFFFFFF) * 10;
    const std::uint64_t highHalf = (low >> 32) * 10 + (lowHalf >> 32);
    low = highHalf << 32 | (lowHalf & 0xFFFFFFFF);
    high = high * 10 + (highHalf >> 32);
    if (high > std::numeric_limits<std::uint32_t>::max()) return std::nullopt;
  }
  return Decimal{.high = static_cast<std::uint32_t>(high), .low = low, .scale = 0, .negative = negative};
}

// Drops digits beyond the last decimal that the type has, rounding halves away from zero.
Decimal RoundedToMostDecimals(std::uint64_t digits, int scale, bool negative) {
  std::uint64_t dropped = 0;
  for (; scale > kMostDecimals && digits > 0; --scale) {
    dropped = digits % 10;
    digits /= 10;
  }
  if (scale > kMostDecimals) return {};
  if (dropped >= 5) ++digits;
  return DecimalOfParts(digits, scale, negative && digits > 0);
}

}  // namespace

std::optional<Date> DateOfUnixSeconds(std::int64_t seconds) {
  std::int64_t day = seconds / kSecondsADay;
  std::int64_t second = seconds % kSecondsADay;
  if (second < 0) {
    --day;
    second += kSecondsADay;
  }
  return DateOf(day + kSerialOf1970, second);
}

std::optional<Date> DateOfJulianDay(double julianDay) {
  constexpr double kJulianDayOf1970 = 2440587.5;
  const double seconds = std::round((julianDay - kJulianDayOf1970) * static_cast<double>(kSecondsADay));
  if (!(std::fabs(seconds) < 1e12)) return std::nullopt;
  return DateOfUnixSeconds(static_cast<std::int64_t>(seconds));
}

std::optional<Currency> CurrencyOf(std::int64_t number) {
  constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max() / 10000;
  if (number > kLargest || number < -kLargest) return std::nullopt;
  return Currency{number * 10000};
}

std::optional<Currency> CurrencyOf(double number) {
  constexpr double kBeyond = 9223372036854775808.0;  // 2 to the power 63
  const double scaled = std::nearbyint(number * 10000);
  if (!(scaled >= -kBeyond && scaled < kBeyond)) return std::nullopt;
  return Currency{static_cast<std::int64_t>(scaled)};
}

Decimal DecimalOf(std::int64_t number) {
  const auto bits = static_cast<std::uint64_t>(number);
  return DecimalOfParts(number < 0 ? 0 - bits : bits, 0, number < 0);
}

std::optional<Decimal> DecimalOf(double number) {
  if (!std::isfinite(number)) return std::nullopt;
  const bool negative = number < 0;
  const double magnitude = std::fabs(number);
  if (const std::optional<Decimal> decimal = ShortDecimalOf(magnitude, negative)) return decimal;

  // "d.dddddddddddddde+NN"
  std::array<char, 32> printed{};
  const std::to_chars_result end = std::to_chars(printed.data(), printed.data() + printed.size(), magnitude,
                                                 std::chars_format::scientific, kDigits - 1);
  std::uint64_t digits = static_cast<std::uint64_t>(printed[0] - '0');
  const char* const fraction = printed.data() + 2;
  const char* const exponentMark = fraction + kDigits - 1;
  for (const char* digit = fraction; digit != exponentMark; ++digit) {
    digits = digits * 10 + static_cast<std::uint64_t>(*digit - '0');
  }
  int exponent = 0;
  const char* const sign = exponentMark + 1;
  std::from_chars(*sign == '+' ? sign + 1 : sign, end.ptr, exponent);

  int scale = kDigits - 1 - exponent;
  for (; digits % 10 == 0 && scale > 0; --scale) digits /= 10;
  if (scale < 0) return ScaledUp(digits, -scale, negative);
  return RoundedToMostDecimals(digits, scale, negative);
}

}  // namespace zorkanca
