// A file system in memory that records what was done to it, for tests of the product's logic.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "runtime/code_page.h"

namespace zorkanca::testing {

/// Paths are Windows paths: the separator is "\" and names ignore case. Files hold the bytes that a disk would hold.
class MemoryFileSystem final : public FileSystem {
 public:
  explicit MemoryFileSystem(const CodePage& codePage) : codePage_(codePage) { folders_.insert({u"c:\\temp", true}); }

  /// Puts a file there, for example as a left-over of an earlier run.
  void Put(TextView path, std::string bytes, Date lastModified = {}) {
    files_[LowerCase(path)] = {Text(path), std::move(bytes), lastModified};
  }
  /// Makes `DeleteFile` raise error 70 for the file.
  void MakeUndeletable(TextView path) { undeletable_.insert(LowerCase(path)); }
  /// Bytes of a file; nothing when there is none.
  std::optional<std::string> Bytes(TextView path) const;
  /// Paths of all files, sorted.
  std::vector<Text> Paths() const;

  /// From the n-th call (from 1) on, every call that can fail raises error 70; 0: none does.
  void FailFromCall(int number) { callsUntilFailure_ = number; }

  char16_t PathSeparator() const override { return u'\\'; }
  bool FileExists(TextView path) override { return files_.contains(LowerCase(path)); }
  bool FolderExists(TextView path) override { return folders_.contains(LowerCase(path)); }
  void CreateFolder(TextView path) override;
  void DeleteFile(TextView path, bool force) override;
  void ClearFolder(TextView folder, TextView wildcards) override;
  std::vector<FileEntry> Files(TextView folder) override;
  Text TemporaryFolder() override { return u"C:\\Temp"; }
  Text GetTempName() override;
  Text GetAbsolutePathName(TextView path) override;
  std::unique_ptr<TextStream> OpenTextFile(TextView path, IoMode mode, bool create, TextFormat format) override;
  std::unique_ptr<FileLock> LockFile(TextView path) override;

 private:
  friend class MemoryTextStream;
  struct StoredFile {
    Text path;
    std::string bytes;
    Date lastModified;
  };

  void MayFail();

  const CodePage& codePage_;
  std::map<Text, StoredFile> files_;  // by lower-cased path
  std::map<Text, bool> folders_;
  std::set<Text> undeletable_;  // lower-cased paths
  int temporaryNames_ = 0;
  int callsUntilFailure_ = 0;
};

}  // namespace zorkanca::testing
