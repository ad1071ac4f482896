// An open file of the system.
#pragma once

#include <utility>

#include "win32/system.h"

namespace zorkanca::win32 {

/// Closes its handle.
class FileHandle {
 public:
  FileHandle() = default;
  explicit FileHandle(HANDLE handle) : handle_(handle) {}
  FileHandle(FileHandle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  FileHandle& operator=(FileHandle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~FileHandle() {
    if (*this) CloseHandle(handle_);
  }

  explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return handle_; }

 private:
  HANDLE handle_ = INVALID_HANDLE_VALUE;
};

/// Others may read and write the file meanwhile, but neither delete nor rename it.
inline constexpr DWORD kNobodyDeletes = FILE_SHARE_READ | FILE_SHARE_WRITE;

}  // namespace zorkanca::win32
