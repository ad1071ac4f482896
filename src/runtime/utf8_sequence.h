// One character of UTF-8 bytes: what all readers of UTF-8 share.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zorkanca {

struct Utf8Sequence {
  std::ptrdiff_t length = 0;  ///< 0: the first byte starts no valid sequence
  char32_t character = 0;
};

/// The character at the start of the bytes, of which there is at least one. Overlong forms, surrogates and values above
/// U+10FFFF are no characters.
inline Utf8Sequence ReadUtf8Sequence(const char* bytes, const char* end) {
  const auto byte = [&](std::ptrdiff_t index) { return static_cast<std::uint8_t>(bytes[index]); };
  const std::uint8_t lead = byte(0);
  std::ptrdiff_t length = 0;
  char32_t character = 0;
  char32_t smallest = 0;  // anything below is an overlong form
  if (lead < 0x80) {
    return {1, lead};
  } else if ((lead & 0xE0) == 0xC0) {
    length = 2, character = lead & 0x1Fu, smallest = 0x80;
  } else if ((lead & 0xF0) == 0xE0) {
    length = 3, character = lead & 0x0Fu, smallest = 0x800;
  } else if ((lead & 0xF8) == 0xF0) {
    length = 4, character = lead & 0x07u, smallest = 0x10000;
  } else {
    return {};
  }
  if (end - bytes < length) return {};
  for (std::ptrdiff_t index = 1; index < length; ++index) {
    if ((byte(index) & 0xC0) != 0x80) return {};
    character = character << 6 | (byte(index) & 0x3Fu);
  }
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (character < smallest || character > 0x10FFFF || surrogate) return {};
  return {length, character};
}

}  // namespace zorkanca
