// Where a write to a path goes, checked before the first byte.
#pragma once

#include <cstdint>

#include "runtime/text.h"

namespace zorkanca::win32 {

struct WriteTarget {
  Text path;  ///< native
  bool exists = false;
};

/// Makes sure that what is at a path may be written.
/// @param create  whether a missing file is to be made
/// Errors: 52 for an empty path, 53 when the file is missing and not to be made, 70 when it is read-only, 75 for a
/// folder, 76 when the folder is missing.
WriteTarget FindWriteTarget(TextView path, bool create);

/// The attributes of what a native path leads to; the system's "invalid" number when it leads nowhere.
std::uint32_t AttributesOf(const Text& nativePath);
bool IsFolder(std::uint32_t attributes);
bool IsFile(std::uint32_t attributes);

}  // namespace zorkanca::win32
