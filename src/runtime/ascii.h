// Digits and letters of ASCII, and of nothing else: what numbers, patterns and names in packages are made of.
#pragma once

#include <string>
#include <string_view>

namespace zorkanca {

/// True for 0 to 9.
constexpr bool IsDigit(char16_t unit) {
  return unit >= u'0' && unit <= u'9';
}
constexpr bool IsDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

/// True for 0 to 9, A to Z and a to z.
constexpr bool IsAlphanumeric(char byte) {
  return IsDigit(byte) || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

/// A to Z in lower case; anything else stays.
constexpr char16_t AsciiLower(char16_t unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}
constexpr char AsciiLower(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}
inline std::string AsciiLower(std::string_view bytes) {
  std::string lower(bytes);
  for (char& byte : lower) byte = AsciiLower(byte);
  return lower;
}

}  // namespace zorkanca
