#include "files/write_target.h"

#include <fcntl.h>
#include <limits.h>
#include <unistd.h>

#include <cerrno>

#include "files/native_path.h"
#include "files/system_error.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr int kMostLinks = 40;  // the kernel's own limit

// The path with a link in its last part followed as often as there is one; the end may be missing.
std::string WithoutLinks(std::string path) {
  char target[PATH_MAX];
  for (int link = 0; link < kMostLinks; ++link) {
    const ssize_t length = readlink(path.c_str(), target, sizeof target);
    if (length < 0) return path;
    const std::string next(target, static_cast<std::size_t>(length));
    path = next.starts_with('/') ? next : JoinPath(ParentFolder(path), next);
  }
  RaiseSystemError(ELOOP, path);
}

bool IsWritable(const std::string& path, mode_t mode) {
  return (mode & 0222) != 0 && faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

}  // namespace

WriteTarget FindWriteTarget(const std::string& path, bool create) {
  if (path.empty()) Raise(RuntimeError::kBadFileName);
  WriteTarget target{.path = WithoutLinks(path), .existing = std::nullopt};
  struct stat status {};
  if (stat(target.path.c_str(), &status) == 0) {
    if (S_ISDIR(status.st_mode)) RaiseAbout(RuntimeError::kPathFileAccess, target.path);
    if (!IsWritable(target.path, status.st_mode)) RaiseAbout(RuntimeError::kPermissionDenied, target.path);
    target.existing = status;
  } else if (errno != ENOENT || !create) {
    RaisePathError(errno, target.path);
  } else if (target.path.ends_with('/')) {
    RaiseAbout(RuntimeError::kPathNotFound, target.path);
  }
  return target;
}

void RequireWritableFolder(const std::string& folder) {
  struct stat status {};
  if (stat(folder.c_str(), &status) != 0) {
    if (errno == ENOENT) RaiseAbout(RuntimeError::kPathNotFound, folder);
    RaiseSystemError(errno, folder);
  }
  if (!S_ISDIR(status.st_mode)) RaiseAbout(RuntimeError::kPathNotFound, folder);
  if (!IsWritable(folder, status.st_mode)) RaiseAbout(RuntimeError::kPermissionDenied, folder);
}

}  // namespace zorkanca
