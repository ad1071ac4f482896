// Folders that are made when they are first needed.
#pragma once

#include "platform/file_system.h"
#include "runtime/text.h"

namespace zorkanca {

/// Makes one folder unless it is there; another process may make it at the same moment.
/// Errors: those of `FileSystem::CreateFolder` when there is no such folder in the end.
void MakeFolder(FileSystem& files, TextView folder);

}  // namespace zorkanca
