// A reader of bar-code font texts by the standards' own arithmetic: what a scanner would make of the drawn text.
// It shares no code with the encoder.
#pragma once

#include <optional>

#include "runtime/code_page.h"
#include "runtime/text.h"

namespace zorkanca::testing {

/// Content of a Code 39 text; nothing when "*" is missing, a character is none of Code 39's, or the check is wrong.
std::optional<Text> ReadCode39(TextView fontText, bool hasCheck);

/// Content of a set B text of the first layout (no start and stop). "_" is read as a blank.
std::optional<Text> ReadCode128First(TextView fontText, bool hasCheck, const CodePage& codePage);

/// Content of a text of the second layout, in set B or C as its start says; texts in set C always have a check.
/// Values above 95 come back as the layout's own characters.
std::optional<Text> ReadCode128Second(TextView fontText, bool hasCheck, const CodePage& codePage);

}  // namespace zorkanca::testing
