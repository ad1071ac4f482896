// A file being read that nobody can delete meanwhile.
#pragma once

#include "runtime/text.h"
#include "textfiles/byte_source.h"
#include "win32/files/file_handle.h"

namespace zorkanca::win32 {

class HandleSource final : public ByteSource {
 public:
  /// Errors: 53, 70, 75 for a folder, 76.
  explicit HandleSource(TextView path);

  std::size_t Read(std::span<char> room) override;

 private:
  Text shownPath_;
  FileHandle file_;
};

/// An existing file, open for reading. Errors: 53, 70, 75 for a folder, 76.
FileHandle OpenForReading(TextView path);

}  // namespace zorkanca::win32
