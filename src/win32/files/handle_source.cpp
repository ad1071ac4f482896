#include "win32/files/handle_source.h"

#include <algorithm>

#include "runtime/error.h"
#include "win32/files/native_path.h"
#include "win32/files/write_target.h"
#include "win32/system_error.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

FileHandle OpenForReading(TextView path) {
  const Text native = NativePath(path);
  FileHandle file(CreateFileW(Wide(native), GENERIC_READ, kNobodyDeletes, nullptr, OPEN_EXISTING, 0, nullptr));
  if (file) return file;
  const DWORD failure = GetLastError();
  if (IsFolder(AttributesOf(native))) RaiseAbout(RuntimeError::kPathFileAccess, path);
  if (failure == ERROR_FILE_NOT_FOUND && !IsFolder(AttributesOf(FolderOf(native)))) {
    RaiseAbout(RuntimeError::kPathNotFound, path);
  }
  RaiseSystemError(failure, path);
}

HandleSource::HandleSource(TextView path) : shownPath_(path), file_(OpenForReading(path)) {}

std::size_t HandleSource::Read(std::span<char> room) {
  constexpr std::size_t kMostBytesAtOnce = 1 << 24;
  DWORD count = 0;
  const auto wanted = static_cast<DWORD>(std::min(room.size(), kMostBytesAtOnce));
  if (!ReadFile(file_.get(), room.data(), wanted, &count, nullptr)) {
    if (GetLastError() == ERROR_BROKEN_PIPE) return 0;  // whoever wrote the pipe has gone
    RaiseSystemError(GetLastError(), shownPath_);
  }
  return count;
}

}  // namespace zorkanca::win32
