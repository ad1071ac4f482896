#include "runtime/convert.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>

#include "runtime/date.h"
#include "runtime/date_text.h"
#include "runtime/decimal_digits.h"
#include "runtime/error.h"
#include "runtime/parse_number.h"

namespace zorkanca {

namespace {

template <typename... Handlers>
struct Overloaded : Handlers... {
  using Handlers::operator()...;
};
template <typename... Handlers>
Overloaded(Handlers...) -> Overloaded<Handlers...>;  // C++20 deduces it so; clang 14 does not yet

template <typename T>
concept Integer = std::is_integral_v<T> && !std::is_same_v<T, bool>;

template <typename T>
concept Floating = std::is_floating_point_v<T>;

template <typename T>
concept ExactNumber = std::is_same_v<T, Currency> || std::is_same_v<T, Decimal>;

template <typename T>
concept Opaque = std::is_same_v<T, Binary> || std::is_same_v<T, ObjectReference>;

template <typename T>
concept Absent = std::is_same_v<T, Empty> || std::is_same_v<T, Null>;

[[noreturn]] void RaiseMismatch() {
  Raise(RuntimeError::kTypeMismatch);
}

template <Floating T>
void AppendFloating(Text& text, T number, TextView decimalSeparator) {
  if (std::isnan(number)) {
    text.append(u"NaN");
  } else if (std::isinf(number)) {
    text.append(number > 0 ? u"INF" : u"-INF");
  } else {
    constexpr int kLimit = std::is_same_v<T, float> ? kSingleDigits : kDoubleDigits;
    AppendDigits(text, DigitsOf(number, kLimit), decimalSeparator, kLimit);
  }
}

SpelledNumber NumberOf(const Text& text, const Locale& locale) {
  const std::optional<SpelledNumber> number = ReadNumber(text, locale);
  if (!number) RaiseMismatch();
  return *number;
}

// Halves to even. NaN and what no 64-bit integer holds is an overflow.
std::int64_t RoundedWhole(double number) {
  constexpr double kLimit = 9223372036854775808.0;
  if (!(number >= -kLimit && number < kLimit)) Raise(RuntimeError::kOverflow);
  const double floor = std::floor(number);
  const double fraction = number - floor;
  const auto whole = static_cast<std::int64_t>(floor);
  const bool up = fraction > 0.5 || (fraction == 0.5 && whole % 2 != 0);
  return up ? whole + 1 : whole;  // a number near the limit has no fraction
}

std::int64_t RequireWhole(const DecimalDigits& digits, int decimals = 0) {
  const std::optional<std::int64_t> whole = WholeNumber(digits, decimals);
  if (!whole) Raise(RuntimeError::kOverflow);
  return *whole;
}

template <Integer T>
T ToIntegerType(const Value& value, const Locale& locale) {
  using Bits = std::make_unsigned_t<T>;
  const auto narrow = [](std::int64_t whole) {
    if (whole < std::numeric_limits<T>::min() || whole > std::numeric_limits<T>::max()) {
      Raise(RuntimeError::kOverflow);
    }
    return static_cast<T>(whole);
  };
  return std::visit(Overloaded{
                        [](Empty) -> T { return 0; },
                        [](Null) -> T { Raise(RuntimeError::kInvalidUseOfNull); },
                        [&](bool truth) -> T { return narrow(truth ? -1 : 0); },
                        [&](const Integer auto& number) { return narrow(number); },
                        [&](const Floating auto& number) { return narrow(RoundedWhole(number)); },
                        [&](const ExactNumber auto& number) { return narrow(RequireWhole(DigitsOf(number))); },
                        [&](Date date) { return narrow(RoundedWhole(date.serial)); },
                        [&](const Text& text) {
                          const SpelledNumber number = NumberOf(text, locale);
                          if (number.bits && *number.bits <= std::numeric_limits<Bits>::max()) {
                            return static_cast<T>(*number.bits);
                          }
                          return narrow(RequireWhole(number.digits));
                        },
                        [](const Opaque auto&) -> T { RaiseMismatch(); },
                    },
                    value);
}

std::int64_t ScaledToCurrency(double number) {
  return RoundedWhole(number * 1e4);
}

}  // namespace

void AppendText(Text& text, const Value& value, const Locale& locale) {
  std::visit(Overloaded{
                 [](Empty) {},
                 [](Null) { Raise(RuntimeError::kInvalidUseOfNull); },
                 [&](bool truth) { text.append(truth ? u"True" : u"False"); },
                 [&](const Integer auto& number) { AppendDecimal(text, number); },
                 [&](const Floating auto& number) { AppendFloating(text, number, locale.decimalSeparator); },
                 [&](const ExactNumber auto& number) { AppendDigits(text, DigitsOf(number), locale.decimalSeparator); },
                 [&](Date date) { AppendDate(text, Disassemble(date), locale); },
                 [&](const Text& other) { text.append(other); },
                 [](const Opaque auto&) { RaiseMismatch(); },
             },
             value);
}

Text ToText(const Value& value, const Locale& locale) {
  Text text;
  AppendText(text, value, locale);
  return text;
}

Text ToStrText(const Value& value) {
  Text text(1, u' ');
  std::visit(Overloaded{
                 [&](Empty) { text.push_back(u'0'); },
                 [](Null) { Raise(RuntimeError::kInvalidUseOfNull); },
                 [&](bool truth) { text.assign(truth ? u"True" : u"False"); },
                 [&](const Integer auto& number) { AppendDecimal(text, number); },
                 [&](const Floating auto& number) { AppendFloating(text, number, u"."); },
                 [&](const ExactNumber auto& number) { AppendDigits(text, DigitsOf(number), u"."); },
                 [&](Date date) { AppendFloating(text, date.serial, u"."); },
                 [](const Text&) { RaiseMismatch(); },
                 [](const Opaque auto&) { RaiseMismatch(); },
             },
             value);
  if (text.starts_with(u" -")) text.erase(0, 1);
  if (text.substr(1, 2) == u"0.") text.erase(1, 1);  // " .5": no digit where there is no integer part
  return text;
}

std::int16_t ToInteger(const Value& value, const Locale& locale) {
  return ToIntegerType<std::int16_t>(value, locale);
}

std::int32_t ToLong(const Value& value, const Locale& locale) {
  return ToIntegerType<std::int32_t>(value, locale);
}

std::uint8_t ToByte(const Value& value, const Locale& locale) {
  return ToIntegerType<std::uint8_t>(value, locale);
}

double ToDouble(const Value& value, const Locale& locale) {
  return std::visit(Overloaded{
                        [](Empty) { return 0.0; },
                        [](Null) -> double { Raise(RuntimeError::kInvalidUseOfNull); },
                        [](bool truth) { return truth ? -1.0 : 0.0; },
                        [](const Integer auto& number) { return static_cast<double>(number); },
                        [](const Floating auto& number) { return static_cast<double>(number); },
                        [](const ExactNumber auto& number) { return NearestDouble(DigitsOf(number)); },
                        [](Date date) { return date.serial; },
                        [&](const Text& text) {
                          const double number = NearestDouble(NumberOf(text, locale).digits);
                          if (std::isinf(number)) Raise(RuntimeError::kOverflow);
                          return number;
                        },
                        [](const Opaque auto&) -> double { RaiseMismatch(); },
                    },
                    value);
}

Currency ToCurrency(const Value& value, const Locale& locale) {
  constexpr int kDecimals = 4;
  return Currency{
      std::visit(Overloaded{
                     [](Currency amount) { return amount.tenThousandths; },
                     [](const Floating auto& number) { return ScaledToCurrency(number); },
                     [](Date date) { return ScaledToCurrency(date.serial); },
                     [](const Decimal& number) { return RequireWhole(DigitsOf(number), kDecimals); },
                     [&](const Text& text) { return RequireWhole(NumberOf(text, locale).digits, kDecimals); },
                     [](const Integer auto& number) { return RequireWhole(DigitsOf(std::int64_t{number}), kDecimals); },
                     [](bool truth) { return std::int64_t{truth ? -10000 : 0}; },
                     [](Empty) { return std::int64_t{0}; },
                     [](Null) -> std::int64_t { Raise(RuntimeError::kInvalidUseOfNull); },
                     [](const Opaque auto&) -> std::int64_t { RaiseMismatch(); },
                 },
                 value)};
}

bool ToBoolean(const Value& value, const Locale& locale) {
  if (const auto* text = std::get_if<Text>(&value)) {
    if (EqualsIgnoringCase(*text, u"True") || *text == u"#TRUE#") return true;
    if (EqualsIgnoringCase(*text, u"False") || *text == u"#FALSE#") return false;
  }
  return ToDouble(value, locale) != 0;
}

Date ToDate(const Value& value, const Locale& locale) {
  if (const auto* date = std::get_if<Date>(&value)) return *date;
  if (const auto* text = std::get_if<Text>(&value)) {
    if (const std::optional<Date> date = ParseDate(*text, locale)) return *date;
    const std::optional<double> serial = ParseNumber(*text, locale);
    if (!serial || !IsDateSerial(*serial)) RaiseMismatch();
    return Date{*serial};
  }
  const double serial = ToDouble(value, locale);
  if (!IsDateSerial(serial)) Raise(RuntimeError::kOverflow);
  return Date{serial};
}

bool IsNumeric(const Value& value, const Locale& locale) {
  return std::visit(Overloaded{
                        [](Null) { return false; },
                        [](Date) { return false; },
                        [&](const Text& text) { return ReadNumber(text, locale).has_value(); },
                        [](const Opaque auto&) { return false; },
                        [](const auto&) { return true; },
                    },
                    value);
}

bool IsDate(const Value& value, const Locale& locale) {
  if (const auto* text = std::get_if<Text>(&value)) return ParseDate(*text, locale).has_value();
  return std::holds_alternative<Date>(value);
}

}  // namespace zorkanca
