// An output that cannot be written is told before the work begins.
#pragma once

#include "platform/file_system.h"

namespace zorkanca::cli {

/// Makes sure that a file can be written, and leaves what is there as it is. Errors: 70, 75, 76, 52 with the path.
void RequireWritable(FileSystem& files, const Text& path);

/// The same for the numbered files of a folder, which may have to be made. Errors: also 58 when a file is in its place.
void RequireWritableFolder(FileSystem& files, const Text& folder);

}  // namespace zorkanca::cli
