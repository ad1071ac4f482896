#include "cli/output_check.h"

#include "platform/paths.h"
#include "runtime/error.h"

namespace zorkanca::cli {

void RequireWritable(FileSystem& files, const Text& path) {
  // A stream that is never closed leaves its path as it was.
  files.OpenTextFile(path, IoMode::kForWriting, /*create=*/true, TextFormat::kAnsi);
}

void RequireWritableFolder(FileSystem& files, const Text& folder) {
  if (files.FileExists(folder)) Raise(RuntimeError::kFileExists, u"A file, not a folder: " + folder);
  const Text existing = files.FolderExists(folder) ? folder : Text(GetParentFolderName(folder));
  RequireWritable(files, BuildPath(files, existing, files.GetTempName()));
}

}  // namespace zorkanca::cli
