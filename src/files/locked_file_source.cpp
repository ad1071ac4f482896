#include "files/locked_file_source.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>

#include "files/system_error.h"
#include "runtime/error.h"

namespace zorkanca {

LockedFileSource::LockedFileSource(const std::string& path)
    : path_(path), file_(Uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_NOCTTY | O_CLOEXEC); })) {
  if (!file_) RaisePathError(errno, path);
  struct stat status {};
  if (fstat(file_.get(), &status) != 0) RaiseSystemError(errno, path);
  if (S_ISDIR(status.st_mode)) RaiseAbout(RuntimeError::kPathFileAccess, path);
  if (S_ISREG(status.st_mode)) flock(file_.get(), LOCK_SH | LOCK_NB);  // an open file can be read even if unlocked
}

std::size_t LockedFileSource::Read(std::span<char> room) {
  const ssize_t count = Uninterrupted([&] { return read(file_.get(), room.data(), room.size()); });
  if (count < 0) RaiseSystemError(errno, path_);
  return static_cast<std::size_t>(count);
}

}  // namespace zorkanca
