// Paths in the form that the system's calls take.
#pragma once

#include "runtime/text.h"

namespace zorkanca::win32 {

/// The absolute form: separators are "\", "." and ".." are gone, a relative path starts from the current folder; empty
/// is the current folder itself. Errors: 52 for a path that holds a zero unit or is none.
Text AbsolutePath(TextView path);

/// A path for the calls: absolute, and in the form without a limit of length where it needs that. An empty one stays
/// so: to the calls it is a path that leads nowhere. Errors: as `AbsolutePath`.
Text NativePath(TextView path);

/// The folder of a native path, without a separator at its end except in a root.
Text FolderOf(const Text& nativePath);

}  // namespace zorkanca::win32
