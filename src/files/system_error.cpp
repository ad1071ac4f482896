#include "files/system_error.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>

#include "files/native_path.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

void RaiseSystemError(int code) {
  switch (code) {
    case ENOENT:
      Raise(RuntimeError::kFileNotFound);
    case ENOTDIR:
      Raise(RuntimeError::kPathNotFound);
    case EEXIST:
      Raise(RuntimeError::kFileExists);
    case EISDIR:
      Raise(RuntimeError::kPathFileAccess);
    case EACCES:
    case EPERM:
    case EROFS:
    case ETXTBSY:
      Raise(RuntimeError::kPermissionDenied);
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      Raise(RuntimeError::kDiskFull);
    case ENAMETOOLONG:
    case ELOOP:
      Raise(RuntimeError::kBadFileName);
    case ENOMEM:
      Raise(RuntimeError::kOutOfMemory);
    default: {
      const char* reason = strerrordesc_np(code);  // never translated
      Raise(RuntimeError::kDeviceIo,
            Text(DescriptionOf(RuntimeError::kDeviceIo)) + u": " + FromUtf8(reason ? reason : "unknown"));
    }
  }
}

void RaisePathError(int code, const std::string& path) {
  struct stat status {};
  if (code == ENOENT && stat(ParentFolder(path).c_str(), &status) != 0) Raise(RuntimeError::kPathNotFound);
  RaiseSystemError(code);
}

}  // namespace zorkanca
