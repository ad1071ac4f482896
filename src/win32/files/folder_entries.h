// What lies in a folder.
#pragma once

#include <utility>

#include "runtime/text.h"
#include "win32/system.h"

namespace zorkanca::win32 {

/// Goes through the entries of a folder but "." and "..", in the system's order.
class FolderEntries {
 public:
  /// @param folder  a native path, with or without a separator at its end; an empty one is no folder
  explicit FolderEntries(const Text& folder);
  ~FolderEntries();
  FolderEntries(const FolderEntries&) = delete;
  FolderEntries& operator=(const FolderEntries&) = delete;

  /// Why the folder cannot be read; 0 when it can, also when it is empty.
  DWORD failure() const { return failure_; }
  /// Goes to the next entry, at first to the first one. @return false behind the last one
  bool Next();

  TextView name() const;
  bool isFolder() const { return (entry_.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
  /// It leads elsewhere.
  bool isLink() const { return (entry_.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0; }
  FILETIME lastWritten() const { return entry_.ftLastWriteTime; }

 private:
  WIN32_FIND_DATAW entry_{};
  HANDLE search_ = INVALID_HANDLE_VALUE;
  DWORD failure_ = ERROR_SUCCESS;
  bool found_ = false;  // an entry waits that `Next` has not given yet
};

/// A folder and a name joined by one separator.
Text Joined(TextView folder, TextView name);

}  // namespace zorkanca::win32
