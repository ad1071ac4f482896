#include "runtime/utf8_check.h"

#include <cstdint>
#include <cstring>

#include "runtime/utf8_sequence.h"

namespace zorkanca {

bool IsAscii(std::string_view bytes) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080u;
  std::uint64_t all = 0;
  while (bytes.size() >= sizeof all) {
    std::uint64_t block = 0;
    std::memcpy(&block, bytes.data(), sizeof block);
    all |= block;
    bytes.remove_prefix(sizeof block);
  }
  for (const char byte : bytes) all |= static_cast<std::uint8_t>(byte);
  return (all & kHighBits) == 0;
}

std::size_t ValidUtf8Length(std::string_view bytes) {
  constexpr std::ptrdiff_t kBlock = 8;  // most texts are ASCII for the most part
  const char* next = bytes.data();
  const char* const end = next + bytes.size();
  while (next != end) {
    const char* const endOfBlock = end - next >= kBlock ? next + kBlock : end;
    if (IsAscii({next, endOfBlock})) {
      next = endOfBlock;
      continue;
    }
    while (next < endOfBlock) {
      const std::ptrdiff_t length = ReadUtf8Sequence(next, end).length;
      if (length == 0) return static_cast<std::size_t>(next - bytes.data());
      next += length;
    }
  }
  return bytes.size();
}

std::size_t Utf16Length(std::string_view utf8) {
  // Four-byte sequences are two UTF-16 units; every other lead byte is one.
  std::size_t units = 0;
  for (const char byte : utf8) {
    units += (byte & 0xC0) != 0x80;
    units += (byte & 0xF8) == 0xF0;
  }
  return units;
}

}  // namespace zorkanca
