#include "support/file_text.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace zorkanca::testing {

std::string FileText(const std::filesystem::path& path) {
  const std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

std::string ProjectPath(const std::string& path) {
  return std::string(ZORKANCA_SOURCE_DIR) + "/" + path;
}

std::string ProjectFileText(const std::string& path) {
  std::string text = FileText(ProjectPath(path));
  EXPECT_FALSE(text.empty()) << "nothing to be read in " << path;
  return text;
}

}  // namespace zorkanca::testing
