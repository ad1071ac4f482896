// UTF-8 at the edges of the system: the command line, paths of the host, files of other formats, tests.
// Bytes that are no UTF-8 survive the way in and out: byte B becomes the lone unit U+DC00 + B, as file names need it.
#pragma once

#include <string>
#include <string_view>

#include "runtime/text.h"

namespace zorkanca {

/// The two halves of a character above U+FFFF.
constexpr bool IsHighSurrogate(char16_t unit) {
  return (unit & 0xFC00) == 0xD800;
}
constexpr bool IsLowSurrogate(char16_t unit) {
  return (unit & 0xFC00) == 0xDC00;
}
/// The character of both.
constexpr char32_t CharacterOf(char16_t high, char16_t low) {
  return 0x10000 + ((high - 0xD800U) << 10) + (low - 0xDC00U);
}

/// Appends UTF-8 bytes as UTF-16. Overlong forms, surrogates and values above U+10FFFF are invalid bytes.
/// @return false when some byte was invalid (it stands in the text as U+DC00 + byte)
bool AppendUtf8(Text& text, std::string_view bytes);

/// The text of UTF-8 bytes; invalid bytes as in `AppendUtf8`.
Text FromUtf8(std::string_view bytes);

/// The UTF-8 bytes of a text. Lone units U+DC80 to U+DCFF give the byte they stand for, other lone surrogates U+FFFD.
std::string ToUtf8(TextView text);
/// Appends what `ToUtf8` gives.
void AppendAsUtf8(std::string& bytes, TextView text);

/// Gives out the bytes of one character, or of any other code up to U+10FFFF as if it were one.
/// @param put  called with each byte, a char
template <typename Put>
inline void EncodeUtf8(char32_t code, Put put) {
  const auto byte = [&](char32_t bits) { put(static_cast<char>(bits)); };
  if (code < 0x80) return byte(code);
  if (code < 0x800) {
    byte(0xC0 | code >> 6);
  } else if (code < 0x10000) {
    byte(0xE0 | code >> 12);
    byte(0x80 | (code >> 6 & 0x3F));
  } else {
    byte(0xF0 | code >> 18);
    byte(0x80 | (code >> 12 & 0x3F));
    byte(0x80 | (code >> 6 & 0x3F));
  }
  byte(0x80 | (code & 0x3F));
}
/// Appends that character.
inline void AppendCharacterAsUtf8(std::string& bytes, char32_t code) {
  EncodeUtf8(code, [&](char byte) { bytes.push_back(byte); });
}

}  // namespace zorkanca
