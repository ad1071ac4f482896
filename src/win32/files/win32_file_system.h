// The file system of Windows under the names of the scripting object.
#pragma once

#include "platform/file_system.h"
#include "runtime/code_page.h"

namespace zorkanca::win32 {

/// Files by the system's own calls; paths may be of any length. A file in use is one that is open: others may read and
/// write it, but not delete it.
class Win32FileSystem final : public FileSystem {
 public:
  /// @param codePage  of text files in `TextFormat::kAnsi`; outlives the object
  explicit Win32FileSystem(const CodePage& codePage) : codePage_(codePage) {}

  char16_t PathSeparator() const override { return u'\\'; }

  bool FileExists(TextView path) override;
  bool FolderExists(TextView path) override;
  void CreateFolder(TextView path) override;
  void DeleteFile(TextView path, bool force) override;
  void ClearFolder(TextView folder, TextView wildcards) override;
  std::vector<FileEntry> Files(TextView folder) override;

  Text TemporaryFolder() override;
  Text GetTempName() override;
  Text GetAbsolutePathName(TextView path) override;

  /// Errors: also 70 for writing when the file is open elsewhere.
  std::unique_ptr<TextStream> OpenTextFile(TextView path, IoMode mode, bool create, TextFormat format) override;
  std::unique_ptr<FileLock> LockFile(TextView path) override;

 private:
  const CodePage& codePage_;
};

}  // namespace zorkanca::win32
