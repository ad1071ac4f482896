#include "excel/tables/cell_reader.h"

#include <charconv>

namespace zorkanca::excel {

namespace {

using Token = XmlScanner::Token;

// The text between here and the end of the element that a scanner has just entered.
std::string_view PassInside(XmlScanner& scanner, std::string_view xml) {
  const std::size_t start = scanner.end();
  std::size_t end = start;
  for (std::size_t depth = 1; depth > 0;) {
    const Token token = scanner.Next();
    if (token == Token::kStart) ++depth;
    if (token == Token::kEnd) --depth;
    if (token == Token::kDone) break;
    end = scanner.begin();
  }
  return xml.substr(start, end - start);
}

}  // namespace

FileCell ReadFileCell(XmlScanner& scanner, bool isEmptyElement, std::string_view prefix, std::string_view xml) {
  FileCell cell{.attributes = scanner.attributes()};
  std::string_view attributes = cell.attributes;
  std::string_view name;
  std::string_view value;
  while (TakeAttribute(attributes, name, value)) {
    if (name == "r") {
      cell.address = value;
    } else if (name == "s") {
      cell.style = value;
    } else if (name == "t") {
      cell.type = value;
    } else {
      cell.hasExtra = true;
    }
  }
  if (isEmptyElement) return cell;
  const std::size_t start = scanner.end();
  for (;;) {
    const Token token = scanner.Next();
    if (token == Token::kEnd || token == Token::kDone) break;
    if (token != Token::kStart && token != Token::kEmpty) continue;
    const std::string_view local = LocalPart(scanner.name(), prefix);
    const std::size_t elementStart = scanner.begin();
    const std::string_view elementAttributes = scanner.attributes();
    const std::string_view inside = token == Token::kStart ? PassInside(scanner, xml) : std::string_view("");
    if (local == "f") {
      cell.hasFormula = true;
      cell.formula = xml.substr(elementStart, scanner.end() - elementStart);
      cell.formulaAttributes = elementAttributes;
    } else if (local == "v" || local == "is") {
      cell.result = inside;
    }
  }
  cell.inside = xml.substr(start, scanner.begin() - start);
  return cell;
}

std::optional<std::uint32_t> WholeNumberOf(std::string_view text) {
  std::uint32_t number = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failure != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

}  // namespace zorkanca::excel
