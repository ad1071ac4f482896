#include "win32/files/write_target.h"

#include "platform/paths.h"
#include "runtime/error.h"
#include "win32/files/native_path.h"
#include "win32/system.h"
#include "win32/system_error.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

std::uint32_t AttributesOf(const Text& nativePath) {
  return GetFileAttributesW(Wide(nativePath));
}

bool IsFolder(std::uint32_t attributes) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool IsFile(std::uint32_t attributes) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

WriteTarget FindWriteTarget(TextView path, bool create) {
  if (path.empty()) Raise(RuntimeError::kBadFileName);
  WriteTarget target{.path = NativePath(path)};
  const std::uint32_t attributes = AttributesOf(target.path);
  const std::uint32_t failure = GetLastError();
  if (IsFolder(attributes)) RaiseAbout(RuntimeError::kPathFileAccess, path);
  if (IsFile(attributes)) {
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) RaiseAbout(RuntimeError::kPermissionDenied, path);
    target.exists = true;
    return target;
  }
  if (IsPathSeparator(path.back()) || !IsFolder(AttributesOf(FolderOf(target.path)))) {
    RaiseAbout(RuntimeError::kPathNotFound, path);
  }
  if (!create || failure != ERROR_FILE_NOT_FOUND) RaiseSystemError(failure, path);
  return target;
}

}  // namespace zorkanca::win32
