#include "cli/output_check.h"

#include <filesystem>
#include <string>
#include <system_error>

#include "platform/paths.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

bool IsSameFile(const std::string& one, const std::string& other) {
  std::error_code missing;
  return std::filesystem::equivalent(one, other, missing);
}

}  // namespace

void RequireNew(const CommandContext& context, const Text& path) {
  for (const std::string& input : context.inputs) {
    if (IsSameFile(ToUtf8(path), input))
      throw UsageError("the result would take the place of " + input + "; -o names another file");
  }
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
