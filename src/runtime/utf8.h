// UTF-8 at the edges of the system: the command line, paths of the host, files of other formats, tests.
// Bytes that are no UTF-8 survive the way in and out: byte B becomes the lone unit U+DC00 + B, as file names need it.
#pragma once

#include <string>
#include <string_view>

#include "runtime/text.h"

namespace zorkanca {

/// Appends UTF-8 bytes as UTF-16. Overlong forms, surrogates and values above U+10FFFF are invalid bytes.
/// @return false when some byte was invalid (it stands in the text as U+DC00 + byte)
bool AppendUtf8(Text& text, std::string_view bytes);

/// The text of UTF-8 bytes; invalid bytes as in `AppendUtf8`.
Text FromUtf8(std::string_view bytes);

/// The UTF-8 bytes of a text. Lone units U+DC80 to U+DCFF give the byte they stand for, other lone surrogates U+FFFD.
std::string ToUtf8(TextView text);
/// Appends what `ToUtf8` gives.
void AppendAsUtf8(std::string& bytes, TextView text);

}  // namespace zorkanca
