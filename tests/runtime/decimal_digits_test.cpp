#include "runtime/decimal_digits.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <random>
#include <string>

#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

// The slow way: all digits of the exact binary value, rounded as on paper.
std::string RoundedOnPaper(double value, int limit) {
  char text[1200];
  const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, 1100);
  const std::string exact(text, end.ptr);
  const std::size_t mark = exact.find('e');
  int exponent = std::stoi(exact.substr(mark + 1));
  std::string digits = exact.substr(0, mark);
  digits.erase(1, 1);
  const auto kept = static_cast<std::size_t>(limit);
  const bool up = digits[kept] >= '5';
  digits.resize(kept);
  if (up) {
    while (!digits.empty() && digits.back() == '9') digits.pop_back();
    if (digits.empty()) {
      digits.assign(1, '1');
      ++exponent;
    } else {
      ++digits.back();
    }
  }
  digits.erase(digits.find_last_not_of('0') + 1);
  return digits.append("e").append(std::to_string(exponent + 1));
}

std::string Shortened(double value, int limit) {
  const DecimalDigits number = DigitsOf(value, limit);
  return std::string(number.digits, static_cast<std::size_t>(number.count))
      .append("e")
      .append(std::to_string(number.point));
}

TEST(DecimalDigits, DoublesRoundAsTheirExactValueDoes) {
  std::mt19937_64 random(20261116);
  std::vector<double> values = {
      5e-324, 2.2250738585072014e-308, 1.7976931348623157e308, 9007199254740993.0,
      1e23,   2.384185791015625e-07};  // the last: a half that is exact, with the smallest power
  for (int index = 0; index < 20000; ++index) {
    const std::uint64_t bits = random();
    const auto number = static_cast<double>(bits >> 11);
    values.push_back(std::bit_cast<double>(bits & 0x7FEFFFFFFFFFFFFF));
    values.push_back(number / 10000);                                               // an amount
    values.push_back(static_cast<double>(bits >> 40) / 1048576);                    // many exact halves
    values.push_back((static_cast<double>(bits % 1000000000000000) + 0.5) / 1000);  // halves that are not exact
  }
  for (const double value : values) {
    if (value == 0) continue;
    ASSERT_EQ(Shortened(value, kDoubleDigits), RoundedOnPaper(value, kDoubleDigits)) << value;
    const auto single = static_cast<double>(static_cast<float>(value));
    if (!(single > 0 && single < 1e39)) continue;
    ASSERT_EQ(Shortened(single, kSingleDigits), RoundedOnPaper(single, kSingleDigits)) << single;
  }
}

TEST(DecimalDigits, TextsOfAnyLengthKeepTheirValue) {
  const auto collected = [](const std::string& text) {
    DigitCollector collector;
    for (const char unit : text) {
      if (unit == '.') {
        collector.AddPoint();
      } else {
        collector.Add(static_cast<char16_t>(unit));
      }
    }
    return collector.Finish(0, true);
  };
  EXPECT_EQ(NearestDouble(collected(std::string("000").append(200, '1'))), -std::stod(std::string(200, '1')));
  EXPECT_EQ(NearestDouble(collected(std::string("0.").append(2000, '0').append("1"))), 0);
  EXPECT_EQ(WholeNumber(collected(std::string("2.5").append(2000, '0').append("1"))), -3) << "more than a half";
  EXPECT_EQ(WholeNumber(collected(std::string("2.5").append(2000, '0'))), -2) << "exactly a half";
  EXPECT_EQ(WholeNumber(collected("9223372036854775808")), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(WholeNumber(collected("9223372036854775809")), std::nullopt);
}

}  // namespace
}  // namespace zorkanca::testing
