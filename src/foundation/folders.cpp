#include "foundation/folders.h"

#include "runtime/error.h"

namespace zorkanca {

void MakeFolder(FileSystem& files, TextView folder) {
  if (files.FolderExists(folder)) return;
  try {
    files.CreateFolder(folder);
  } catch (const Error&) {
    if (!files.FolderExists(folder)) throw;
  }
}

}  // namespace zorkanca
