#include "win32/files/staged_file.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "win32/files/native_path.h"
#include "win32/files/random_digits.h"
#include "win32/system_error.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

namespace {

constexpr DWORD kMostBytesAtOnce = 1 << 24;  // shares refuse more

// Whether somebody has the file open in a way that would not let it be replaced.
void RequireReplaceable(const Text& path, TextView shownPath) {
  constexpr DWORD kEverything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const FileHandle file(CreateFileW(Wide(path), DELETE, kEverything, nullptr, OPEN_EXISTING, 0, nullptr));
  if (!file) RaiseSystemError(GetLastError(), shownPath);
}

}  // namespace

StagedFile::StagedFile(TextView path, bool create) : shownPath_(path), target_(FindWriteTarget(path, create)) {
  if (target_.exists) RequireReplaceable(target_.path, shownPath_);
  Open();
  DeleteWithHandle(true);
}

void StagedFile::Open() {
  // A long folder is in the long form already; the name beside a short one must not make it too long.
  const Text folder = FolderOf(target_.path);
  for (;;) {
    const TextView separator = folder.ends_with(u'\\') ? TextView() : TextView(u"\\");
    const Text path = NativePath(Text(folder).append(separator).append(u"~zk").append(RandomDigits(8)).append(u".tmp"));
    file_ = FileHandle(CreateFileW(Wide(path), GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                                   FILE_ATTRIBUTE_NORMAL, nullptr));
    if (file_) return;
    if (GetLastError() != ERROR_FILE_EXISTS) RaiseSystemError(GetLastError(), shownPath_);
  }
}

void StagedFile::DeleteWithHandle(bool deletes) {
  FILE_DISPOSITION_INFO disposition{static_cast<BOOLEAN>(deletes)};
  if (!SetFileInformationByHandle(file_.get(), FileDispositionInfo, &disposition, sizeof disposition)) {
    RaiseSystemError(GetLastError(), shownPath_);
  }
}

void StagedFile::Write(std::string_view bytes) {
  while (failure_ == ERROR_SUCCESS && !bytes.empty()) {
    DWORD written = 0;
    const auto count = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), kMostBytesAtOnce));
    if (!WriteFile(file_.get(), bytes.data(), count, &written, nullptr)) failure_ = GetLastError();
    bytes.remove_prefix(written);
  }
  if (failure_ != ERROR_SUCCESS) RaiseSystemError(failure_, shownPath_);
}

void StagedFile::Commit() {
  if (failure_ != ERROR_SUCCESS) RaiseSystemError(failure_, shownPath_);
  DeleteWithHandle(false);
  try {
    Rename();
  } catch (...) {
    DeleteWithHandle(true);
    throw;
  }
}

void StagedFile::Rename() {
  const std::size_t nameBytes = target_.path.size() * sizeof(wchar_t);
  std::vector<HANDLE> room((sizeof(FILE_RENAME_INFO) + nameBytes) / sizeof(HANDLE) + 1);  // aligned as its handle
  auto* const rename = reinterpret_cast<FILE_RENAME_INFO*>(room.data());
  rename->ReplaceIfExists = TRUE;
  rename->FileNameLength = static_cast<DWORD>(nameBytes);
  std::memcpy(rename->FileName, target_.path.data(), nameBytes);
  const auto size = static_cast<DWORD>(room.size() * sizeof(HANDLE));
  if (!SetFileInformationByHandle(file_.get(), FileRenameInfo, rename, size)) {
    RaiseSystemError(GetLastError(), shownPath_);
  }
}

}  // namespace zorkanca::win32
