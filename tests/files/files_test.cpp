// The file system of Linux: what all computers have alike, and paths, links, deletion and locks of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "contract/file_system_contract.h"
#include "files/linux_file_system.h"
#include "files/native_path.h"
#include "files/temporary_folder.h"
#include "support/child_process.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

std::unique_ptr<FileSystem> Make() {
  return std::make_unique<LinuxFileSystem>(CodePage::Get(1250));
}
INSTANTIATE_TEST_SUITE_P(Linux, FileSystemContract, ::testing::Values(&Make));

class Files : public ::testing::Test {
 protected:
  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const FileEntry& entry : files_.Files(FromUtf8(folder_.path()))) names.push_back(ToUtf8(entry.name));
    std::sort(names.begin(), names.end());
    return names;
  }

  TemporaryFolder folder_;
  LinuxFileSystem files_{CodePage::Get(1250)};
};

TEST_F(Files, NamesOfForeignBytesLeadBack) {
  folder_.MakeFolder("pod");
  folder_.Write("pod/\xC5\xBE\xFF.txt", "x");
  const std::vector<FileEntry> entries = files_.Files(folder_.TextPath("pod"));
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(entries[0].name, u"ž\xDCFF.txt");
  EXPECT_TRUE(files_.FileExists(entries[0].path));
  EXPECT_TRUE(files_.FileExists(folder_.TextPath("pod\\\xC5\xBE\xFF.txt")));
}

TEST_F(Files, AbsolutePathsNameTheSamePlace) {
  std::filesystem::create_directory_symlink("/usr/bin", folder_.Path("link"));
  const std::string here = folder_.path();
  const std::pair<std::string, std::string> rows[] = {
      {"/", "/"},
      {"/..", "/"},
      {"/a//b/./c/", "/a/b/c"},
      {"/a/b/../c", "/a/c"},
      {here + "/link/../x", here + "/link/../x"},  // leads to /usr/x
      {"x", std::filesystem::current_path().native() + "/x"},
      {"", std::filesystem::current_path().native()},
  };
  for (const auto& [path, expected] : rows) EXPECT_EQ(AbsolutePath(path), expected) << path;
  EXPECT_EQ(files_.GetAbsolutePathName(u"\\a\\..\\b"), u"/b");
}

TEST_F(Files, DeleteTakesLinksThemselvesAndNoPipes) {
  folder_.Write("locked", "");
  folder_.MakeReadOnly("locked");
  std::filesystem::create_symlink("locked", folder_.Path("link"));
  mkfifo(folder_.Path("pipe").c_str(), 0666);
  EXPECT_EQ(ErrorOf([&] { files_.DeleteFile(folder_.TextPath("pipe"), false); }).number(), 70);
  files_.DeleteFile(folder_.TextPath("link"), false);
  EXPECT_TRUE(folder_.Has("locked"));
  EXPECT_EQ(folder_.Count(), 2);
}

TEST_F(Files, ClearingSparesWhatOtherProgramsUse) {
  for (const char* name : {"a.tmp", "other.tmp"}) folder_.Write(name, "x");
  int ready[2] = {};
  ASSERT_EQ(pipe(ready), 0);
  const pid_t other = StartChild([&] {
    const auto lock = files_.LockFile(folder_.TextPath("other.tmp"));
    if (write(ready[1], "x", 1) != 1) return 1;
    pause();
    return 0;
  });
  char byte = 0;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  files_.ClearFolder(FromUtf8(folder_.path()), u"*.tmp");
  EXPECT_THAT(Names(), ::testing::ElementsAre("other.tmp"));
  kill(other, SIGKILL);
  EXPECT_EQ(ExitOf(other), -SIGKILL);
  files_.ClearFolder(FromUtf8(folder_.path()), u"*.tmp");
  EXPECT_EQ(folder_.Count(), 0);
  close(ready[0]);
  close(ready[1]);
}

TEST_F(Files, TemporaryFolderIsOursAlone) {
  RequirePrivateFolder(folder_.Path("fresh"));
  EXPECT_EQ(folder_.Mode("fresh"), 0700u);
  RequirePrivateFolder(folder_.Path("fresh"));
  std::filesystem::create_directory_symlink(folder_.Path("fresh"), folder_.Path("link"));
  std::filesystem::create_directory(folder_.Path("open"));
  chmod(folder_.Path("open").c_str(), 0750);
  folder_.Write("file", "");
  for (const char* name : {"link", "open", "file"}) {
    EXPECT_EQ(ErrorOf([&] { RequirePrivateFolder(folder_.Path(name)); }).number(), 70) << name;
  }
  // $TMPDIR itself where nobody else may enter it, a folder of ours in one that all users share.
  const char* const before = std::getenv("TMPDIR");
  const std::string restored = before ? before : "";
  const std::string ours = "/zorkanca-" + std::to_string(geteuid());
  const std::tuple<std::string, unsigned, std::string> rows[] = {{"fresh//", 0700, "fresh"},
                                                                 {"open", 0750, "open" + ours},
                                                                 {"open", 01777, "open" + ours},
                                                                 {"link", 0700, "link" + ours}};
  for (const auto& [name, mode, used] : rows) {
    chmod(folder_.Path(name).c_str(), mode);
    setenv("TMPDIR", folder_.Path(name).c_str(), 1);
    EXPECT_EQ(ToUtf8(files_.TemporaryFolder()), folder_.Path(used)) << name << mode;
    EXPECT_EQ(folder_.Mode(used), 0700u);
  }
  chmod(folder_.Path("open" + ours).c_str(), 0755);
  setenv("TMPDIR", folder_.Path("open").c_str(), 1);
  EXPECT_EQ(ErrorOf([&] { files_.TemporaryFolder(); }).number(), 70) << "somebody else may read there";
  setenv("TMPDIR", folder_.Path("missing").c_str(), 1);
  EXPECT_EQ(ErrorOf([&] { files_.TemporaryFolder(); }).number(), 76);
  before ? setenv("TMPDIR", restored.c_str(), 1) : unsetenv("TMPDIR");
}

}  // namespace
}  // namespace zorkanca::testing
