// Texts as the elements si and is hold them.
#pragma once

#include <string>
#include <string_view>

#include "excel/grid/xml_buffer.h"

namespace zorkanca::excel {

/// True for a text whose ends a reader would trim.
bool HasOuterBlanks(std::string_view utf8);
/// The first place from `start` on where a text looks like an escape ("_x000D_"); npos when there is none.
std::size_t FindEscape(std::string_view text, std::size_t start);

/// Gives out the inside of such an element.
/// @param put  called with std::string_view
template <typename Put>
void PutStringItem(std::string_view utf8, std::string_view prefix, Put put) {
  put("<");
  put(prefix);
  put(HasOuterBlanks(utf8) ? "t xml:space=\"preserve\">" : "t>");
  std::size_t copied = 0;
  for (std::size_t at = FindEscape(utf8, 0); at != utf8.npos; at = FindEscape(utf8, at + 1)) {
    EscapeXmlText(utf8.substr(copied, at - copied), kCarriageReturn, put);
    put("_x005F");  // the "_" itself, so that what follows is no escape
    copied = at;
  }
  EscapeXmlText(utf8.substr(copied), kCarriageReturn, put);
  put("</");
  put(prefix);
  put("t>");
}

/// Appends a text of a file, escapes resolved.
void AppendUnescaped(std::string& text, std::string_view fileText);
/// The characters inside such an element, from its raw inside: runs joined, phonetic hints left out, escapes resolved.
std::string StringItemText(std::string_view inside, std::string_view prefix);

}  // namespace zorkanca::excel
