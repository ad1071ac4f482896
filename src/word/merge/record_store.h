// The records of a merge, kept for as long as a merged document may ask for them: the first megabytes in memory, what
// is more in a private file without a name. A record costs its own text and eight bytes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "files/file_descriptor.h"

namespace zorkanca::word {

/// The values of one record, UTF-8 without what XML forbids. Columns beyond the end of a short record are empty.
class RecordValues {
 public:
  std::string_view operator[](std::size_t column) const {
    return column < values_.size() ? values_[column] : std::string_view();
  }

 private:
  friend class RecordStore;
  std::string bytes_;
  std::vector<std::string_view> values_;
};

class RecordStore {
 public:
  /// @param memoryLimit  bytes that stay in memory
  explicit RecordStore(std::size_t memoryLimit = 16 * 1024 * 1024) : memoryLimit_(memoryLimit) {}

  /// Adds a value to the record being written.
  void AddValue(std::string_view utf8);
  /// Ends the record being written.
  void EndRecord();

  std::size_t count() const { return ends_.size(); }
  /// Reads a record, from 0. Reading in order costs no system call per record.
  void Read(std::size_t index, RecordValues& record) const;

 private:
  void Spill();
  std::string_view Bytes(std::uint64_t start, std::size_t length) const;

  std::size_t memoryLimit_;
  std::string tail_;          // what is not in the file
  std::uint64_t inFile_ = 0;  // bytes in the file, before the tail
  std::vector<std::uint64_t> ends_;
  FileDescriptor file_;
  mutable std::string window_;  // a stretch of the file
  mutable std::uint64_t windowStart_ = 0;
};

}  // namespace zorkanca::word
