#include "opc/xml_escape.h"

#include <array>
#include <cstdint>

#include "runtime/utf8.h"

namespace zorkanca {

namespace {

enum class Place { kText, kAttribute, kPlain };

// What becomes of an ASCII character: nothing, itself, or an escape. A null view stands for itself.
constexpr std::string_view EscapeOf(char c, Place place) {
  if (c < ' ' && c != '\t' && c != '\n' && c != '\r') return "";
  if (place == Place::kPlain) return {};
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
  if (place == Place::kText) return {};
  switch (c) {
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    default:
      return {};
  }
}

constexpr std::size_t kAscii = 128;

template <Place place>
constexpr std::array<std::string_view, kAscii> EscapeTable() {
  std::array<std::string_view, kAscii> table{};
  for (std::size_t i = 0; i < kAscii; ++i) table[i] = EscapeOf(static_cast<char>(i), place);
  return table;
}

template <Place place>
void AppendEscaped(std::string& xml, TextView text) {
  static constexpr std::array<std::string_view, kAscii> kEscapes = EscapeTable<place>();
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (unit < kAscii) {
      const std::string_view escape = kEscapes[unit];
      if (escape.data() == nullptr) {
        xml.push_back(static_cast<char>(unit));
      } else {
        xml += escape;
      }
    } else if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      AppendCharacterAsUtf8(xml, CharacterOf(unit, text[++i]));
    } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
      AppendCharacterAsUtf8(xml, 0xFFFD);
    } else if (unit < 0xFFFE) {
      AppendCharacterAsUtf8(xml, unit);
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
