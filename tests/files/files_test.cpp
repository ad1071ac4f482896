// Paths, folders, deletion and locks of the file system.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "files/linux_file_system.h"
#include "files/native_path.h"
#include "files/temporary_folder.h"
#include "support/child_process.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

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

TEST_F(Files, BothSeparatorsAndForeignBytesNameTheSameFile) {
  files_.CreateFolder(folder_.TextPath("pod\\"));
  folder_.Write("pod/\xC5\xBE\xFF.txt", "x");
  EXPECT_TRUE(files_.FolderExists(folder_.TextPath("pod")));
  const std::vector<FileEntry> entries = files_.Files(folder_.TextPath("pod"));
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(entries[0].name, u"ž\xDCFF.txt");
  EXPECT_TRUE(files_.FileExists(entries[0].path));
  EXPECT_TRUE(files_.FileExists(folder_.TextPath("pod\\\xC5\xBE\xFF.txt")));
  EXPECT_FALSE(files_.FileExists(folder_.TextPath("pod")));
  EXPECT_FALSE(files_.FolderExists(entries[0].path));
  EXPECT_EQ(ErrorOf([&] { files_.FileExists(TextView(u"a\0b", 3)); }).number(), 52);
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

TEST_F(Files, FoldersAreMadeOneAtATime) {
  EXPECT_EQ(ErrorOf([&] { files_.CreateFolder(folder_.TextPath("a/b")); }).number(), 76);
  files_.CreateFolder(folder_.TextPath("a"));
  EXPECT_EQ(ErrorOf([&] { files_.CreateFolder(folder_.TextPath("a")); }).number(), 58);
  folder_.Write("f", "");
  EXPECT_EQ(ErrorOf([&] { files_.CreateFolder(folder_.TextPath("f/a")); }).number(), 76);
  EXPECT_EQ(ErrorOf([&] { files_.Files(folder_.TextPath("none")); }).number(), 76);
  EXPECT_THAT(Names(), ::testing::ElementsAre("f")) << "files only";
}

TEST_F(Files, DeleteTakesFilesAndLinksAlone) {
  folder_.Write("file", "");
  folder_.Write("locked", "");
  chmod(folder_.Path("locked").c_str(), 0444);
  std::filesystem::create_symlink("locked", folder_.Path("link"));
  std::filesystem::create_directory(folder_.Path("folder"));
  mkfifo(folder_.Path("pipe").c_str(), 0666);
  const std::pair<const char*, int> rows[] = {{"none", 53}, {"folder", 53}, {"pipe", 70}, {"locked", 70}};
  for (const auto& [name, number] : rows) {
    const Text path = folder_.TextPath(name);
    EXPECT_EQ(ErrorOf([&] { files_.DeleteFile(path, false); }).number(), number) << name;
  }
  files_.DeleteFile(folder_.TextPath("file"), false);
  files_.DeleteFile(folder_.TextPath("link"), false);
  EXPECT_TRUE(folder_.Has("locked"));
  files_.DeleteFile(folder_.TextPath("locked"), true);
  EXPECT_EQ(folder_.Count(), 2);
}

TEST_F(Files, ClearingSparesWhatIsInUse) {
  for (const char* name : {"a.tmp", "B.TMP", "read.tmp", "held.tmp", "other.tmp", "a.txt"}) folder_.Write(name, "x");
  std::filesystem::create_directory(folder_.Path("d.tmp"));
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
  auto reader = files_.OpenTextFile(folder_.TextPath("read.tmp"), IoMode::kForReading, false, TextFormat::kAnsi);
  auto held = files_.LockFile(folder_.TextPath("held.tmp"));

  files_.ClearFolder(FromUtf8(folder_.path()), u"*.tmp");
  EXPECT_THAT(Names(), ::testing::ElementsAre("a.txt", "held.tmp", "other.tmp", "read.tmp"));
  kill(other, SIGKILL);
  EXPECT_EQ(ExitOf(other), -SIGKILL);
  reader.reset();
  held.reset();
  files_.ClearFolder(FromUtf8(folder_.path()), u"*.tmp");
  EXPECT_THAT(Names(), ::testing::ElementsAre("a.txt"));
  EXPECT_TRUE(folder_.Has("d.tmp"));
  EXPECT_EQ(ErrorOf([&] { files_.LockFile(folder_.TextPath("held.tmp")); }).number(), 53);
  files_.ClearFolder(folder_.TextPath("none"), u"*");
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
  EXPECT_THAT(ToUtf8(files_.GetTempName()), ::testing::MatchesRegex("rad[0-9A-F]{5}\\.tmp"));
  EXPECT_NE(files_.GetTempName(), files_.GetTempName());
}

}  // namespace
}  // namespace zorkanca::testing
