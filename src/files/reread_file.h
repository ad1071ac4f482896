// Files that are read more than once, wherever their bytes come from.
#pragma once

#include <string>

#include "files/file_descriptor.h"

namespace zorkanca {

/// Opens a file whose bytes can be read at any place as often as wanted: a file as it is, and of a pipe or a device a
/// copy without a name, which is gone with the descriptor.
/// Errors: as `RaisePathError`; 75 for a folder.
FileDescriptor OpenForRereading(const std::string& path);

}  // namespace zorkanca
