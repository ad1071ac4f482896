// The file system of Windows: what all computers have alike, and what is open elsewhere, long paths, killed writers.
#include "win32/files/win32_file_system.h"

#include <cstdlib>
#include <thread>

#include "contract/file_system_contract.h"
#include "win32/files/file_handle.h"
#include "win32/files/native_path.h"
#include "win32/system/system_clock.h"
#include "win32/wide_text.h"

namespace zorkanca::testing {
namespace {

using win32::FileHandle;
using win32::FromWide;
using win32::NativePath;
using win32::Wide;
using win32::Win32FileSystem;

std::unique_ptr<FileSystem> Make() {
  return std::make_unique<Win32FileSystem>(CodePage::Get(1250));
}
INSTANTIATE_TEST_SUITE_P(Windows, FileSystemContract, ::testing::Values(&Make));

class WindowsFiles : public ::testing::Test {
 protected:
  std::unique_ptr<TextStream> Open(const std::string& name, IoMode mode) {
    return files_.OpenTextFile(folder_.TextPath(name), mode, true, TextFormat::kAnsi);
  }
  FileHandle OpenElsewhere(const std::string& name, DWORD access, DWORD sharing) {
    return FileHandle(CreateFileW(Wide(folder_.TextPath(name)), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr));
  }

  TemporaryFolder folder_;
  Win32FileSystem files_{CodePage::Get(1250)};
};

TEST_F(WindowsFiles, WhatIsOpenElsewhereIsNotReplaced) {
  folder_.Write("a.htm", "old");
  {
    const FileHandle viewer = OpenElsewhere("a.htm", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_EQ(ErrorOf([&] { Open("a.htm", IoMode::kForWriting); }).number(), 70) << "before anything is computed";
    EXPECT_EQ(ErrorOf([&] { files_.DeleteFile(folder_.TextPath("a.htm"), true); }).number(), 70);
  }
  auto stream = Open("a.htm", IoMode::kForWriting);
  stream->Write(u"new");
  {
    const FileHandle viewer = OpenElsewhere("a.htm", GENERIC_READ, FILE_SHARE_READ);
    const Error error = ErrorOf([&] { stream->Close(); });
    EXPECT_EQ(error.number(), 70) << "opened meanwhile: " << error.what();
  }
  EXPECT_EQ(folder_.Read("a.htm"), "old");
  EXPECT_EQ(folder_.Count(), 1) << "nothing is left behind";
  const FileHandle exclusive = OpenElsewhere("a.htm", GENERIC_READ, 0);
  EXPECT_EQ(ErrorOf([&] { Open("a.htm", IoMode::kForReading); }).number(), 70);
}

TEST_F(WindowsFiles, ReadOnlyFilesInUseKeepTheirMark) {
  folder_.Write("a.tmp", "x");
  folder_.MakeReadOnly("a.tmp");
  const auto lock = files_.LockFile(folder_.TextPath("a.tmp"));
  files_.ClearFolder(FromUtf8(folder_.path()), u"*");
  EXPECT_EQ(ErrorOf([&] { Open("a.tmp", IoMode::kForWriting); }).number(), 70);
  EXPECT_NE(GetFileAttributesW(Wide(folder_.TextPath("a.tmp"))) & FILE_ATTRIBUTE_READONLY, 0U);
}

TEST_F(WindowsFiles, LockedFilesAreOpenToOthers) {
  folder_.Write("data.txt", "x");
  const auto lock = files_.LockFile(folder_.TextPath("data.txt"));
  EXPECT_TRUE(OpenElsewhere("data.txt", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE));
  EXPECT_TRUE(OpenElsewhere("data.txt", GENERIC_READ, FILE_SHARE_READ));
  EXPECT_FALSE(OpenElsewhere("data.txt", DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE));
}

TEST_F(WindowsFiles, PathsMayBeOfAnyLength) {
  Text folder = FromUtf8(folder_.path());
  std::vector<Text> folders;
  for (int level = 0; level < 8; ++level) {
    folder.append(u"\\příliš žluťoučký kůň úpěl ďábelské ódy ").append(DecimalText(level));
    files_.CreateFolder(folder);
    folders.push_back(folder);
  }
  ASSERT_GT(folder.size(), 300U);
  const Text path = folder + u"\\a.txt";
  const auto stream = files_.OpenTextFile(path, IoMode::kForWriting, true, TextFormat::kUtf8);
  stream->WriteLine(u"ž");
  stream->Close();
  ASSERT_EQ(files_.Files(folder).size(), 1U);
  EXPECT_EQ(Shown(files_.Files(folder)[0].path), Shown(path));
  EXPECT_TRUE(files_.FileExists(path));
  EXPECT_EQ(files_.OpenTextFile(path, IoMode::kForReading, false, TextFormat::kUtf8)->ReadLine(), u"ž");
  files_.ClearFolder(folder, u"*.txt");
  EXPECT_TRUE(files_.Files(folder).empty());
  for (; !folders.empty(); folders.pop_back()) EXPECT_TRUE(RemoveDirectoryW(Wide(NativePath(folders.back()))));
}

TEST_F(WindowsFiles, OnlyLongPathsTakeTheLongForm) {
  const Text part(200, u'x');
  const Text tail = part + u"\\" + part;
  const std::pair<Text, Text> rows[] = {
      {u"C:/a/../b.txt", u"C:\\b.txt"},
      {u"\\\\server\\share\\a", u"\\\\server\\share\\a"},
      {u"C:\\" + tail, u"\\\\?\\C:\\" + tail},
      {u"\\\\server\\share/" + tail, u"\\\\?\\UNC\\server\\share\\" + tail},
      {u"\\\\?\\C:\\" + tail, u"\\\\?\\C:\\" + tail},
  };
  for (const auto& [path, expected] : rows) EXPECT_EQ(Shown(NativePath(path)), Shown(expected));
}

TEST_F(WindowsFiles, FilesTellTheLocalTime) {
  folder_.Write("a", "x");
  const double written = files_.Files(FromUtf8(folder_.path()))[0].lastModified.serial;
  EXPECT_NEAR(written, win32::SystemClock().Now().serial, 5.0 / 1440) << "within minutes";
}

TEST_F(WindowsFiles, EntriesOfSeveralWritersNeverMix) {
  constexpr std::size_t kLength = 150000;
  folder_.Write("log", "");
  const auto reader = Open("log", IoMode::kForReading);  // whoever reads holds nobody up
  std::vector<std::thread> writers;
  for (char16_t letter = u'a'; letter < u'e'; ++letter) {
    writers.emplace_back([&, letter] {
      for (int entry = 0; entry < 5; ++entry) {
        auto stream = Open("log", IoMode::kForAppending);
        stream->WriteLine(Text(kLength, letter));
        stream->Close();
      }
    });
  }
  for (std::thread& writer : writers) writer.join();
  int whole = 0;
  for (const auto log = Open("log", IoMode::kForReading); !log->AtEndOfStream(); ++whole) {
    const Text line = log->ReadLine();
    ASSERT_EQ(line.size(), kLength);
    ASSERT_EQ(line.find_first_not_of(line[0]), Text::npos);
  }
  EXPECT_EQ(whole, 20);
}

constexpr const char* kVictim = "ZORKANCA_TEST_VICTIM";

// Run by the test below in a process of its own, which ends in the middle of writing.
TEST_F(WindowsFiles, DISABLED_WritesAndIsKilled) {
  const char* const path = std::getenv(kVictim);
  ASSERT_NE(path, nullptr);
  const auto stream = files_.OpenTextFile(FromUtf8(path), IoMode::kForWriting, true, TextFormat::kAnsi);
  stream->Write(Text(200000, u'x'));
  TerminateProcess(GetCurrentProcess(), 7);
}

TEST_F(WindowsFiles, KilledWriterLeavesNothing) {
  folder_.Write("a", "old");
  SetEnvironmentVariableW(L"ZORKANCA_TEST_VICTIM", Wide(folder_.TextPath("a")));
  wchar_t program[MAX_PATH];
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  Text line = Text(u"\"")
                  .append(FromWide(program))
                  .append(u"\" --gtest_also_run_disabled_tests --gtest_filter=WindowsFiles.DISABLED_WritesAndIsKilled");
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  ASSERT_TRUE(CreateProcessW(nullptr, reinterpret_cast<wchar_t*>(line.data()), nullptr, nullptr, FALSE, 0, nullptr,
                             nullptr, &start, &process));
  EXPECT_EQ(WaitForSingleObject(process.hProcess, 30000), WAIT_OBJECT_0);
  DWORD code = 0;
  GetExitCodeProcess(process.hProcess, &code);
  EXPECT_EQ(code, 7U);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  EXPECT_EQ(folder_.Read("a"), "old");
  EXPECT_EQ(folder_.Count(), 1);
}

}  // namespace
}  // namespace zorkanca::testing
