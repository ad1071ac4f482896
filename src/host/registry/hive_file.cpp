#include "host/registry/hive_file.h"

#include <fcntl.h>

#include <cerrno>

#include "files/file_bytes.h"
#include "files/native_path.h"
#include "files/system_error.h"
#include "runtime/error.h"

namespace zorkanca {

void RaiseRegistryFileError(int code, const std::string& path) {
  try {
    RaiseSystemError(code);
  } catch (const Error& error) {
    throw Error(error.number(), error.source(), FromNativePath(path) + u": " + error.description());
  }
}

HiveFile::Stamp HiveFile::StampOf(const struct stat& status) {
  return {.device = status.st_dev,
          .node = status.st_ino,
          .size = status.st_size,
          .seconds = status.st_mtim.tv_sec,
          .nanoseconds = status.st_mtim.tv_nsec};
}

HiveFile::Stamp HiveFile::CurrentStamp() const {
  struct stat status {};
  if (stat(path_.c_str(), &status) == 0) return StampOf(status);
  if (errno != ENOENT) RaiseRegistryFileError(errno, path_);
  return {};
}

// Opens the file, if there is one, as file_.
HiveFile::Stamp HiveFile::Open() {
  file_ = FileDescriptor(Uninterrupted([&] { return open(path_.c_str(), O_RDONLY | O_CLOEXEC); }));
  if (!file_ && errno == ENOENT) return {};
  struct stat status {};
  if (!file_ || fstat(file_.get(), &status) != 0) RaiseRegistryFileError(errno, path_);
  if (!S_ISREG(status.st_mode)) RaiseRegistryFileError(EISDIR, path_);
  return StampOf(status);
}

void HiveFile::Refresh() {
  if (held_ || (stamp_ && *stamp_ == CurrentStamp())) return;
  stamp_.reset();
  const Stamp stamp = Open();
  const Text origin = FromNativePath(path_);
  std::vector<RegSection> sections;
  if (file_) sections = ParseReg(ReadToEnd(file_.get(), path_), origin);
  tree_.Load(sections, hive_, deletions_, origin);
  stamp_ = stamp;
}

void HiveFile::Release() {
  if (changed_) stamp_.reset();
  changed_ = false;
  held_ = false;
}

void HiveFile::MarkSaved() {
  changed_ = false;
  stamp_ = Open();
}

}  // namespace zorkanca
