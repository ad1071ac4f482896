#include "opc/xml_escape.h"

#include "runtime/utf8.h"

namespace zorkanca {

namespace {

// "&#9;", "&#10;" or "&#13;".
void AppendReference(std::string& xml, char control) {
  xml.append("&#").append(std::to_string(static_cast<int>(control))).append(";");
}

}  // namespace

void AppendXmlText(std::string& xml, TextView text) {
  EscapeXmlText(XmlCharacters(text), "&#13;", [&](std::string_view piece) { xml += piece; });
}

void AppendXmlAttribute(std::string& xml, TextView text) {
  const std::string utf8 = XmlCharacters(text);
  const auto put = [&](std::string_view piece) {
    for (std::size_t quote = piece.find('"'); quote != piece.npos; quote = piece.find('"')) {
      xml.append(piece, 0, quote).append("&quot;");
      piece.remove_prefix(quote + 1);
    }
    xml += piece;
  };
  EscapeXml(utf8, put, [&](std::size_t at) { AppendReference(xml, utf8[at]); });
}

void AppendXmlText(std::string& xml, std::string_view utf8) {
  AppendXmlText(xml, FromUtf8(utf8));
}
void AppendXmlAttribute(std::string& xml, std::string_view utf8) {
  AppendXmlAttribute(xml, FromUtf8(utf8));
}

std::string XmlCharacters(TextView text) {
  std::string characters(3 * text.size(), '\0');  // no unit gives more bytes; every value passes here
  char* out = characters.data();
  const auto put = [&](char byte) { *out++ = byte; };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (unit < 0x80) {
      if (unit >= u' ' || unit == u'\t' || unit == u'\n' || unit == u'\r') put(static_cast<char>(unit));
    } else if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      EncodeUtf8(CharacterOf(unit, text[++i]), put);
    } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
      EncodeUtf8(0xFFFD, put);
    } else if (unit < 0xFFFE) {
      EncodeUtf8(unit, put);
    }
  }
  characters.resize(static_cast<std::size_t>(out - characters.data()));
  return characters;
}

}  // namespace zorkanca
