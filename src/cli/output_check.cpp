#include "cli/output_check.h"

#include "platform/paths.h"
#include "runtime/error.h"

namespace zorkanca::cli {

void RequireNew(const CommandContext& context, const Text& path) {
  if (!context.options.noClobber || !context.platform.files.FileExists(path)) return;
  Raise(RuntimeError::kFileExists, u"The file exists, and --no-clobber keeps it: " + path);
}

void RequireWritable(const CommandContext& context, const Text& path) {
  RequireNew(context, path);
  // A stream that is never closed leaves its path as it was.
  context.platform.files.OpenTextFile(path, IoMode::kForWriting, /*create=*/true, TextFormat::kAnsi);
}

void RequireWritableFolder(const CommandContext& context, const Text& folder) {
  FileSystem& files = context.platform.files;
  if (files.FileExists(folder)) Raise(RuntimeError::kFileExists, u"A file, not a folder: " + folder);
  const Text existing = files.FolderExists(folder) ? folder : Text(GetParentFolderName(folder));
  RequireWritable(context, BuildPath(files, existing, files.GetTempName()));
}

}  // namespace zorkanca::cli
