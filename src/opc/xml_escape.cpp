#include "opc/xml_escape.h"

#include <array>
#include <cstdint>
#include <optional>

#include "runtime/utf8.h"

namespace zorkanca {

namespace {

enum class Place { kText, kAttribute, kPlain };

// What stands for an ASCII character: nothing where XML cannot hold it, an escape, or without one the character itself.
constexpr std::optional<std::string_view> EscapeOf(char c, Place place) {
  if (c < ' ' && c != '\t' && c != '\n' && c != '\r') return "";
  if (place == Place::kPlain) return std::nullopt;
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '\r':
      return "&#13;";
    default:
      break;
  }
  if (place == Place::kText) return std::nullopt;
  switch (c) {
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    default:
      return std::nullopt;
  }
}

constexpr std::size_t kAscii = 128;

template <Place place>
constexpr std::array<std::optional<std::string_view>, kAscii> EscapeTable() {
  std::array<std::optional<std::string_view>, kAscii> table{};
  for (std::size_t i = 0; i < kAscii; ++i) table[i] = EscapeOf(static_cast<char>(i), place);
  return table;
}

void AppendCodePoint(std::string& xml, char32_t code) {
  const auto tail = [&](int shift) { xml.push_back(static_cast<char>(0x80 | (code >> shift & 0x3F))); };
  if (code < 0x800) {
    xml.push_back(static_cast<char>(0xC0 | code >> 6));
  } else if (code < 0x10000) {
    xml.push_back(static_cast<char>(0xE0 | code >> 12));
    tail(6);
  } else {
    xml.push_back(static_cast<char>(0xF0 | code >> 18));
    tail(12);
    tail(6);
  }
  tail(0);
}

constexpr bool IsHighSurrogate(char16_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
constexpr bool IsLowSurrogate(char16_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

template <Place place>
void AppendEscaped(std::string& xml, TextView text) {
  static constexpr std::array<std::optional<std::string_view>, kAscii> kEscapes = EscapeTable<place>();
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (unit < kAscii) {
      if (const std::optional<std::string_view>& escape = kEscapes[unit]) {
        xml += *escape;
      } else {
        xml.push_back(static_cast<char>(unit));
      }
    } else if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      AppendCodePoint(xml, 0x10000 + ((unit - 0xD800U) << 10) + (text[i + 1] - 0xDC00U));
      ++i;
    } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
      AppendCodePoint(xml, 0xFFFD);
    } else if (unit < 0xFFFE) {
      AppendCodePoint(xml, unit);
    }
  }
}

}  // namespace

void AppendXmlText(std::string& xml, TextView text) {
  AppendEscaped<Place::kText>(xml, text);
}
void AppendXmlAttribute(std::string& xml, TextView text) {
  AppendEscaped<Place::kAttribute>(xml, text);
}

void AppendXmlText(std::string& xml, std::string_view utf8) {
  AppendXmlText(xml, FromUtf8(utf8));
}
void AppendXmlAttribute(std::string& xml, std::string_view utf8) {
  AppendXmlAttribute(xml, FromUtf8(utf8));
}

std::string XmlCharacters(TextView text) {
  std::string characters;
  characters.reserve(text.size());
  AppendEscaped<Place::kPlain>(characters, text);
  return characters;
}

}  // namespace zorkanca
