// A private folder for one test, gone with it.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <string>

namespace zorkanca::testing {

class TemporaryFolder {
 public:
  TemporaryFolder() : path_((std::filesystem::temp_directory_path() / "zorkanca-test-XXXXXX").string()) {
    EXPECT_NE(mkdtemp(path_.data()), nullptr) << path_;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// Without a separator at its end.
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace zorkanca::testing
