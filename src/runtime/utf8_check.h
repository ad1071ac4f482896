// Whether bytes are UTF-8, without making a text of them.
#pragma once

#include <cstddef>
#include <string_view>

namespace zorkanca {

/// True when no byte lies beyond ASCII.
bool IsAscii(std::string_view bytes);

/// How many bytes from the start are valid UTF-8: all of them, or those before the first fault.
std::size_t ValidUtf8Length(std::string_view bytes);

/// Length in UTF-16 units of valid UTF-8.
std::size_t Utf16Length(std::string_view utf8);

}  // namespace zorkanca
