#include "files/system_error.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>

#include "files/native_path.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

// The error that stands for a code of the system.
RuntimeError ErrorOf(int code) {
  switch (code) {
    case ENOENT:
      return RuntimeError::kFileNotFound;
    case ENOTDIR:
      return RuntimeError::kPathNotFound;
    case EEXIST:
      return RuntimeError::kFileExists;
    case EISDIR:
      return RuntimeError::kPathFileAccess;
    case EACCES:
    case EPERM:
    case EROFS:
    case ETXTBSY:
      return RuntimeError::kPermissionDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return RuntimeError::kDiskFull;
    case ENAMETOOLONG:
    case ELOOP:
      return RuntimeError::kBadFileName;
    case ENOMEM:
      return RuntimeError::kOutOfMemory;
    default:
      return RuntimeError::kDeviceIo;
  }
}

Text DescriptionOfCode(int code) {
  const RuntimeError error = ErrorOf(code);
  Text description(DescriptionOf(error));
  if (error != RuntimeError::kDeviceIo) return description;
  const char* reason = strerrordesc_np(code);  // never translated
  return description.append(u": ").append(FromUtf8(reason ? reason : "unknown"));
}

}  // namespace

void RaiseSystemError(int code) {
  Raise(ErrorOf(code), DescriptionOfCode(code));
}

void RaiseSystemError(int code, const std::string& path) {
  Raise(ErrorOf(code), DescriptionOfCode(code).append(u": ").append(FromNativePath(path)));
}

void RaiseAbout(RuntimeError error, const std::string& path) {
  Raise(error, Text(DescriptionOf(error)).append(u": ").append(FromNativePath(path)));
}

void RaisePathError(int code, const std::string& path) {
  struct stat status {};
  if (code == ENOENT && stat(ParentFolder(path).c_str(), &status) != 0) RaiseAbout(RuntimeError::kPathNotFound, path);
  RaiseSystemError(code, path);
}

}  // namespace zorkanca
