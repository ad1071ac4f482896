#include "sqlite/sqlite_conversions.h"

#include <cmath>
#include <limits>

#include "runtime/convert.h"
#include "runtime/date.h"
#include "runtime/decimal_digits.h"

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

// A text "-12.50" without the zeros that end its decimals, and its digits; nothing of any other text.
struct PlainNumber {
  std::string_view text;
  int digits = 0;  // from the first that is not 0
  int decimals = 0;
};

std::optional<PlainNumber> PlainNumberOf(std::string_view text) {
  const std::size_t point = text.find('.');
  if (point != std::string_view::npos) {
    text = text.substr(0, text.find_last_not_of('0') + 1);
    if (text.size() == point + 1) text.remove_suffix(1);
  }
  PlainNumber number{.text = text};
  bool isEmpty = true;
  for (std::size_t index = text.starts_with('-') ? 1 : 0; index < text.size(); ++index) {
    if (index == point) continue;
    if (!IsDigit(text[index])) return std::nullopt;
    isEmpty = false;
    number.digits += number.digits > 0 || text[index] != '0';
    number.decimals += index > point;
  }
  return isEmpty ? std::nullopt : std::optional(number);
}

Text Widened(std::string_view ascii) {
  return Text(ascii.begin(), ascii.end());
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

std::optional<Currency> CurrencyOf(std::string_view text) {
  constexpr int kDecimals = 4;
  constexpr int kMostDigits = 19;
  const std::optional<PlainNumber> number = PlainNumberOf(text);
  if (!number || number->decimals > kDecimals || number->digits > kMostDigits) return std::nullopt;
  const std::optional<std::int64_t> amount = WholeNumber(DigitsOf(ToDecimal(Widened(number->text))), kDecimals);
  return amount ? std::optional(Currency{*amount}) : std::nullopt;
}

std::optional<Decimal> DecimalOf(std::string_view text) {
  constexpr int kMostDigits = 28;  // before and behind the point: any such number fits
  const std::optional<PlainNumber> number = PlainNumberOf(text);
  if (!number || number->decimals > kMostDigits || number->digits > kMostDigits) return std::nullopt;
  return ToDecimal(Widened(number->text));
}

Decimal DecimalOf(std::int64_t number) {
  const auto bits = static_cast<std::uint64_t>(number);
  return {.low = number < 0 ? 0 - bits : bits, .negative = number < 0};
}

std::optional<Decimal> DecimalOf(double number) {
  return std::isfinite(number) ? ToDecimal(number) : std::nullopt;
}

}  // namespace zorkanca
