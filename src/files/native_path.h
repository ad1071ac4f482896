// Paths as the system's calls take them: bytes, "/" between the parts.
#pragma once

#include <string>
#include <string_view>

#include "runtime/text.h"

namespace zorkanca {

/// The bytes of a path: UTF-8, "\" turned into "/". A name of the system that is no UTF-8 comes back as it was, because
/// runtime/utf8.h carries its bytes through the text.
/// Errors: 52 for a path with a NUL, which the system would cut there.
std::string ToNativePath(TextView path);

/// The text of a path of the system.
Text FromNativePath(std::string_view path);

/// The folder that holds the last part; "." for a bare name, "/" for the root itself. Separators at the end don't
/// count.
std::string ParentFolder(const std::string& path);

/// Folder and name with one separator between them.
std::string JoinPath(const std::string& folder, std::string_view name);

/// The absolute form of a path from the current folder on: no "." parts, no doubled separators and none at the end;
/// ".." takes the part before it away except where that is a link, which leads elsewhere.
std::string AbsolutePath(const std::string& path);

/// Unpredictable hexadecimal digits in upper case, for names that nobody else has.
std::string RandomDigits(std::size_t count);

}  // namespace zorkanca
