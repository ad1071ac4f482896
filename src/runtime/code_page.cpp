#include "runtime/code_page.h"

#include <cstddef>

#include "runtime/code_page_tables.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr std::size_t kAsciiEnd = 0x80;

// The full-width forms of East Asian fonts repeat the printable ASCII characters at this distance, in every page.
constexpr char16_t kFullWidthDistance = 0xFEE0;
constexpr char16_t kFirstPrintable = 0x21;
constexpr char16_t kLastPrintable = 0x7E;

}  // namespace

CodePage::CodePage(int number) : number_(number) {
  const CodePageTable table = CodePageTableOf(number);
  for (std::size_t byte = 0; byte < characters_.size(); ++byte) {
    characters_[byte] = byte < kAsciiEnd ? static_cast<char16_t>(byte) : table.upperHalf[byte - kAsciiEnd];
  }
  bytes_.fill('?');
  for (std::size_t byte = 0; byte < characters_.size(); ++byte) {
    bytes_[characters_[byte]] = static_cast<std::uint8_t>(byte);
  }
  for (char16_t unit = kFirstPrintable; unit <= kLastPrintable; ++unit) {
    bytes_[unit + kFullWidthDistance] = static_cast<std::uint8_t>(unit);
  }
  const auto isOnPage = [this](char16_t unit) { return characters_[bytes_[unit]] == unit; };
  for (const std::span<const Substitute> list : table.substitutes) {
    for (const Substitute& substitute : list) {
      for (const char16_t unit : substitute.standsFor) {
        if (!isOnPage(unit)) bytes_[unit] = bytes_[substitute.character];
      }
    }
  }
  for (std::size_t unit = 0; unit < bytes_.size(); ++unit) {
    const bool isSecondHalf = (unit & 0xFC00) == 0xDC00;  // counted with its first
    if (!isOnPage(static_cast<char16_t>(unit)) && !isSecondHalf) bytes_[unit] |= kLost;
  }
}

// A table is made when its page is first asked for: a program needs one of them.
const CodePage& CodePage::Get(int number) {
  switch (number) {
    case 1250: {
      static const CodePage centralEuropean(1250);
      return centralEuropean;
    }
    case 1251: {
      static const CodePage cyrillic(1251);
      return cyrillic;
    }
    case 1252: {
      static const CodePage western(1252);
      return western;
    }
    default:
      Raise(RuntimeError::kInvalidCall);
  }
}

void CodePage::AppendDecoded(Text& text, std::string_view bytes) const {
  const std::size_t start = text.size();
  text.resize(start + bytes.size());
  char16_t* out = text.data() + start;
  for (const char byte : bytes) *out++ = characters_[static_cast<std::uint8_t>(byte)];
}

std::size_t CodePage::AppendEncoded(std::string& bytes, TextView text) const {
  std::size_t lost = 0;
  const std::size_t start = bytes.size();
  bytes.resize(start + text.size());
  char* out = bytes.data() + start;
  const char16_t* next = text.data();
  const char16_t* const end = next + text.size();
  // Most of every file is ASCII, the same in all pages: the compiler turns the two inner loops into a few instructions.
  constexpr std::ptrdiff_t kBlock = 16;
  for (; end - next >= kBlock; next += kBlock, out += kBlock) {
    char16_t bits = 0;
    for (std::ptrdiff_t index = 0; index < kBlock; ++index) bits |= next[index];
    if (bits < 0x80) {
      for (std::ptrdiff_t index = 0; index < kBlock; ++index) out[index] = static_cast<char>(next[index]);
    } else {
      for (std::ptrdiff_t index = 0; index < kBlock; ++index) {
        const std::uint16_t entry = bytes_[next[index]];
        out[index] = static_cast<char>(entry);
        lost += entry / kLost;
      }
    }
  }
  for (; next != end; ++next, ++out) {
    const std::uint16_t entry = bytes_[*next];
    *out = static_cast<char>(entry);
    lost += entry / kLost;
  }
  return lost;
}

}  // namespace zorkanca
