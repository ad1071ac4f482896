// A document file that is there only while somebody works on it.
#pragma once

#include <unistd.h>

#include <string>
#include <string_view>

#include "files/native_path.h"
#include "files/temporary_folder.h"

namespace zorkanca {

/// A name in the private temporary folder; whatever stands under it is deleted with the object.
class TemporaryPackage {
 public:
  /// @param extension  with its point
  explicit TemporaryPackage(std::string_view extension)
      : path_(JoinPath(PrivateTemporaryFolder(), "zorkanca-" + RandomDigits(16) + std::string(extension))) {}
  ~TemporaryPackage() { unlink(path_.c_str()); }
  TemporaryPackage(const TemporaryPackage&) = delete;
  TemporaryPackage& operator=(const TemporaryPackage&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace zorkanca
