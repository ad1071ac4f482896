#include "files/temporary_folder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "files/native_path.h"
#include "files/system_error.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

bool IsPrivateFolder(const std::string& path) {
  struct stat status {};
  if (lstat(path.c_str(), &status) != 0) return false;
  return S_ISDIR(status.st_mode) && status.st_uid == geteuid() && (status.st_mode & 077) == 0;
}

}  // namespace

std::string PrivateTemporaryFolder() {
  const char* chosen = std::getenv("TMPDIR");
  const std::string base = chosen && *chosen ? AbsolutePath(chosen) : "/tmp";
  if (IsPrivateFolder(base)) return base;
  std::string folder = JoinPath(base, "zorkanca-" + std::to_string(geteuid()));
  RequirePrivateFolder(folder);
  return folder;
}

void RequirePrivateFolder(const std::string& path) {
  if (mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) RaisePathError(errno, path);
  if (!IsPrivateFolder(path)) Raise(RuntimeError::kPermissionDenied);
}

}  // namespace zorkanca
