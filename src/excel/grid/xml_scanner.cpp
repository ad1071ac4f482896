#include "excel/grid/xml_scanner.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "runtime/utf8.h"

namespace zorkanca::excel {

namespace {

constexpr bool IsXmlBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

void AppendReference(std::string& text, std::string_view name) {
  if (name.starts_with('#')) {
    const bool hexadecimal = name.starts_with("#x");
    std::uint32_t code = 0;
    const char* const first = name.data() + (hexadecimal ? 2 : 1);
    std::from_chars(first, name.data() + name.size(), code, hexadecimal ? 16 : 10);
    AppendCharacterAsUtf8(text, code);
  } else if (name == "amp") {
    text.push_back('&');
  } else if (name == "lt") {
    text.push_back('<');
  } else if (name == "gt") {
    text.push_back('>');
  } else if (name == "quot") {
    text.push_back('"');
  } else {
    text.push_back('\'');
  }
}

}  // namespace

XmlScanner::Token XmlScanner::Next() {
  for (;;) {
    begin_ = end_;
    if (begin_ >= xml_.size()) return Token::kDone;
    const std::string_view rest = xml_.substr(begin_);
    const auto pass = [&](std::string_view close) { end_ = begin_ + rest.find(close) + close.size(); };
    cdata_ = false;
    if (rest[0] != '<') {
      end_ = begin_ + std::min(rest.find('<'), rest.size());
      return Token::kText;
    }
    if (rest.starts_with("<!--")) {
      pass("-->");
    } else if (rest.starts_with("<![CDATA[")) {
      pass("]]>");
      cdata_ = true;
      return Token::kText;
    } else if (rest.starts_with("<?")) {
      pass("?>");
    } else {
      return ReadTag();
    }
  }
}

XmlScanner::Token XmlScanner::ReadTag() {
  std::size_t at = begin_ + 1;
  const bool closing = xml_[at] == '/';
  if (closing) ++at;
  const std::size_t nameStart = at;
  while (!IsXmlBlank(xml_[at]) && xml_[at] != '>' && xml_[at] != '/') ++at;
  name_ = xml_.substr(nameStart, at - nameStart);
  const std::size_t attributesStart = at;
  while (xml_[at] != '>') {
    if (xml_[at] == '"' || xml_[at] == '\'') at = xml_.find(xml_[at], at + 1);
    ++at;
  }
  end_ = at + 1;
  const bool empty = !closing && xml_[at - 1] == '/';
  attributes_ = xml_.substr(attributesStart, at - attributesStart - (empty ? 1 : 0));
  if (closing) return Token::kEnd;
  return empty ? Token::kEmpty : Token::kStart;
}

void XmlScanner::AppendCharacters(std::string& text) const {
  std::string_view raw = xml_.substr(begin_, end_ - begin_);
  if (cdata_) raw = raw.substr(9, raw.size() - 12);
  std::string lines;
  if (raw.find('\r') != raw.npos) {  // line ends are line feeds to every reader
    for (std::size_t at = 0; at < raw.size(); ++at) {
      if (raw[at] == '\r' && at + 1 < raw.size() && raw[at + 1] == '\n') continue;
      lines += raw[at] == '\r' ? '\n' : raw[at];
    }
    raw = lines;
  }
  if (cdata_) {
    text += raw;
  } else {
    AppendResolved(text, raw);
  }
}

void XmlScanner::SkipElement() {
  for (std::size_t depth = 1; depth > 0;) {
    const Token token = Next();
    if (token == Token::kStart) ++depth;
    if (token == Token::kEnd) --depth;
    if (token == Token::kDone) return;
  }
}

std::string XmlScanner::ReadCharacters() {
  std::string text;
  for (std::size_t depth = 1; depth > 0;) {
    const Token token = Next();
    if (token == Token::kText) AppendCharacters(text);
    if (token == Token::kStart) ++depth;
    if (token == Token::kEnd) --depth;
    if (token == Token::kDone) break;
  }
  return text;
}

bool TakeAttribute(std::string_view& attributes, std::string_view& name, std::string_view& rawValue) {
  std::size_t at = 0;
  while (at < attributes.size() && IsXmlBlank(attributes[at])) ++at;
  const std::size_t equals = attributes.find('=', at);
  if (equals == attributes.npos) return false;
  std::size_t nameEnd = equals;
  while (nameEnd > at && IsXmlBlank(attributes[nameEnd - 1])) --nameEnd;
  name = attributes.substr(at, nameEnd - at);
  const std::size_t open = attributes.find_first_of("\"'", equals);
  const std::size_t close = attributes.find(attributes[open], open + 1);
  rawValue = attributes.substr(open + 1, close - open - 1);
  attributes.remove_prefix(close + 1);
  return true;
}

std::optional<std::string_view> FindAttribute(std::string_view attributes, std::string_view name) {
  std::string_view each;
  std::string_view value;
  while (TakeAttribute(attributes, each, value)) {
    if (each == name) return value;
  }
  return std::nullopt;
}

void AppendAttributesBut(std::string& xml, std::string_view attributes, std::initializer_list<std::string_view> names) {
  std::string_view name;
  std::string_view value;
  while (TakeAttribute(attributes, name, value)) {
    if (std::find(names.begin(), names.end(), name) != names.end()) continue;
    const char quote = *(value.data() + value.size());
    xml.append(" ").append(name).append("=").append(1, quote).append(value).append(1, quote);
  }
}

void AppendResolved(std::string& text, std::string_view raw) {
  for (;;) {
    const std::size_t start = raw.find('&');
    text += raw.substr(0, start);
    if (start == raw.npos) return;
    const std::size_t end = raw.find(';', start);
    AppendReference(text, raw.substr(start + 1, end - start - 1));
    raw.remove_prefix(end + 1);
  }
}

}  // namespace zorkanca::excel
