// Bytes added to the end of a file in one piece.
#pragma once

#include <string>

#include "textfiles/byte_sink.h"
#include "win32/files/file_handle.h"
#include "win32/files/write_target.h"

namespace zorkanca::win32 {

/// What one writer adds to a file, gathered in memory and written by `Commit` in one go, so that what two programs add
/// at the same time never mixes. When the disk has no room for all of it, the file stays as it was.
class AppendedFile final : public ByteSink {
 public:
  /// @param preamble  what an empty or new file begins with
  /// Errors: those of `FindWriteTarget`.
  AppendedFile(TextView path, bool create, std::string_view preamble);

  void Write(std::string_view bytes) override { bytes_.append(bytes); }
  void Commit() override;

 private:
  void Add(const FileHandle& file) const;

  Text shownPath_;
  WriteTarget target_;
  std::string bytes_;  // begins with the preamble
  std::size_t preambleSize_;
};

}  // namespace zorkanca::win32
