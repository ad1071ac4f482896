// One hive and the file that it lives in.
#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

#include "files/file_descriptor.h"
#include "host/registry/registry_tree.h"

namespace zorkanca {

/// Raises the error of a failed system call on a file or folder of the registry, with its path in the description.
[[noreturn]] void RaiseRegistryFileError(int code, const std::string& path);

/// Keeps a hive in memory and reads it again when the file has changed.
class HiveFile {
 public:
  HiveFile(RegistryHive hive, std::string path, RegistryTree::Deletions deletions)
      : hive_(hive), path_(std::move(path)), deletions_(deletions) {}

  /// Reads the file where it is new or changed; a missing file is an empty hive. Does nothing while the hive is held.
  /// Errors: 70, 75 with file and line when it cannot be understood; the hive is unusable until the file is mended.
  void Refresh();

  /// From here until `Release` the hive changes only through us.
  void Hold() { held_ = true; }
  /// Ends the holding; changes that were not saved are dropped.
  void Release();

  RegistryHive hive() const { return hive_; }
  const std::string& path() const { return path_; }
  RegistryTree& tree() { return tree_; }

  void MarkChanged() { changed_ = true; }
  bool changed() const { return changed_; }
  /// The file now holds what the tree does.
  void MarkSaved();

 private:
  // What tells one state of the file from another; all zero when there is no file.
  struct Stamp {
    dev_t device = 0;
    ino_t node = 0;
    off_t size = 0;
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0;
    friend bool operator==(const Stamp&, const Stamp&) = default;
  };
  static Stamp StampOf(const struct stat& status);
  Stamp CurrentStamp() const;
  Stamp Open();

  RegistryHive hive_;
  std::string path_;
  RegistryTree::Deletions deletions_;
  RegistryTree tree_;
  std::optional<Stamp> stamp_;  // of what the tree was read from; nothing before the first reading
  FileDescriptor file_;         // stays open so that no later file gets the same node number
  bool held_ = false;
  bool changed_ = false;
};

}  // namespace zorkanca
