// The text type of the whole system and the few routines that the automation world gives it.
// A text is a sequence of UTF-16 units: lengths, positions and character codes are those of the clients.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zorkanca {

using Text = std::u16string;
using TextView = std::u16string_view;

/// The line end of every file that the system writes.
inline constexpr TextView kCrLf = u"\r\n";

/// The text without leading and trailing spaces. Only U+0020 counts: no tab, no no-break space.
TextView Trim(TextView text);
/// The text without leading spaces (U+0020).
TextView TrimLeft(TextView text);
/// The text without trailing spaces (U+0020).
TextView TrimRight(TextView text);
/// True when the text is empty or holds nothing but spaces (U+0020).
bool IsBlank(TextView text);

/// Unit by unit lower-case form: the simple one-to-one mapping of Unicode, length kept ("ß" and ligatures stay).
Text LowerCase(TextView text);
/// Unit by unit upper-case form, as `LowerCase`.
Text UpperCase(TextView text);
/// The same mappings for one UTF-16 unit; units of surrogate pairs stay.
char16_t LowerCase(char16_t unit);
char16_t UpperCase(char16_t unit);
/// True when both texts are equal after `LowerCase`.
bool EqualsIgnoringCase(TextView left, TextView right);

/// Every occurrence of `from`, searched left to right without overlap, replaced by `to`. An empty `from` changes
/// nothing.
Text Replace(TextView text, TextView from, TextView to);
/// The pieces between separators; a text without separator is one piece, the empty text too.
std::vector<TextView> Split(TextView text, char16_t separator);
/// The pieces joined, the separator between each two.
Text Join(const std::vector<Text>& pieces, TextView separator);

/// Plain decimal form, without blanks or grouping.
Text DecimalText(std::int64_t number);
/// Appends the plain decimal form.
void AppendDecimal(Text& text, std::int64_t number);
/// Appends the plain decimal form of a number, not below zero, with zeros before it up to a width.
void AppendPadded(Text& text, std::int64_t number, std::size_t width);

}  // namespace zorkanca
