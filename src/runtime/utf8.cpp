#include "runtime/utf8.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "runtime/utf8_sequence.h"

namespace zorkanca {

namespace {

constexpr char16_t kEscapeBase = 0xDC00;  // invalid byte B travels as the lone low surrogate U+DC00 + B

constexpr std::ptrdiff_t kBlock = 8;

bool IsAsciiBlock(const char* bytes) {
  std::uint64_t block = 0;
  std::memcpy(&block, bytes, kBlock);
  return (block & 0x8080808080808080u) == 0;
}

char16_t* PutUtf16(char16_t* units, char32_t character) {
  if (character < 0x10000) {
    *units++ = static_cast<char16_t>(character);
  } else {
    character -= 0x10000;
    *units++ = static_cast<char16_t>(0xD800 + (character >> 10));
    *units++ = static_cast<char16_t>(0xDC00 + (character & 0x3FF));
  }
  return units;
}

}  // namespace

bool AppendUtf8(Text& text, std::string_view bytes) {
  bool valid = true;
  const std::size_t start = text.size();
  text.resize(start + bytes.size());  // no sequence gives more units than it has bytes
  char16_t* units = text.data() + start;
  const char* next = bytes.data();
  const char* const end = next + bytes.size();
  while (next != end) {
    if (end - next >= kBlock && IsAsciiBlock(next)) {
      // A loop of fixed length, which the compiler turns into vector instructions.
      for (std::ptrdiff_t index = 0; index < kBlock; ++index) units[index] = static_cast<std::uint8_t>(next[index]);
      next += kBlock;
      units += kBlock;
      continue;
    }
    const char* const endOfBlock = end - next >= kBlock ? next + kBlock : end;
    while (next < endOfBlock) {
      const Utf8Sequence sequence = ReadUtf8Sequence(next, end);
      if (sequence.length == 0) {
        *units++ = static_cast<char16_t>(kEscapeBase + static_cast<std::uint8_t>(*next));
        valid = false;
        ++next;
      } else {
        units = PutUtf16(units, sequence.character);
        next += sequence.length;
      }
    }
  }
  text.resize(static_cast<std::size_t>(units - text.data()));
  return valid;
}

Text FromUtf8(std::string_view bytes) {
  Text text;
  AppendUtf8(text, bytes);
  return text;
}

void AppendAsUtf8(std::string& bytes, TextView text) {
  for (std::size_t index = 0; index < text.size(); ++index) {
    const char16_t unit = text[index];
    if (IsHighSurrogate(unit) && index + 1 < text.size() && IsLowSurrogate(text[index + 1])) {
      AppendCharacterAsUtf8(bytes, CharacterOf(unit, text[++index]));
    } else if (unit >= kEscapeBase + 0x80 && unit <= kEscapeBase + 0xFF) {
      bytes.push_back(static_cast<char>(unit - kEscapeBase));
    } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
      AppendCharacterAsUtf8(bytes, 0xFFFD);
    } else {
      AppendCharacterAsUtf8(bytes, unit);
    }
  }
}

std::string ToUtf8(TextView text) {
  std::string bytes;
  AppendAsUtf8(bytes, text);
  return bytes;
}

}  // namespace zorkanca
