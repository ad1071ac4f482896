#include "win32/files/folder_entries.h"

#include "platform/paths.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

FolderEntries::FolderEntries(const Text& folder) {
  if (folder.empty()) {
    failure_ = ERROR_PATH_NOT_FOUND;
    return;
  }
  search_ = FindFirstFileW(Wide(Joined(folder, u"*")), &entry_);
  found_ = search_ != INVALID_HANDLE_VALUE;
  if (found_) return;
  failure_ = GetLastError();
  if (failure_ == ERROR_FILE_NOT_FOUND) failure_ = ERROR_SUCCESS;  // an empty root
}

FolderEntries::~FolderEntries() {
  if (search_ != INVALID_HANDLE_VALUE) FindClose(search_);
}

bool FolderEntries::Next() {
  do {
    if (!std::exchange(found_, false) && (search_ == INVALID_HANDLE_VALUE || !FindNextFileW(search_, &entry_))) {
      return false;
    }
  } while (name() == u"." || name() == u"..");
  return true;
}

TextView FolderEntries::name() const {
  return FromWide(entry_.cFileName);
}

Text Joined(TextView folder, TextView name) {
  Text path(folder);
  if (path.empty() || !IsPathSeparator(path.back())) path.push_back(u'\\');
  return path.append(name);
}

}  // namespace zorkanca::win32
