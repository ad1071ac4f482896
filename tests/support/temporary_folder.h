// A private folder for one test, and its files as plain bytes.
#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "runtime/text.h"
#include "runtime/utf8.h"
#include "support/file_text.h"

namespace zorkanca::testing {

/// A fresh folder, removed with all in it at the end of the test.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "zorkanca-test-XXXXXX").native();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& path() const { return path_; }
  /// A path in the folder, as bytes and as text.
  std::string Path(const std::string& name) const { return path_ + "/" + name; }
  Text TextPath(const std::string& name) const { return FromUtf8(Path(name)); }

  std::string Read(const std::string& name) const { return FileText(Path(name)); }
  /// Writes the file in place.
  void Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(Path(name), std::ios::binary) << bytes;
  }
  bool Has(const std::string& name) const {
    return std::filesystem::exists(std::filesystem::symlink_status(Path(name)));
  }
  /// Number of entries, whatever they are.
  std::ptrdiff_t Count() const {
    return std::distance(std::filesystem::directory_iterator(path_), std::filesystem::directory_iterator());
  }
  /// Permission bits.
  unsigned Mode(const std::string& name) const {
    struct stat status {};
    return stat(Path(name).c_str(), &status) == 0 ? status.st_mode & 07777u : 0;
  }

 private:
  std::string path_;
};

}  // namespace zorkanca::testing
