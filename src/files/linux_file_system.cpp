#include "files/linux_file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <utility>

#include "files/appended_file.h"
#include "files/atomic_file.h"
#include "files/locked_file_source.h"
#include "files/native_path.h"
#include "files/system_clock.h"
#include "files/system_error.h"
#include "files/temporary_folder.h"
#include "runtime/error.h"
#include "runtime/wildcards.h"
#include "textfiles/text_reader.h"
#include "textfiles/text_writer.h"
#include "textfiles/utf16.h"

namespace zorkanca {

namespace {

struct FolderCloser {
  void operator()(DIR* folder) const { closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, FolderCloser>;

class HeldFile final : public FileLock {
 public:
  explicit HeldFile(FileDescriptor file) : file_(std::move(file)) {}

 private:
  FileDescriptor file_;
};

// What a path leads to; nothing when it leads nowhere.
std::optional<struct stat> StatusOf(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return std::nullopt;
  return status;
}

bool SameFile(const struct stat& left, const struct stat& right) {
  return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

// Calls `body(name)` for every entry of the folder but "." and "..".
template <typename Body>
void ForEachEntry(DIR* folder, Body body) {
  while (const dirent* entry = readdir(folder)) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") body(entry->d_name);
  }
}

// Deletes a regular file of the folder unless somebody has it locked.
void DeleteUnlessLocked(int folder, const char* name) {
  const FileDescriptor file(openat(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  struct stat opened {};
  if (!file || fstat(file.get(), &opened) != 0 || !S_ISREG(opened.st_mode)) return;
  if (flock(file.get(), LOCK_EX | LOCK_NB) != 0) return;
  struct stat named {};  // a writer may have put a new file in its place since
  const bool replaced = fstatat(folder, name, &named, AT_SYMLINK_NOFOLLOW) != 0 || !SameFile(opened, named);
  if (!replaced) unlinkat(folder, name, 0);
}

}  // namespace

bool LinuxFileSystem::FileExists(TextView path) {
  const std::optional<struct stat> status = StatusOf(ToNativePath(path));
  return status && !S_ISDIR(status->st_mode);
}

bool LinuxFileSystem::FolderExists(TextView path) {
  const std::optional<struct stat> status = StatusOf(ToNativePath(path));
  return status && S_ISDIR(status->st_mode);
}

void LinuxFileSystem::CreateFolder(TextView path) {
  const std::string native = ToNativePath(path);
  if (mkdir(native.c_str(), 0777) == 0) return;
  if (errno == ENOENT) RaiseAbout(RuntimeError::kPathNotFound, native);
  RaiseSystemError(errno, native);
}

void LinuxFileSystem::DeleteFile(TextView path, bool force) {
  const std::string native = ToNativePath(path);
  struct stat status {};
  if (lstat(native.c_str(), &status) != 0 || S_ISDIR(status.st_mode)) RaiseAbout(RuntimeError::kFileNotFound, native);
  const bool link = S_ISLNK(status.st_mode);
  if (!link && !S_ISREG(status.st_mode)) RaiseAbout(RuntimeError::kPermissionDenied, native);
  const bool readOnly =
      !link && ((status.st_mode & 0222) == 0 || faccessat(AT_FDCWD, native.c_str(), W_OK, AT_EACCESS) != 0);
  if (readOnly && !force) RaiseAbout(RuntimeError::kPermissionDenied, native);
  if (unlink(native.c_str()) != 0) RaiseSystemError(errno, native);
}

void LinuxFileSystem::ClearFolder(TextView folder, TextView wildcards) {
  const OpenFolder open(opendir(ToNativePath(folder).c_str()));
  if (!open) return;
  ForEachEntry(open.get(), [&](const char* name) {
    if (MatchesWildcards(FromNativePath(name), wildcards)) DeleteUnlessLocked(dirfd(open.get()), name);
  });
}

std::vector<FileEntry> LinuxFileSystem::Files(TextView folder) {
  const std::string native = ToNativePath(folder);
  const OpenFolder open(opendir(native.c_str()));
  if (!open && errno == ENOENT) RaiseAbout(RuntimeError::kPathNotFound, native);
  if (!open) RaiseSystemError(errno, native);
  std::vector<FileEntry> files;
  ForEachEntry(open.get(), [&](const char* name) {
    struct stat status {};
    if (fstatat(dirfd(open.get()), name, &status, 0) != 0 || !S_ISREG(status.st_mode)) return;
    files.push_back({.name = FromNativePath(name),
                     .path = FromNativePath(JoinPath(native, name)),
                     .lastModified = LocalDate(status.st_mtime)});
  });
  return files;
}

Text LinuxFileSystem::TemporaryFolder() {
  return FromNativePath(PrivateTemporaryFolder());
}

Text LinuxFileSystem::GetTempName() {
  return FromNativePath("rad" + RandomDigits(5) + ".tmp");
}

Text LinuxFileSystem::GetAbsolutePathName(TextView path) {
  return FromNativePath(AbsolutePath(ToNativePath(path)));
}

std::unique_ptr<TextStream> LinuxFileSystem::OpenTextFile(TextView path, IoMode mode, bool create, TextFormat format) {
  const std::string native = ToNativePath(path);
  const std::string_view preamble = format == TextFormat::kUnicode ? kByteOrderMark : std::string_view();
  if (mode == IoMode::kForReading)
    return std::make_unique<TextReader>(std::make_unique<LockedFileSource>(native), format, codePage_);
  std::unique_ptr<ByteSink> sink;
  if (mode == IoMode::kForAppending) {
    sink = std::make_unique<AppendedFile>(native, create, preamble);
  } else {
    sink = std::make_unique<AtomicFile>(native, AtomicFile::Options{.create = create});
    sink->Write(preamble);
  }
  return std::make_unique<TextWriter>(std::move(sink), format, codePage_);
}

std::unique_ptr<FileLock> LinuxFileSystem::LockFile(TextView path) {
  const std::string native = ToNativePath(path);
  for (;;) {
    FileDescriptor file(open(native.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file) RaiseSystemError(errno, native);
    Uninterrupted([&] { return flock(file.get(), LOCK_SH); });
    // While we waited the file may have been cleared away or replaced; then the lock is on nothing.
    const std::optional<struct stat> named = StatusOf(native);
    struct stat opened {};
    if (fstat(file.get(), &opened) == 0 && named && SameFile(opened, *named)) {
      return std::make_unique<HeldFile>(std::move(file));
    }
  }
}

}  // namespace zorkanca
