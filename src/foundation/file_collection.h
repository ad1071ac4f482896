// An ordered list of files, from which the newest can be taken out and the rest deleted. Positions count from 1.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "foundation/log_writer.h"
#include "platform/file_system.h"
#include "runtime/text.h"

namespace zorkanca {

/// The entries are what the files were when they were listed. The key of an entry is its name, case ignored; it means
/// the first entry of that name.
/// Errors of the operations that take a position or a key: internal error when there is no entry for it.
class FileCollection {
 public:
  /// @param files  outlives the collection
  explicit FileCollection(FileSystem& files) : files_(&files) {}

  std::int32_t Count() const { return static_cast<std::int32_t>(entries_.size()); }
  bool IsEmpty() const { return entries_.empty(); }
  const FileEntry& Item(std::int32_t index) const;
  const FileEntry& Item(TextView key) const;
  bool ContainsName(TextView name) const;
  auto begin() const { return entries_.begin(); }
  auto end() const { return entries_.end(); }

  void Add(FileEntry item) { entries_.push_back(std::move(item)); }
  /// Adds every file of a folder, in the order of their names.
  /// Errors: internal error when the folder cannot be read.
  void AddFromFolder(TextView folderName);
  /// A new collection of the files of a folder. Errors: those of `AddFromFolder`.
  FileCollection GetFromFolder(TextView folderName) const;
  /// A new collection of the entries whose name matches the pattern (runtime/like.h, case counts).
  /// Errors: internal error for an unsound pattern.
  FileCollection Filter(TextView fileNameLikePattern) const;

  void Remove(std::int32_t index);
  void Remove(TextView key);
  void clear() { entries_.clear(); }

  /// Position of the entry that was modified last, the first one of equals; 0 in an empty collection.
  std::int32_t FindIndexOfNewest() const;
  /// Removes the entry at `FindIndexOfNewest`, if any.
  void RemoveNewest();
  /// What so many calls of `RemoveNewest` would do, without searching each time. A number below 1 removes nothing.
  void RemoveNewestTop(std::int32_t numberOfNewestsToRemove);

  /// Deletes the files of all entries from the disk; the entries stay. A file that resists (also a read-only one) is
  /// reported to the log as information, and the others follow.
  /// Errors: `ArgumentErrorCode` for a null log; a log that fails loses its report, nothing else.
  void QuietDelete(ILogWriter* log) const;

 private:
  /// Offset of the entry. Errors: 9 for a position, 5 for a key that leads nowhere.
  std::size_t OffsetOf(std::int32_t index) const;
  std::size_t OffsetOf(TextView key) const;
  void RemoveAt(std::size_t offset);
  void QuietDeleteFile(const FileEntry& entry, ILogWriter& log) const;

  FileSystem* files_;  // never null; a pointer so that collections can be assigned
  std::vector<FileEntry> entries_;
};

}  // namespace zorkanca
