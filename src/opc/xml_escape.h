// Values on their way into XML. Everything is appended; characters that XML 1.0 forbids are left out, lone surrogates
// become U+FFFD, so that no value can make a part unreadable.
#pragma once

#include <string>
#include <string_view>

#include "runtime/text.h"

namespace zorkanca {

/// Appends a text as UTF-8 character data: & < > escaped, CR as a character reference, because a reader would turn it
/// into a line feed.
void AppendXmlText(std::string& xml, TextView text);
/// Appends a text as the inside of an attribute in double quotes: quotes, tabs and line ends escaped too.
void AppendXmlAttribute(std::string& xml, TextView text);

/// The same for UTF-8; invalid bytes become U+FFFD.
void AppendXmlText(std::string& xml, std::string_view utf8);
void AppendXmlAttribute(std::string& xml, std::string_view utf8);

/// The UTF-8 of a text without what XML 1.0 forbids and without escapes: for values that a tree will escape itself.
std::string XmlCharacters(TextView text);

}  // namespace zorkanca
