// What every computer's file system does alike: paths, folders, deletion, text files. The tests of each computer
// include this once and name their file system:
//   INSTANTIATE_TEST_SUITE_P(Linux, FileSystemContract, ::testing::Values(&Make));
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {

/// Makes a file system whose ANSI page is 1250.
using MakeFileSystem = std::unique_ptr<FileSystem> (*)();

class FileSystemContract : public ::testing::TestWithParam<MakeFileSystem> {
 protected:
  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const FileEntry& entry : files_.Files(FromUtf8(folder_.path()))) names.push_back(ToUtf8(entry.name));
    std::sort(names.begin(), names.end());
    return names;
  }
  std::unique_ptr<TextStream> Open(const std::string& name, IoMode mode, bool create = true,
                                   TextFormat format = TextFormat::kAnsi) {
    return files_.OpenTextFile(folder_.TextPath(name), mode, create, format);
  }
  void Append(const std::string& name, TextView text, TextFormat format = TextFormat::kAnsi) {
    auto stream = Open(name, IoMode::kForAppending, true, format);
    stream->Write(text);
    stream->Close();
  }

  TemporaryFolder folder_;
  const std::unique_ptr<FileSystem> made_ = GetParam()();
  FileSystem& files_ = *made_;
};

TEST_P(FileSystemContract, BothSeparatorsNameTheSameFile) {
  files_.CreateFolder(folder_.TextPath("pod\\"));
  folder_.Write("pod/žluť.txt", "x");
  EXPECT_TRUE(files_.FolderExists(folder_.TextPath("pod")));
  const std::vector<FileEntry> entries = files_.Files(folder_.TextPath("pod"));
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(entries[0].name, u"žluť.txt");
  EXPECT_TRUE(files_.FileExists(entries[0].path));
  EXPECT_TRUE(files_.FileExists(folder_.TextPath("pod\\žluť.txt")));
  EXPECT_FALSE(files_.FileExists(folder_.TextPath("pod")));
  EXPECT_FALSE(files_.FolderExists(entries[0].path));
  EXPECT_EQ(ErrorOf([&] { files_.FileExists(TextView(u"a\0b", 3)); }).number(), 52);
}

TEST_P(FileSystemContract, AnEmptyPathLeadsNowhere) {
  EXPECT_FALSE(files_.FileExists(u""));
  EXPECT_FALSE(files_.FolderExists(u""));
  files_.ClearFolder(u"", u"*");
  EXPECT_EQ(ErrorOf([&] { files_.Files(u""); }).number(), 76);
  EXPECT_EQ(ErrorOf([&] { files_.CreateFolder(u""); }).number(), 76);
  EXPECT_EQ(ErrorOf([&] { files_.DeleteFile(u"", true); }).number(), 53);
  EXPECT_EQ(ErrorOf([&] { files_.OpenTextFile(u"", IoMode::kForWriting, true, TextFormat::kAnsi); }).number(), 52);
}

TEST_P(FileSystemContract, FoldersAreMadeOneAtATime) {
  EXPECT_EQ(ErrorOf([&] { files_.CreateFolder(folder_.TextPath("a/b")); }).number(), 76);
  files_.CreateFolder(folder_.TextPath("a"));
  EXPECT_EQ(ErrorOf([&] { files_.CreateFolder(folder_.TextPath("a")); }).number(), 58);
  folder_.Write("f", "");
  EXPECT_EQ(ErrorOf([&] { files_.CreateFolder(folder_.TextPath("f/a")); }).number(), 76);
  EXPECT_EQ(ErrorOf([&] { files_.Files(folder_.TextPath("none")); }).number(), 76);
  EXPECT_THAT(Names(), ::testing::ElementsAre("f")) << "files only";
}

TEST_P(FileSystemContract, DeleteTakesFilesAlone) {
  folder_.Write("file", "");
  folder_.Write("locked", "");
  folder_.MakeReadOnly("locked");
  folder_.MakeFolder("folder");
  const std::pair<const char*, int> rows[] = {{"none", 53}, {"folder", 53}, {"locked", 70}};
  for (const auto& [name, number] : rows) {
    const Text path = folder_.TextPath(name);
    EXPECT_EQ(ErrorOf([&] { files_.DeleteFile(path, false); }).number(), number) << name;
  }
  files_.DeleteFile(folder_.TextPath("file"), false);
  EXPECT_TRUE(folder_.Has("locked"));
  files_.DeleteFile(folder_.TextPath("locked"), true);
  EXPECT_EQ(folder_.Count(), 1);
}

TEST_P(FileSystemContract, ClearingSparesWhatIsInUse) {
  for (const char* name : {"a.tmp", "B.TMP", "read.tmp", "held.tmp", "locked.tmp", "a.txt"}) folder_.Write(name, "x");
  folder_.MakeReadOnly("locked.tmp");
  folder_.MakeFolder("d.tmp");
  auto reader = Open("read.tmp", IoMode::kForReading);
  auto held = files_.LockFile(folder_.TextPath("held.tmp"));
  files_.ClearFolder(FromUtf8(folder_.path()), u"*.tmp");
  EXPECT_THAT(Names(), ::testing::ElementsAre("a.txt", "held.tmp", "read.tmp"));
  EXPECT_EQ(Open("held.tmp", IoMode::kForReading)->ReadAll(), u"x") << "a locked file can be read";
  reader.reset();
  held.reset();
  files_.ClearFolder(FromUtf8(folder_.path()), u"*.tmp");
  EXPECT_THAT(Names(), ::testing::ElementsAre("a.txt"));
  EXPECT_TRUE(folder_.Has("d.tmp"));
  EXPECT_EQ(ErrorOf([&] { files_.LockFile(folder_.TextPath("held.tmp")); }).number(), 53);
  files_.ClearFolder(folder_.TextPath("none"), u"*");
}

TEST_P(FileSystemContract, PathsAndNamesOfItsOwn) {
  EXPECT_TRUE(files_.FolderExists(files_.TemporaryFolder()));
  const std::string name = ToUtf8(files_.GetTempName());
  EXPECT_EQ(name.substr(0, 3) + name.substr(8), "rad.tmp") << name;
  EXPECT_EQ(name.find_first_not_of("0123456789ABCDEF", 3), 8U) << name;
  EXPECT_NE(files_.GetTempName(), files_.GetTempName());
  const Text here = files_.GetAbsolutePathName(u"");
  EXPECT_TRUE(files_.FolderExists(here));
  EXPECT_EQ(Shown(files_.GetAbsolutePathName(u"a\\..\\./x")), Shown(here + files_.PathSeparator() + u"x"));
}

TEST_P(FileSystemContract, ReplacementIsWholeOrNotAtAll) {
  folder_.Write("a.htm", "old");
  {
    auto abandoned = Open("a.htm", IoMode::kForWriting);
    abandoned->Write(Text(200000, u'x'));
  }
  EXPECT_EQ(folder_.Read("a.htm"), "old");
  EXPECT_EQ(folder_.Count(), 1);
  auto stream = Open("a.htm", IoMode::kForWriting);
  stream->Write(Text(200000, u'x'));
  files_.ClearFolder(FromUtf8(folder_.path()), u"*.tmp");
  EXPECT_EQ(folder_.Read("a.htm"), "old");
  stream->Close();
  stream->Close();
  EXPECT_EQ(folder_.Read("a.htm"), std::string(200000, 'x'));
  Open("new", IoMode::kForWriting);
  EXPECT_THAT(Names(), ::testing::ElementsAre("a.htm"));
}

TEST_P(FileSystemContract, OpeningFailsWithTheUsualNumbers) {
  folder_.Write("file", "x");
  folder_.Write("locked", "x");
  folder_.MakeReadOnly("locked");
  folder_.MakeFolder("folder");
  const auto read = IoMode::kForReading, write = IoMode::kForWriting, append = IoMode::kForAppending;
  struct Row {
    const char* name;
    IoMode mode;
    bool create;
    int number;
  };
  const Row rows[] = {
      {"none", read, false, 53},    {"none/a", read, false, 76},  {"folder", read, false, 75},
      {"file/a", read, false, 76},  {"none", write, false, 53},   {"none", append, false, 53},
      {"none/a", write, true, 76},  {"none/a", append, true, 76}, {"none/", write, true, 76},
      {"folder", write, true, 75},  {"folder", append, true, 75}, {"locked", write, true, 70},
      {"locked", append, true, 70},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(ErrorOf([&] { Open(row.name, row.mode, row.create); }).number(), row.number)
        << row.name << " mode " << static_cast<int>(row.mode);
  }
  EXPECT_EQ(folder_.Count(), 3);
}

TEST_P(FileSystemContract, EncodesAndDecodesItsFormats) {
  const Text text = u"Žluťoučký € \x4E2D";
  for (const TextFormat format : {TextFormat::kAnsi, TextFormat::kUtf8, TextFormat::kUnicode}) {
    auto stream = Open("a", IoMode::kForWriting, true, format);
    stream->WriteLine(text);
    stream->Close();
    EXPECT_EQ(ErrorOf([&] { stream->Write(u"x"); }).number(), 52) << "closed";
    Append("a", u"end", format);
    auto reader = Open("a", IoMode::kForReading, false, format);
    EXPECT_EQ(reader->ReadLine(), format == TextFormat::kAnsi ? u"Žluťoučký € ?" : text);
    EXPECT_EQ(reader->Read(2), u"en");
    EXPECT_EQ(reader->Read(9), u"d");
    EXPECT_EQ(ErrorOf([&] { reader->Read(1); }).number(), 62);
  }
  EXPECT_TRUE(folder_.Read("a").starts_with("\xFF\xFE\x7D\x01l"));
  auto stream = Open("a", IoMode::kForWriting);
  stream->Write(text);
  stream->Close();
  EXPECT_EQ(folder_.Read("a"), "\x8Elu\x9Dou\xE8k\xFD \x80 ?");
  Append("new", u"ab", TextFormat::kUnicode);
  EXPECT_EQ(folder_.Read("new"), std::string("\xFF\xFE\x61\0b\0", 6)) << "a new file gets its mark when appended to";
}

TEST_P(FileSystemContract, LinesEndWithCrLfOrLf) {
  folder_.Write("a", "one\r\ntwo\n\nfo\rur\r\nend");
  auto reader = Open("a", IoMode::kForReading);
  for (const TextView line : {u"one", u"two", u"", u"fo\rur", u"end"}) {
    EXPECT_FALSE(reader->AtEndOfStream());
    EXPECT_EQ(Shown(reader->ReadLine()), Shown(line));
  }
  EXPECT_TRUE(reader->AtEndOfStream());
  EXPECT_EQ(ErrorOf([&] { reader->ReadLine(); }).number(), 62);
  EXPECT_EQ(reader->ReadAll(), u"");
  EXPECT_EQ(ErrorOf([&] { reader->Write(u"x"); }).number(), 52);
}

TEST_P(FileSystemContract, AbandonedEntryLeavesNoFile) {
  Open("log", IoMode::kForAppending)->Write(u"x");
  EXPECT_EQ(folder_.Count(), 0);
}

}  // namespace zorkanca::testing
