// Bytes of files and pipes, whole and in part.
#include "files/file_bytes.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <thread>

#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(FileBytes, AreReadFromAnyPlace) {
  const TemporaryFolder folder;
  folder.Write("f", "0123456789");
  const FileDescriptor file(open(folder.Path("f").c_str(), O_RDONLY | O_CLOEXEC));
  struct Row {
    std::uint64_t offset;
    std::size_t length;
    const char* bytes;
  };
  const Row rows[] = {{0, 3, "012"}, {0, 10, "0123456789"}, {7, 3, "789"}, {7, 9, "789"},
                      {10, 1, ""},   {99, 5, ""},           {4, 0, ""}};
  for (const Row& row : rows) {
    std::string bytes(row.length, '?');
    bytes.resize(ReadAt(file, row.offset, bytes.data(), row.length));
    EXPECT_EQ(bytes, row.bytes) << row.offset << " " << row.length;
  }
}

TEST(FileBytes, AreReadToTheEnd) {
  const TemporaryFolder folder;
  for (const std::size_t size : {0u, 1u, 65535u, 65536u, 200001u}) {
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) bytes.push_back(static_cast<char>(i * 7 + i / 256));
    folder.Write("f", bytes);
    EXPECT_EQ(ReadFile(folder.Path("f")), bytes) << size;
    EXPECT_EQ(ReadStart(folder.Path("f"), 65536), bytes.substr(0, 65536)) << size;
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const FileDescriptor reading(ends[0]);
    std::thread writer([&] {
      const FileDescriptor writing(ends[1]);
      for (std::size_t at = 0; at < bytes.size();) {  // in pieces, as a program writes them
        const ssize_t count = write(writing.get(), bytes.data() + at, std::min<std::size_t>(bytes.size() - at, 5000));
        ASSERT_GT(count, 0);
        at += static_cast<std::size_t>(count);
      }
    });
    EXPECT_EQ(ReadToEnd(reading.get(), "-"), bytes) << size;
    writer.join();
  }
}

TEST(FileBytes, NameTheFileThatCannotBeRead) {
  const TemporaryFolder folder;
  const std::pair<std::string, int> rows[] = {
      {folder.Path("none"), 53}, {folder.Path("none/f"), 76}, {folder.path(), 75}};
  for (const auto& [path, number] : rows) {
    for (const bool whole : {true, false}) {
      const Error error = ErrorOf([&] { whole ? ReadFile(path) : ReadStart(path, 10); });
      EXPECT_EQ(error.number(), number) << path;
      EXPECT_TRUE(ToUtf8(error.description()).ends_with(path)) << ToUtf8(error.description());
    }
  }
}

}  // namespace
}  // namespace zorkanca::testing
