#include "excel/tables/string_item.h"

#include <charconv>
#include <optional>

#include "excel/grid/xml_scanner.h"
#include "excel/tables/cell_reader.h"
#include "opc/xml_escape.h"
#include "runtime/ascii.h"

namespace zorkanca::excel {

namespace {

using Token = XmlScanner::Token;

constexpr std::size_t kEscapeLength = 7;  // _x000D_

bool IsHexDigit(char c) {
  return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// The code of an escape that a text begins with.
std::optional<char16_t> EscapeAt(std::string_view text) {
  if (text.size() < kEscapeLength || text[0] != '_' || text[1] != 'x' || text[6] != '_') return std::nullopt;
  unsigned code = 0;
  for (const char c : text.substr(2, 4)) {
    if (!IsHexDigit(c)) return std::nullopt;
  }
  std::from_chars(text.data() + 2, text.data() + 6, code, 16);
  return static_cast<char16_t>(code);
}

}  // namespace

bool HasOuterBlanks(std::string_view utf8) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
  return !utf8.empty() && (isBlank(utf8.front()) || isBlank(utf8.back()));
}

std::size_t FindEscape(std::string_view text, std::size_t start) {
  std::size_t at = text.find("_x", start);
  while (at != text.npos && !EscapeAt(text.substr(at))) at = text.find("_x", at + 1);
  return at;
}

void AppendUnescaped(std::string& text, std::string_view fileText) {
  std::size_t copied = 0;
  for (std::size_t at = fileText.find("_x"); at != fileText.npos; at = fileText.find("_x", at)) {
    const std::optional<char16_t> code = EscapeAt(fileText.substr(at));
    if (!code) {
      ++at;
      continue;
    }
    text.append(fileText, copied, at - copied).append(XmlCharacters(TextView(&*code, 1)));
    at += kEscapeLength;
    copied = at;
  }
  text.append(fileText, copied);
}

std::string StringItemText(std::string_view inside, std::string_view prefix) {
  std::string text;
  XmlScanner scanner(inside);
  for (Token token = scanner.Next(); token != Token::kDone; token = scanner.Next()) {
    if (token != Token::kStart) continue;
    const std::string_view local = LocalPart(scanner.name(), prefix);
    if (local == "t") {
      text += scanner.ReadCharacters();
    } else if (local == "rPh") {
      scanner.SkipElement();
    }
  }
  std::string result;
  AppendUnescaped(result, text);
  return result;
}

}  // namespace zorkanca::excel
