#include "foundation/file_collection.h"

#include <algorithm>
#include <numeric>

#include "foundation/argument_details.h"
#include "foundation/argument_error.h"
#include "foundation/err_data.h"
#include "foundation/guarded.h"
#include "foundation/ignore_errors.h"
#include "platform/event_log.h"
#include "runtime/error.h"
#include "runtime/like.h"

namespace zorkanca {

namespace {

template <typename Body>
auto GuardedWith(TextView name, const NamedArgument& argument, const Body& body) {
  return Guarded(name, ArgumentDetails({argument}), body);
}

bool IsOlder(const FileEntry& left, const FileEntry& right) {
  return left.lastModified.serial < right.lastModified.serial;
}

}  // namespace

const FileEntry& FileCollection::Item(std::int32_t index) const {
  return entries_[GuardedWith(u"FileCollection.Item", {u"indexOrKey", index}, [&] { return OffsetOf(index); })];
}

const FileEntry& FileCollection::Item(TextView key) const {
  return entries_[GuardedWith(u"FileCollection.Item", {u"indexOrKey", key}, [&] { return OffsetOf(key); })];
}

bool FileCollection::ContainsName(TextView name) const {
  return std::any_of(begin(), end(), [&](const FileEntry& entry) { return EqualsIgnoringCase(entry.name, name); });
}

void FileCollection::AddFromFolder(TextView folderName) {
  GuardedWith(u"FileCollection.AddFromFolder", {u"folderName", folderName}, [&] {
    std::vector<FileEntry> found = files_->Files(folderName);
    // The system lists them in any order; which one of equals counts as the newest must not depend on that.
    std::sort(found.begin(), found.end(),
              [](const FileEntry& left, const FileEntry& right) { return left.name < right.name; });
    std::move(found.begin(), found.end(), std::back_inserter(entries_));
  });
}

FileCollection FileCollection::GetFromFolder(TextView folderName) const {
  return GuardedWith(u"FileCollection.GetFromFolder", {u"folderName", folderName}, [&] {
    FileCollection found(*files_);
    found.AddFromFolder(folderName);
    return found;
  });
}

FileCollection FileCollection::Filter(TextView fileNameLikePattern) const {
  return GuardedWith(u"FileCollection.Filter", {u"fileNameLikePattern", fileNameLikePattern}, [&] {
    FileCollection matching(*files_);
    std::copy_if(begin(), end(), std::back_inserter(matching.entries_),
                 [&](const FileEntry& entry) { return Like(entry.name, fileNameLikePattern); });
    return matching;
  });
}

void FileCollection::Remove(std::int32_t index) {
  GuardedWith(u"FileCollection.Remove", {u"keyOrIndex", index}, [&] { RemoveAt(OffsetOf(index)); });
}

void FileCollection::Remove(TextView key) {
  GuardedWith(u"FileCollection.Remove", {u"keyOrIndex", key}, [&] { RemoveAt(OffsetOf(key)); });
}

std::int32_t FileCollection::FindIndexOfNewest() const {
  if (IsEmpty()) return 0;
  return static_cast<std::int32_t>(std::max_element(begin(), end(), IsOlder) - begin()) + 1;
}

void FileCollection::RemoveNewest() {
  const std::int32_t newest = FindIndexOfNewest();
  if (newest > 0) Remove(newest);
}

void FileCollection::RemoveNewestTop(std::int32_t numberOfNewestsToRemove) {
  if (numberOfNewestsToRemove < 1) return;
  if (numberOfNewestsToRemove >= Count()) return clear();
  GuardedWith(u"FileCollection.RemoveNewestTop", {u" numberOfNewestsToRemove", numberOfNewestsToRemove}, [&] {
    // The offsets in the order in which `RemoveNewest` would meet them: the latest first, equals as they stand.
    const auto comesBefore = [this](std::size_t left, std::size_t right) {
      if (IsOlder(entries_[right], entries_[left])) return true;
      return !IsOlder(entries_[left], entries_[right]) && left < right;
    };
    std::vector<std::size_t> offsets(entries_.size());
    std::iota(offsets.begin(), offsets.end(), std::size_t{0});
    const auto last = offsets.begin() + (numberOfNewestsToRemove - 1);
    std::nth_element(offsets.begin(), last, offsets.end(), comesBefore);

    std::vector<FileEntry> older;
    for (std::size_t offset = 0; offset < entries_.size(); ++offset) {
      if (comesBefore(*last, offset)) older.push_back(entries_[offset]);
    }
    entries_ = std::move(older);
  });
}

void FileCollection::QuietDelete(ILogWriter* log) const {
  ArgumentError().ObjectArgumentMustNotBeNothing(log, u"log", u"FileCollection.QuietDelete");
  for (const FileEntry& entry : entries_) QuietDeleteFile(entry, *log);
}

void FileCollection::QuietDeleteFile(const FileEntry& entry, ILogWriter& log) const {
  try {
    files_->DeleteFile(entry.path, false);
  } catch (...) {
    IgnoreErrors([&] {
      Text report(u"Při mazání souboru \"");
      report.append(entry.path).append(u"\" došlo k chybě:").append(kCrLf);
      report.append(ErrData().BuildErrorMessage(u"FileCollection.quietDeleteFile", {}));
      log.WriteMessage(report, kInformationEvent);
    });
  }
}

std::size_t FileCollection::OffsetOf(std::int32_t index) const {
  if (index < 1 || index > Count()) Raise(RuntimeError::kSubscriptOutOfRange);
  return static_cast<std::size_t>(index) - 1;
}

std::size_t FileCollection::OffsetOf(TextView key) const {
  const auto found =
      std::find_if(begin(), end(), [&](const FileEntry& entry) { return EqualsIgnoringCase(entry.name, key); });
  if (found == end()) Raise(RuntimeError::kInvalidCall);
  return static_cast<std::size_t>(found - begin());
}

void FileCollection::RemoveAt(std::size_t offset) {
  entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(offset));
}

}  // namespace zorkanca
