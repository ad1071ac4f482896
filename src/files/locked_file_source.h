// A file being read that others see as being in use.
#pragma once

#include <string>

#include "files/file_descriptor.h"
#include "textfiles/byte_source.h"

namespace zorkanca {

class LockedFileSource final : public ByteSource {
 public:
  /// Errors: 53, 70, 75 for a folder, 76.
  explicit LockedFileSource(const std::string& path);

  std::size_t Read(std::span<char> room) override;

 private:
  std::string path_;
  FileDescriptor file_;
};

}  // namespace zorkanca
