#include "win32/system_error.h"

#include "win32/system.h"
#include "win32/system_message.h"

namespace zorkanca::win32 {

namespace {

constexpr std::uint32_t kQuotaExceeded = 1295;

RuntimeError ErrorOf(std::uint32_t code) {
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
      return RuntimeError::kFileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_DIRECTORY:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return RuntimeError::kPathNotFound;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return RuntimeError::kFileExists;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_DELETE_PENDING:
    case ERROR_PRIVILEGE_NOT_HELD:
      return RuntimeError::kPermissionDenied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kQuotaExceeded:
    case ERROR_FILE_TOO_LARGE:
      return RuntimeError::kDiskFull;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
      return RuntimeError::kBadFileName;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      return RuntimeError::kOutOfMemory;
    default:
      return RuntimeError::kDeviceIo;
  }
}

Text WithPath(Text description, TextView path) {
  if (!path.empty()) description.append(u": ").append(path);
  return description;
}

}  // namespace

void RaiseSystemError(std::uint32_t code, TextView path) {
  const RuntimeError error = ErrorOf(code);
  Text description(DescriptionOf(error));
  if (error == RuntimeError::kDeviceIo) {
    const Text reason = SystemMessage(code);
    description.append(u": ").append(reason.empty() ? DecimalText(code) : reason);
  }
  Raise(error, WithPath(std::move(description), path));
}

void RaiseAbout(RuntimeError error, TextView path) {
  Raise(error, WithPath(Text(DescriptionOf(error)), path));
}

}  // namespace zorkanca::win32
