#include "files/temporary_folder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "files/native_path.h"
#include "files/system_error.h"
#include "runtime/error.h"

namespace zorkanca {

std::string PrivateTemporaryFolder() {
  const char* chosen = std::getenv("TMPDIR");
  if (chosen && *chosen) return AbsolutePath(chosen);
  const std::string folder = "/tmp/zorkanca-" + std::to_string(geteuid());
  RequirePrivateFolder(folder);
  return folder;
}

void RequirePrivateFolder(const std::string& path) {
  if (mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) RaisePathError(errno, path);
  struct stat status {};
  if (lstat(path.c_str(), &status) != 0) RaisePathError(errno, path);
  const bool own = S_ISDIR(status.st_mode) && status.st_uid == geteuid() && (status.st_mode & 077) == 0;
  if (!own) Raise(RuntimeError::kPermissionDenied);
}

}  // namespace zorkanca
