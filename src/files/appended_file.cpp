#include "files/appended_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "files/file_descriptor.h"
#include "files/native_path.h"
#include "files/system_error.h"

namespace zorkanca {

AppendedFile::AppendedFile(const std::string& path, bool create, std::string_view preamble)
    : target_(FindWriteTarget(path, create)), bytes_(preamble), preambleSize_(preamble.size()) {
  if (!target_.existing) RequireWritableFolder(ParentFolder(target_.path));
}

void AppendedFile::Commit() {
  // Opened only now: a log that was moved away in the meantime begins anew instead of losing what we add.
  constexpr int kFlags = O_WRONLY | O_APPEND | O_CREAT | O_NOCTTY | O_CLOEXEC;
  const FileDescriptor file(Uninterrupted([&] { return open(target_.path.c_str(), kFlags, 0666); }));
  if (!file) RaisePathError(errno, target_.path);

  // A lock of its own kind among those who append: readers hold the other kind as long as they like, and nobody who
  // adds a line shall wait for them.
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  Uninterrupted([&] { return fcntl(file.get(), F_OFD_SETLKW, &lock); });

  struct stat status {};
  if (fstat(file.get(), &status) != 0) RaiseSystemError(errno, target_.path);
  const bool regular = S_ISREG(status.st_mode);
  std::string_view rest = bytes_;
  if (!regular || status.st_size > 0) rest.remove_prefix(preambleSize_);
  while (!rest.empty()) {
    const ssize_t count = Uninterrupted([&] { return write(file.get(), rest.data(), rest.size()); });
    if (count < 0) {
      const int failure = errno;
      if (regular && ftruncate(file.get(), status.st_size) != 0) RaiseSystemError(errno, target_.path);
      RaiseSystemError(failure, target_.path);
    }
    rest.remove_prefix(static_cast<std::size_t>(count));
  }
}

}  // namespace zorkanca
