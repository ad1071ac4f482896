#include "win32/files/win32_file_system.h"

#include <utility>

#include "platform/paths.h"
#include "runtime/error.h"
#include "runtime/wildcards.h"
#include "textfiles/text_reader.h"
#include "textfiles/text_writer.h"
#include "textfiles/utf16.h"
#include "win32/files/appended_file.h"
#include "win32/files/folder_entries.h"
#include "win32/files/handle_source.h"
#include "win32/files/native_path.h"
#include "win32/files/random_digits.h"
#include "win32/files/staged_file.h"
#include "win32/system_error.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

namespace {

class HeldFile final : public FileLock {
 public:
  explicit HeldFile(FileHandle file) : file_(std::move(file)) {}

 private:
  FileHandle file_;
};

// Deletes a file, a read-only one too; one that is in use stays as it was.
// @return the code of the failure
DWORD DeleteForced(const Text& path) {
  if (DeleteFileW(Wide(path))) return ERROR_SUCCESS;
  const DWORD failure = GetLastError();
  const DWORD attributes = AttributesOf(path);
  if (failure != ERROR_ACCESS_DENIED || !IsFile(attributes) || (attributes & FILE_ATTRIBUTE_READONLY) == 0) {
    return failure;
  }
  if (!SetFileAttributesW(Wide(path), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY))) return GetLastError();
  if (DeleteFileW(Wide(path))) return ERROR_SUCCESS;
  const DWORD again = GetLastError();
  SetFileAttributesW(Wide(path), attributes);
  return again;
}

// Local time as it was on that day.
Date LocalDate(FILETIME moment) {
  SYSTEMTIME universal{};
  SYSTEMTIME local{};
  double serial = 0;
  FileTimeToSystemTime(&moment, &universal);
  if (!SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local)) local = universal;
  local.wMilliseconds = 0;
  SystemTimeToVariantTime(&local, &serial);
  return Date{serial};
}

}  // namespace

bool Win32FileSystem::FileExists(TextView path) {
  return IsFile(AttributesOf(NativePath(path)));
}

bool Win32FileSystem::FolderExists(TextView path) {
  return IsFolder(AttributesOf(NativePath(path)));
}

void Win32FileSystem::CreateFolder(TextView path) {
  const Text native = NativePath(path);
  if (CreateDirectoryW(Wide(native), nullptr)) return;
  const DWORD failure = GetLastError();
  if (failure == ERROR_FILE_NOT_FOUND) RaiseAbout(RuntimeError::kPathNotFound, path);
  RaiseSystemError(failure, path);
}

void Win32FileSystem::DeleteFile(TextView path, bool force) {
  const Text native = NativePath(path);
  const DWORD attributes = AttributesOf(native);
  if (!IsFile(attributes)) RaiseAbout(RuntimeError::kFileNotFound, path);
  if (!force && (attributes & FILE_ATTRIBUTE_READONLY) != 0) RaiseAbout(RuntimeError::kPermissionDenied, path);
  const DWORD failure = DeleteForced(native);
  if (failure != ERROR_SUCCESS) RaiseSystemError(failure, path);
}

void Win32FileSystem::ClearFolder(TextView folder, TextView wildcards) {
  const Text native = NativePath(folder);
  FolderEntries entries(native);
  while (entries.Next()) {
    if (entries.isFolder() || !MatchesWildcards(entries.name(), wildcards)) continue;
    DeleteForced(NativePath(Joined(native, entries.name())));
  }
}

std::vector<FileEntry> Win32FileSystem::Files(TextView folder) {
  FolderEntries entries(NativePath(folder));
  if (entries.failure() != ERROR_SUCCESS) RaiseSystemError(entries.failure(), folder);
  std::vector<FileEntry> files;
  while (entries.Next()) {
    if (entries.isFolder()) continue;
    files.push_back({.name = Text(entries.name()),
                     .path = Joined(folder, entries.name()),
                     .lastModified = LocalDate(entries.lastWritten())});
  }
  return files;
}

Text Win32FileSystem::TemporaryFolder() {
  Text folder;
  const DWORD length = GetTempPathW(MAX_PATH + 1, WideRoom(folder, MAX_PATH + 1));
  if (length == 0 || length > MAX_PATH) RaiseSystemError(GetLastError());
  folder.resize(length);
  while (folder.size() > 3 && IsPathSeparator(folder.back())) folder.pop_back();
  return folder;
}

Text Win32FileSystem::GetTempName() {
  return Text(u"rad").append(RandomDigits(5)).append(u".tmp");
}

Text Win32FileSystem::GetAbsolutePathName(TextView path) {
  return AbsolutePath(path);
}

std::unique_ptr<TextStream> Win32FileSystem::OpenTextFile(TextView path, IoMode mode, bool create, TextFormat format) {
  const std::string_view preamble = format == TextFormat::kUnicode ? kByteOrderMark : std::string_view();
  if (mode == IoMode::kForReading) {
    return std::make_unique<TextReader>(std::make_unique<HandleSource>(path), format, codePage_);
  }
  std::unique_ptr<ByteSink> sink;
  if (mode == IoMode::kForAppending) {
    sink = std::make_unique<AppendedFile>(path, create, preamble);
  } else {
    sink = std::make_unique<StagedFile>(path, create);
    sink->Write(preamble);
  }
  return std::make_unique<TextWriter>(std::move(sink), format, codePage_);
}

std::unique_ptr<FileLock> Win32FileSystem::LockFile(TextView path) {
  return std::make_unique<HeldFile>(OpenForReading(path));
}

}  // namespace zorkanca::win32
