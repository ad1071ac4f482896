// The ANSI code pages: one byte a character, all 256 bytes there and back without loss.
// A character outside the page becomes the nearest one of the system's best-fit table, else "?" per UTF-16 unit.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/text.h"

namespace zorkanca {

class CodePage {
 public:
  /// The page of this number: 1250, 1251 or 1252.
  /// Errors: 5 for any other number.
  static const CodePage& Get(int number);

  int number() const { return number_; }

  /// Character of a byte; a byte that the page leaves open is the control character of its own code.
  char16_t Decode(std::uint8_t byte) const { return characters_[byte]; }
  /// Byte of a UTF-16 unit, by the page, best fit or "?".
  std::uint8_t Encode(char16_t unit) const { return static_cast<std::uint8_t>(bytes_[unit]); }

  /// Appends the characters of the bytes.
  void AppendDecoded(Text& text, std::string_view bytes) const;
  /// Appends the bytes of the text, one for each UTF-16 unit.
  /// @return how many of its characters the page does not have
  std::size_t AppendEncoded(std::string& bytes, TextView text) const;

 private:
  explicit CodePage(int number);

  static constexpr std::uint16_t kLost = 0x100;  // beside the byte of a character that the page does not have

  int number_;
  std::array<char16_t, 256> characters_{};
  std::array<std::uint16_t, 65536> bytes_{};  // a flat table: encoding a text is the hot path of every export
};

}  // namespace zorkanca
