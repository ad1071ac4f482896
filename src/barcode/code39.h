// Code 39 (ISO/IEC 16388): 43 data characters, a modulo 43 check character, "*" as start and stop.
#pragma once

#include <cstdint>
#include <optional>

#include "runtime/text.h"

namespace zorkanca {

/// Value 0 to 42 of a data character; nothing for any other character, lower-case letters and "*" among them.
std::optional<std::uint8_t> Code39Value(char16_t unit);

/// The data character of the sum of all values modulo 43.
/// @param content  data characters only
char16_t Code39CheckCharacter(TextView content);

/// True when Code 39 carries every character of the content.
bool IsCode39Content(TextView content);

/// Font text of a content: between "*" and "*", blanks as "_", with a check character if asked for.
/// Content that Code 39 does not carry gives "**".
Text EncodeCode39(TextView content, bool checkCharacter);

}  // namespace zorkanca
