#include "files/reread_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

#include "files/system_error.h"
#include "files/unnamed_file.h"

namespace zorkanca {

namespace {

void WriteAll(const FileDescriptor& file, const char* bytes, std::size_t length) {
  while (length > 0) {
    const ssize_t count = Uninterrupted([&] { return write(file.get(), bytes, length); });
    if (count < 0) RaiseSystemError(errno);
    bytes += count;
    length -= static_cast<std::size_t>(count);
  }
}

FileDescriptor CopyOf(const FileDescriptor& source, const std::string& path) {
  constexpr std::size_t kPiece = 256 * 1024;
  FileDescriptor copy = OpenUnnamedFile();
  std::vector<char> piece(kPiece);
  for (;;) {
    const ssize_t count = Uninterrupted([&] { return read(source.get(), piece.data(), piece.size()); });
    if (count < 0) RaiseSystemError(errno, path);
    if (count == 0) return copy;
    WriteAll(copy, piece.data(), static_cast<std::size_t>(count));
  }
}

}  // namespace

FileDescriptor OpenForRereading(const std::string& path) {
  FileDescriptor file(Uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC); }));
  if (!file) RaisePathError(errno, path);
  struct stat status {};
  if (fstat(file.get(), &status) != 0) RaisePathError(errno, path);
  if (S_ISDIR(status.st_mode)) RaisePathError(EISDIR, path);
  return S_ISREG(status.st_mode) ? std::move(file) : CopyOf(file, path);
}

}  // namespace zorkanca
