// Routines on the text of a template. It is single-byte text: each character is one byte of a UTF-8 file, seen through
// the ANSI code page, so that every byte comes back out unchanged.
// Blanks here are the space, the tab and the no-break space. The case that is ignored is that of ASCII letters.
#pragma once

#include <cstddef>

#include "runtime/code_page.h"
#include "runtime/text.h"

namespace zorkanca {

inline constexpr TextView kCommentStart = u"<!--";
inline constexpr TextView kCommentEnd = u"-->";

constexpr bool IsTemplateBlank(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == u'\u00A0';
}

bool EqualsIgnoringAsciiCase(TextView left, TextView right);
bool StartsIgnoringCase(TextView text, TextView start);
/// Position of the first such unit at or after `from`; `npos` when there is none.
std::size_t FindUnit(TextView text, char16_t unit, std::size_t from);
/// Position of the first occurrence at or after `from`; `npos` when there is none.
std::size_t FindIgnoringCase(TextView text, TextView sought, std::size_t from = 0);

TextView TrimLeftBlanks(TextView text);
TextView TrimRightBlanks(TextView text);
/// Without the lines at the start that hold nothing but blanks; the indentation of the first other one stays.
TextView TrimLeadingBlankLines(TextView text);
/// Without blanks and line ends at the end.
TextView TrimTrailingBlankLines(TextView text);

/// Removes each stretch from an opening to the end of the next closing one, case ignored, from left to right. What then
/// meets is one text: an opening that only comes together there counts. An opening without a closing one stays.
Text RemoveEnclosed(Text text, TextView opening, TextView closing);
/// Without the lines (ended by CR LF) that hold nothing but blanks. What follows the last line end stays as it is.
Text RemoveBlankLines(Text text);

/// Each UTF-16 unit as the one to three bytes that UTF-8 gives to its code, each byte as its character of the code
/// page.
Text Utf8Encode(TextView text, const CodePage& codePage);

}  // namespace zorkanca
