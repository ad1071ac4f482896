#include "files/atomic_file.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

#include "files/native_path.h"
#include "files/system_error.h"

namespace zorkanca {

namespace {

constexpr mode_t kNewFileMode = 0666;  // less the umask
constexpr mode_t kPermissionBits = 0777;
constexpr const char* kOwnDescriptors = "/proc/self/fd";

// Makes an entry of a fresh name in the folder: `make` takes the path and fails with EEXIST when it is taken.
template <typename Make>
std::string UnderFreshName(const std::string& folder, Make make) {
  for (;;) {
    std::string path = JoinPath(folder, ".zorkanca-" + RandomDigits(12) + ".tmp");
    if (make(path) >= 0) return path;
    if (errno != EEXIST) RaisePathError(errno, path);
  }
}

}  // namespace

AtomicFile::AtomicFile(const std::string& path, const Options& options)
    : options_(options), target_(FindWriteTarget(path, options.create)), folder_(ParentFolder(target_.path)) {
  if (target_.IsDevice()) {
    file_ = FileDescriptor(Uninterrupted([&] { return open(target_.path.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC); }));
    if (!file_) RaiseSystemError(errno, target_.path);
    return;
  }
  RequireWritableFolder(folder_);
  if (options_.staging == Staging::kUnnamed) OpenUnnamed();
  if (!file_) OpenNamed();
  flock(file_.get(), LOCK_EX | LOCK_NB);  // a fresh file: nobody else has it; some file systems know no locks
}

AtomicFile::~AtomicFile() {
  if (!temporaryPath_.empty()) unlink(temporaryPath_.c_str());
}

void AtomicFile::OpenUnnamed() {
  if (access(kOwnDescriptors, X_OK) != 0) return;  // without it the file could never be named
  file_ = FileDescriptor(open(folder_.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, kNewFileMode));
  const bool unsupported = errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL || errno == ENOENT;
  if (!file_ && !unsupported) RaiseSystemError(errno, target_.path);
}

void AtomicFile::OpenNamed() {
  temporaryPath_ = UnderFreshName(folder_, [&](const std::string& path) {
    const int number = open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, kNewFileMode);
    file_ = FileDescriptor(number);
    return number;
  });
}

void AtomicFile::Write(std::string_view bytes) {
  while (failure_ == 0 && !bytes.empty()) {
    const ssize_t count = Uninterrupted([&] { return write(file_.get(), bytes.data(), bytes.size()); });
    if (count < 0) {
      failure_ = errno;
    } else {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
  }
  if (failure_ != 0) RaiseSystemError(failure_, target_.path);
}

void AtomicFile::Commit() {
  if (failure_ != 0) RaiseSystemError(failure_, target_.path);
  if (!target_.IsDevice()) KeepOwnerAndMode();
  RequireStored();
  if (target_.IsDevice()) return;
  GiveName();
  if (rename(temporaryPath_.c_str(), target_.path.c_str()) != 0) RaisePathError(errno, target_.path);
  temporaryPath_.clear();
  if (options_.durability == Durability::kSynced) {
    const FileDescriptor folder(open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder) fsync(folder.get());  // the file is whole either way; only the moment of its naming is at stake
  }
}

void AtomicFile::KeepOwnerAndMode() {
  if (!target_.existing) return;
  const struct stat& old = *target_.existing;
  // Only the superuser may give files away; for others the file becomes the writer's own.
  [[maybe_unused]] const int ignored = fchown(file_.get(), old.st_uid, old.st_gid);
  if (fchmod(file_.get(), old.st_mode & kPermissionBits) != 0) RaiseSystemError(errno, target_.path);
}

// A network file system may report a full disk as late as on closing; a duplicate lets it do so before the old file
// is gone.
void AtomicFile::RequireStored() {
  if (!target_.IsDevice() && options_.durability == Durability::kSynced && fsync(file_.get()) != 0) {
    RaiseSystemError(errno, target_.path);
  }
  const int duplicate = fcntl(file_.get(), F_DUPFD_CLOEXEC, 0);
  if (duplicate < 0 || (close(duplicate) != 0 && errno != EINTR)) RaiseSystemError(errno, target_.path);
}

void AtomicFile::GiveName() {
  if (!temporaryPath_.empty()) return;
  const std::string self = JoinPath(kOwnDescriptors, std::to_string(file_.get()));
  temporaryPath_ = UnderFreshName(folder_, [&](const std::string& path) {
    return linkat(AT_FDCWD, self.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW);
  });
}

}  // namespace zorkanca
