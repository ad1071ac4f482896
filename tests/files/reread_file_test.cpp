#include "files/reread_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <thread>

#include "files/file_bytes.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(RereadFile, ReadsPipesMoreThanOnce) {
  const TemporaryFolder folder;
  const std::string bytes(600000, 'x');
  folder.Write("file", bytes);
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  std::thread writer([&] { std::ofstream(folder.Path("pipe")) << bytes; });
  const FileDescriptor pipe = OpenForRereading(folder.Path("pipe"));
  writer.join();
  const FileDescriptor file = OpenForRereading(folder.Path("file"));
  for (const FileDescriptor* each : {&pipe, &file, &pipe}) {
    std::string read(bytes.size() + 1, '?');
    read.resize(ReadAt(*each, 0, read.data(), read.size()));
    EXPECT_TRUE(read == bytes);
  }
  EXPECT_EQ(ErrorOf([&] { OpenForRereading(folder.path()); }).number(), 75);
  EXPECT_EQ(ErrorOf([&] { OpenForRereading(folder.Path("none")); }).number(), 53);
}

}  // namespace
}  // namespace zorkanca::testing
