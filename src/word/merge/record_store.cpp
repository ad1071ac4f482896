#include "word/merge/record_store.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>

#include "files/file_bytes.h"
#include "files/system_error.h"
#include "files/unnamed_file.h"
#include "runtime/error.h"

namespace zorkanca::word {

namespace {

constexpr std::size_t kWindow = 256 * 1024;

}  // namespace

// A value is its length in four bytes and its bytes.
void RecordStore::AddValue(std::string_view utf8) {
  if (utf8.size() > std::numeric_limits<std::uint32_t>::max()) Raise(RuntimeError::kOutOfMemory);
  const std::uint32_t length = static_cast<std::uint32_t>(utf8.size());
  char bytes[sizeof length];
  std::memcpy(bytes, &length, sizeof length);
  tail_.append(bytes, sizeof bytes).append(utf8);
}

void RecordStore::EndRecord() {
  ends_.push_back(inFile_ + tail_.size());
  if (tail_.size() > memoryLimit_) Spill();
}

void RecordStore::Spill() {
  if (!file_) file_ = OpenUnnamedFile();
  std::string_view rest = tail_;
  while (!rest.empty()) {
    const ssize_t written =
        Uninterrupted([&] { return pwrite(file_.get(), rest.data(), rest.size(), static_cast<off_t>(inFile_)); });
    if (written <= 0) RaiseSystemError(errno);
    inFile_ += static_cast<std::uint64_t>(written);
    rest.remove_prefix(static_cast<std::size_t>(written));
  }
  tail_.clear();
}

std::string_view RecordStore::Bytes(std::uint64_t start, std::size_t length) const {
  if (start >= inFile_) return std::string_view(tail_).substr(static_cast<std::size_t>(start - inFile_), length);
  if (start < windowStart_ || start + length > windowStart_ + window_.size()) {
    window_.resize(static_cast<std::size_t>(std::min<std::uint64_t>(std::max(length, kWindow), inFile_ - start)));
    windowStart_ = start;
    if (ReadAt(file_, start, window_.data(), window_.size()) != window_.size()) RaiseSystemError(EIO);
  }
  return std::string_view(window_).substr(static_cast<std::size_t>(start - windowStart_), length);
}

void RecordStore::Read(std::size_t index, RecordValues& record) const {
  const std::uint64_t start = index == 0 ? 0 : ends_[index - 1];
  record.bytes_ = Bytes(start, static_cast<std::size_t>(ends_[index] - start));
  record.values_.clear();
  for (std::string_view rest = record.bytes_; !rest.empty();) {
    std::uint32_t length = 0;
    std::memcpy(&length, rest.data(), sizeof length);
    record.values_.push_back(rest.substr(sizeof length, length));
    rest.remove_prefix(sizeof length + length);
  }
}

}  // namespace zorkanca::word
