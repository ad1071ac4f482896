// A private folder for one test, and its files as plain bytes.
#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "runtime/text.h"
#include "runtime/utf8.h"
#include "support/file_text.h"

namespace zorkanca::testing {

/// A fresh folder, removed with all in it at the end of the test. Names are UTF-8, separated by "/".
class TemporaryFolder {
 public:
  TemporaryFolder() {
    namespace fs = std::filesystem;
    std::random_device random;
    fs::path folder;
    do {
      folder = fs::temp_directory_path() / ("zorkanca-test-" + std::to_string(random()));
    } while (!fs::create_directory(folder));
    fs::permissions(folder, fs::perms::owner_all);
    const std::u8string name = folder.generic_u8string();
    path_.assign(name.begin(), name.end());
  }
  ~TemporaryFolder() {
    namespace fs = std::filesystem;
    std::error_code failure;
    fs::remove_all(Native(path_), failure);
    if (!failure) return;
    // Some systems keep what is read-only.
    for (fs::recursive_directory_iterator entry(Native(path_), failure), end; entry != end; entry.increment(failure)) {
      std::error_code ignored;
      fs::permissions(entry->path(), fs::perms::owner_write, fs::perm_options::add, ignored);
    }
    fs::remove_all(Native(path_), failure);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& path() const { return path_; }
  /// A path in the folder, as bytes and as text.
  std::string Path(const std::string& name) const { return path_ + "/" + name; }
  Text TextPath(const std::string& name) const { return FromUtf8(Path(name)); }

  std::string Read(const std::string& name) const { return FileText(Native(Path(name))); }
  /// Writes the file in place.
  void Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(Native(Path(name)), std::ios::binary) << bytes;
  }
  bool Has(const std::string& name) const {
    return std::filesystem::exists(std::filesystem::symlink_status(Native(Path(name))));
  }
  /// Number of entries, whatever they are.
  std::ptrdiff_t Count() const {
    return std::distance(std::filesystem::directory_iterator(Native(path_)), std::filesystem::directory_iterator());
  }
  /// Permission bits.
  unsigned Mode(const std::string& name) const {
    std::error_code failure;
    const auto status = std::filesystem::status(Native(Path(name)), failure);
    return failure ? 0 : static_cast<unsigned>(status.permissions()) & 07777u;
  }
  void MakeFolder(const std::string& name) const { std::filesystem::create_directory(Native(Path(name))); }
  void MakeReadOnly(const std::string& name) const {
    using std::filesystem::perms;
    std::filesystem::permissions(Native(Path(name)), perms::owner_write | perms::group_write | perms::others_write,
                                 std::filesystem::perm_options::remove);
  }

 private:
  static std::filesystem::path Native(const std::string& name) {
    return std::filesystem::path(std::u8string(name.begin(), name.end()));
  }

  std::string path_;
};

}  // namespace zorkanca::testing
