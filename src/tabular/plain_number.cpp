#include "tabular/plain_number.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <system_error>

#include "runtime/ascii.h"

namespace zorkanca {

namespace {

constexpr std::size_t kLongestNumber = 1000;

// Powers that a Double holds exactly.
constexpr std::array<double, 23> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                                 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kExactDigits = 15;  // a Double holds any number of so many

class NumberReader {
 public:
  explicit NumberReader(std::string_view text) : next_(text.data()), end_(text.data() + text.size()) {}

  std::optional<PlainNumber> Read(bool withExponent) {
    number_.isNegative = Take('-');
    const char* const whole = next_;
    TakeDigits();
    const std::ptrdiff_t length = next_ - whole;
    if (length > 1 && *whole == '0') return std::nullopt;
    if (AtEnd()) return length > 0 ? std::optional(number_) : std::nullopt;
    if (*next_ == '.' || *next_ == ',') {
      number_.separator = *next_++;
      const char* const fraction = next_;
      TakeDigits();
      number_.decimals = static_cast<int>(next_ - fraction);
      if (number_.decimals == 0) return std::nullopt;
    } else if (length == 0) {
      return std::nullopt;
    }
    if (withExponent && !AtEnd() && !TakeExponent()) return std::nullopt;
    return AtEnd() ? std::optional(number_) : std::nullopt;
  }

 private:
  bool AtEnd() const { return next_ == end_; }
  bool Take(char byte) {
    if (AtEnd() || *next_ != byte) return false;
    ++next_;
    return true;
  }

  void TakeDigits() {
    for (; !AtEnd() && IsDigit(*next_); ++next_) {
      number_.value = number_.value * 10 + static_cast<std::uint64_t>(*next_ - '0');
      number_.digits += number_.digits > 0 || *next_ != '0';
    }
  }

  bool TakeExponent() {
    if (!Take('e') && !Take('E')) return false;
    number_.hasExponent = true;
    if (!Take('+')) Take('-');
    const char* const start = next_;
    while (!AtEnd() && IsDigit(*next_)) ++next_;
    return next_ != start;
  }

  const char* next_;
  const char* end_;
  PlainNumber number_;
};

// The text with a point for the separator.
void SetPoint(std::string& text, char separator) {
  if (separator == 0 || separator == '.') return;
  text[text.find(separator)] = '.';
}

}  // namespace

std::optional<PlainNumber> ReadPlainNumber(std::string_view text, bool withExponent) {
  // Most texts are no numbers and tell so by their first character.
  if (text.empty() || text.size() > kLongestNumber || text[0] > '9' || text[0] < ',') return std::nullopt;
  return NumberReader(text).Read(withExponent);
}

std::optional<double> DoubleOf(const PlainNumber& number, std::string_view text) {
  if (number.digits <= kExactDigits && number.decimals < static_cast<int>(kPowersOfTen.size()) && !number.hasExponent) {
    // Both are exact, so that the quotient is the nearest Double.
    const double value = static_cast<double>(number.value) / kPowersOfTen[static_cast<std::size_t>(number.decimals)];
    return number.isNegative ? -value : value;
  }
  std::string withPoint(text);
  SetPoint(withPoint, number.separator);
  double value = 0;
  const char* const start = withPoint.data();
  const std::from_chars_result end = std::from_chars(start, start + withPoint.size(), value);
  // Out of range is too large, or so small that nothing but 0 is near.
  const bool isTiny = end.ec == std::errc::result_out_of_range && withPoint.find_first_of("eE") != std::string::npos &&
                      withPoint.find("-", 1) != std::string::npos;
  if (isTiny) return 0;
  return end.ec == std::errc() && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<std::int64_t> IntegerOf(const PlainNumber& number, std::string_view text) {
  if (number.separator != 0 || number.hasExponent) return std::nullopt;
  if (number.digits <= PlainNumber::kDigitsOfValue) {
    const auto value = static_cast<std::int64_t>(number.value);
    return number.isNegative ? -value : value;
  }
  std::int64_t value = 0;
  const std::from_chars_result end = std::from_chars(text.data(), text.data() + text.size(), value);
  return end.ec == std::errc() ? std::optional(value) : std::nullopt;
}

std::optional<std::int64_t> TenThousandthsOf(const PlainNumber& number) {
  constexpr int kDecimals = 4;
  if (number.hasExponent || number.decimals > kDecimals || number.digits > PlainNumber::kDigitsOfValue) {
    return std::nullopt;
  }
  std::uint64_t value = number.value;
  for (int decimals = number.decimals; decimals < kDecimals; ++decimals) {
    if (value > std::numeric_limits<std::int64_t>::max() / 10) return std::nullopt;
    value *= 10;
  }
  if (value > std::numeric_limits<std::int64_t>::max()) return std::nullopt;
  const auto result = static_cast<std::int64_t>(value);
  return number.isNegative ? -result : result;
}

void SpellWithPoint(std::string& result, const PlainNumber& number, std::string_view text) {
  result = text;
  SetPoint(result, number.separator);
  if (number.separator == 0) result += ".0";
  const std::size_t first = number.isNegative ? 1 : 0;
  if (result[first] == '.') result.insert(first, 1, '0');
}

}  // namespace zorkanca
