#include "win32/files/appended_file.h"

#include <algorithm>

#include "win32/system_error.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

namespace {

constexpr std::size_t kMostBytesAtOnce = 1 << 24;

}  // namespace

AppendedFile::AppendedFile(TextView path, bool create, std::string_view preamble)
    : shownPath_(path), target_(FindWriteTarget(path, create)), bytes_(preamble), preambleSize_(preamble.size()) {}

void AppendedFile::Commit() {
  // Opened only now: a log that was moved away in the meantime begins anew instead of losing what we add.
  const FileHandle file(CreateFileW(Wide(target_.path), GENERIC_WRITE, kNobodyDeletes, nullptr, OPEN_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) RaiseSystemError(GetLastError(), shownPath_);
  // A lock among those who append, on a byte far behind the end: locks here keep readers from what they lock, and
  // nobody who reads shall wait.
  OVERLAPPED place{};
  place.OffsetHigh = 0x7FFFFFFF;
  if (!LockFileEx(file.get(), LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place)) RaiseSystemError(GetLastError(), shownPath_);
  Add(file);  // closing the file ends the lock
}

void AppendedFile::Add(const FileHandle& file) const {
  LARGE_INTEGER end{};
  if (!SetFilePointerEx(file.get(), {}, &end, FILE_END)) RaiseSystemError(GetLastError(), shownPath_);
  std::string_view rest = bytes_;
  if (end.QuadPart > 0) rest.remove_prefix(preambleSize_);
  while (!rest.empty()) {
    DWORD written = 0;
    const auto count = static_cast<DWORD>(std::min(rest.size(), kMostBytesAtOnce));
    if (!WriteFile(file.get(), rest.data(), count, &written, nullptr)) {
      const DWORD failure = GetLastError();
      if (SetFilePointerEx(file.get(), end, nullptr, FILE_BEGIN)) SetEndOfFile(file.get());
      RaiseSystemError(failure, shownPath_);
    }
    rest.remove_prefix(written);
  }
}

}  // namespace zorkanca::win32
