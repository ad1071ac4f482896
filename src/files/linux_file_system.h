// The file system of Linux under the names of the scripting object.
#pragma once

#include "platform/file_system.h"
#include "runtime/code_page.h"

namespace zorkanca {

/// Files by the system's own calls. Names keep their case; "\" separates as "/" does.
/// A file in use is marked by an advisory lock (flock), which ends with the program that holds it, however it ends.
class LinuxFileSystem final : public FileSystem {
 public:
  /// @param codePage  of text files in `TextFormat::kAnsi`; outlives the object
  explicit LinuxFileSystem(const CodePage& codePage) : codePage_(codePage) {}

  char16_t PathSeparator() const override { return u'/'; }

  bool FileExists(TextView path) override;
  bool FolderExists(TextView path) override;
  void CreateFolder(TextView path) override;
  /// Links are deleted themselves. Errors: 53 for a folder, 70 for a device or a pipe.
  void DeleteFile(TextView path, bool force) override;
  void ClearFolder(TextView folder, TextView wildcards) override;
  std::vector<FileEntry> Files(TextView folder) override;

  Text TemporaryFolder() override;
  Text GetTempName() override;
  Text GetAbsolutePathName(TextView path) override;

  /// A device or a pipe can be read, written and appended to; it takes effect at once.
  std::unique_ptr<TextStream> OpenTextFile(TextView path, IoMode mode, bool create, TextFormat format) override;
  std::unique_ptr<FileLock> LockFile(TextView path) override;

 private:
  const CodePage& codePage_;
};

}  // namespace zorkanca
