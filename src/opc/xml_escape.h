// Values on their way into XML. Everything is appended; characters that XML 1.0 forbids are left out, lone surrogates
// become U+FFFD, so that no value can make a part unreadable.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "runtime/text.h"

namespace zorkanca {

/// Gives out character data piece by piece: & < > escaped, what XML 1.0 forbids left out. Tabs and line ends are the
/// caller's, because each kind of document has its own way to keep them.
/// @param utf8        valid UTF-8
/// @param put         called with each piece, a std::string_view
/// @param putControl  called with the position of each tab, line feed and carriage return
template <typename Put, typename PutControl>
void EscapeXml(std::string_view utf8, Put put, PutControl putControl) {
  const auto isPlain = [](char c) { return static_cast<unsigned char>(c) >= 0x20 && c != '&' && c != '<' && c != '>'; };
  std::size_t start = 0;
  for (std::size_t at = 0; at < utf8.size(); ++at) {
    if (isPlain(utf8[at])) continue;
    put(utf8.substr(start, at - start));
    start = at + 1;
    switch (utf8[at]) {
      case '&':
        put(std::string_view("&amp;"));
        break;
      case '<':
        put(std::string_view("&lt;"));
        break;
      case '>':
        put(std::string_view("&gt;"));
        break;
      case '\t':
      case '\n':
      case '\r':
        putControl(at);
        break;
      default:
        break;
    }
  }
  put(utf8.substr(start));
}
/// The same with tabs and line feeds as they are.
/// @param carriageReturn  what stands for it, because a reader would turn it into a line feed
template <typename Put>
void EscapeXmlText(std::string_view utf8, std::string_view carriageReturn, Put put) {
  EscapeXml(utf8, put, [&](std::size_t at) { put(utf8[at] == '\r' ? carriageReturn : utf8.substr(at, 1)); });
}

/// Appends a text as UTF-8 character data, CR as a character reference.
void AppendXmlText(std::string& xml, TextView text);
/// Appends a text as the inside of an attribute in double quotes: quotes, tabs and line ends escaped too.
void AppendXmlAttribute(std::string& xml, TextView text);

/// The same for UTF-8; invalid bytes become U+FFFD.
void AppendXmlText(std::string& xml, std::string_view utf8);
void AppendXmlAttribute(std::string& xml, std::string_view utf8);

/// The UTF-8 of a text without what XML 1.0 forbids and without escapes: for values that a tree will escape itself.
std::string XmlCharacters(TextView text);

}  // namespace zorkanca
