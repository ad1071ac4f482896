// Numbers as files spell them, and only as plainly as no other thing is spelt.
//
//   number   = ["-"] whole [separator digits] [exponent]   |  ["-"] separator digits [exponent]
//   whole    = "0" | digits without a 0 before them
//   exponent = ("e" | "E") ["+" | "-"] digits              where the reader takes any
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zorkanca {

struct PlainNumber {
  bool isNegative = false;
  bool hasExponent = false;
  char separator = 0;       ///< before the decimals; 0 of a whole number
  int digits = 0;           ///< from the first that is not 0 to the last as written
  int decimals = 0;         ///< as written
  std::uint64_t value = 0;  ///< all digits without separator and sign, right while `digits` is 18 or less

  static constexpr int kDigitsOfValue = 18;
};

/// Reads all of a text. @return nothing for any other text, a number of more than a thousand digits among them
std::optional<PlainNumber> ReadPlainNumber(std::string_view text, bool withExponent);

/// The nearest Double; nothing when it would be infinite.
/// @param text  which the number was read from
std::optional<double> DoubleOf(const PlainNumber& number, std::string_view text);

/// The number as an integer of 64 bits; nothing when it has decimals or an exponent, or does not fit.
std::optional<std::int64_t> IntegerOf(const PlainNumber& number, std::string_view text);

/// Ten-thousandths; nothing for more than four decimals, an exponent, or more than an amount may have.
std::optional<std::int64_t> TenThousandthsOf(const PlainNumber& number);

/// Replaces the text by the number with a point and with digits on both sides of it: "-12.0", "0.5".
void SpellWithPoint(std::string& result, const PlainNumber& number, std::string_view text);

}  // namespace zorkanca
