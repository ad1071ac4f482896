#include "files/file_bytes.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "files/system_error.h"

namespace zorkanca {

namespace {

FileDescriptor Opened(const std::string& path) {
  FileDescriptor file(Uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC); }));
  if (!file) RaisePathError(errno, path);
  return file;
}

}  // namespace

std::size_t ReadAt(const FileDescriptor& file, std::uint64_t offset, char* bytes, std::size_t length,
                   const std::string& path) {
  std::size_t done = 0;
  while (done < length) {
    const ssize_t count = Uninterrupted(
        [&] { return pread(file.get(), bytes + done, length - done, static_cast<off_t>(offset + done)); });
    if (count < 0 && path.empty()) RaiseSystemError(errno);
    if (count < 0) RaiseSystemError(errno, path);
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  return done;
}

std::string ReadToEnd(int file, const std::string& path) {
  constexpr std::size_t kPiece = 64 * 1024;
  struct stat status {};
  const bool sized = fstat(file, &status) == 0 && S_ISREG(status.st_mode);
  std::string bytes(sized ? static_cast<std::size_t>(status.st_size) + 1 : kPiece, '\0');  // one more finds the end
  for (std::size_t done = 0;;) {
    const ssize_t count = Uninterrupted([&] { return read(file, bytes.data() + done, bytes.size() - done); });
    if (count < 0) RaiseSystemError(errno, path);
    done += static_cast<std::size_t>(count);
    if (count == 0) {
      bytes.resize(done);
      return bytes;
    }
    if (done == bytes.size()) bytes.resize(2 * done);
  }
}

std::string ReadFile(const std::string& path) {
  return ReadToEnd(Opened(path).get(), path);
}

std::string ReadStart(const std::string& path, std::size_t length) {
  std::string bytes(length, '\0');
  bytes.resize(ReadAt(Opened(path), 0, bytes.data(), length, path));
  return bytes;
}

}  // namespace zorkanca
