// The shell, the suite's folders, the event log and the clock of Windows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

#include "support/memory_registry.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"
#include "win32/desktop/win32_shell.h"
#include "win32/system.h"
#include "win32/system/system_clock.h"
#include "win32/system/win32_event_log.h"
#include "win32/system/win32_suite_environment.h"
#include "win32/wide_text.h"

namespace zorkanca::testing {
namespace {

class WindowsShell : public ::testing::Test {
 protected:
  TemporaryFolder folder_;
  win32::Win32Shell shell_;
};

TEST_F(WindowsShell, FailuresHaveTheShellsOwnNumbers) {
  EXPECT_EQ(ErrorOf([&] { shell_.OpenDocument(folder_.TextPath("none.txt")); }).number(), 2);
  folder_.Write("a.zorkanca-nobody", "");
  const Error unknown = ErrorOf([&] { shell_.OpenDocument(folder_.TextPath("a.zorkanca-nobody")); });
  EXPECT_EQ(unknown.number(), 31);
  EXPECT_EQ(Shown(unknown.description()),
            folder_.Path("a.zorkanca-nobody") + " could not be opened: no program opens such files");
}

TEST_F(WindowsShell, CommandLinesAreStarted) {
  const Text line =
      Text(u"cmd /c \"echo x>\"\"").append(Replace(folder_.TextPath("said"), u"/", u"\\")).append(u"\"\"\"");
  shell_.StartCommandLine(line);
  for (int tries = 0; tries < 500 && !folder_.Has("said"); ++tries) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  EXPECT_TRUE(folder_.Has("said"));
  for (const TextView missing : {u"", u"  ", u"no-such-program-here a", u"\"C:\\no\\such\\program.exe\" a"}) {
    EXPECT_EQ(ErrorOf([&] { shell_.StartCommandLine(missing); }).number(), 53) << ToUtf8(missing);
  }
  folder_.Write("document.exe", "no program");
  const Text document = Text(u"\"").append(Replace(folder_.TextPath("document.exe"), u"/", u"\\")).append(u"\"");
  EXPECT_EQ(ErrorOf([&] { shell_.StartCommandLine(document); }).number(), 5);
}

TEST_F(WindowsShell, TreesAreSearched) {
  for (const char* name : {"a", "a/Wanted.exe", "b", "b/c"}) folder_.MakeFolder(name);
  folder_.Write("b/c/wanted.exe", "");
  const Text root = Replace(FromUtf8(folder_.path()), u"/", u"\\");
  const Text found = root + u"\\b\\c\\WANTED.exe";
  EXPECT_EQ(Shown(shell_.SearchTree(root, u"WANTED.exe")), Shown(found)) << "a folder of that name is no file";
  EXPECT_EQ(Shown(shell_.SearchTree(root + u"\\", u"WANTED.exe")), Shown(found)) << "no separator twice";
  EXPECT_EQ(shell_.SearchTree(root, u"missing.exe"), u"");
  EXPECT_EQ(shell_.SearchTree(root, u"*.exe"), u"");
  EXPECT_EQ(shell_.SearchTree(root + u"\\none", u"wanted.exe"), u"");
  EXPECT_EQ(shell_.SearchTree(u"", u"wanted.exe"), u"");
}

TEST_F(WindowsShell, ProgramsAndNames) {
  folder_.Write("a.exe", "");
  folder_.Write("a.txt", "");
  folder_.MakeFolder("b.exe");
  EXPECT_TRUE(shell_.IsProgram(folder_.TextPath("A.EXE")));
  for (const char* name : {"a.txt", "b.exe", "none.exe"})
    EXPECT_FALSE(shell_.IsProgram(folder_.TextPath(name))) << name;
  EXPECT_FALSE(shell_.IsProgram(u""));
  EXPECT_EQ(shell_.Programs().extension, u"exe");
  EXPECT_EQ(shell_.LongPathName(u"C:\\none\\a~1.txt"), u"C:\\none\\a~1.txt");
  wchar_t shortened[MAX_PATH];
  folder_.Write("a long name.text", "");
  const Text path = Replace(folder_.TextPath("a long name.text"), u"/", u"\\");
  ASSERT_GT(GetShortPathNameW(win32::Wide(path), shortened, MAX_PATH), 0U);
  EXPECT_TRUE(shell_.LongPathName(win32::FromWide(shortened)).ends_with(u"\\a long name.text"));
}

TEST_F(WindowsShell, ClipboardIsCleared) {
  if (!OpenClipboard(nullptr)) GTEST_FAIL() << "no clipboard";
  EmptyClipboard();
  SetClipboardData(CF_UNICODETEXT, GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 8));
  CloseClipboard();
  EXPECT_TRUE(IsClipboardFormatAvailable(CF_UNICODETEXT));
  shell_.ClearClipboard();
  EXPECT_FALSE(IsClipboardFormatAvailable(CF_UNICODETEXT));
}

TEST(WindowsSuite, FoldersComeFromTheInstallation) {
  MemoryRegistry registry;
  win32::Win32SuiteEnvironment suite(u"4.1.0", registry);
  EXPECT_EQ(suite.VersionText(), u"4.1.0");
  EXPECT_TRUE(suite.LogFolder().ends_with(u"\\Zorix\\Log"));
  EXPECT_EQ(suite.SupplyFolder(), u"C:\\Program Files\\QRD\\Zorix\\Sablony");
  const auto write = [&](TextView name, TextView folder) {
    registry.Write(RegistryHive::kLocalMachine, u"SOFTWARE\\QRD\\Zorix\\Instalace", name, Text(folder));
  };
  write(u"sablony", u"D:\\S\\");
  EXPECT_EQ(suite.SupplyFolder(), u"D:\\S");
  write(u"SupplyFolder", u"E:\\");
  write(u"DefaultPath", u" ");
  EXPECT_EQ(suite.SupplyFolder(), u"E:\\") << "a root keeps its separator";
  EXPECT_EQ(suite.DefaultTemplatesFolder(), u"D:\\S");
}

TEST(WindowsEvents, AnyKindAndLengthIsWritten) {
  win32::Win32EventLog log;
  log.Write(u"Žluťoučký\r\nkůň", kErrorEvent);
  log.Write(Text(100000, u'x'), 77);
}

TEST(WindowsClock, IsTheThreadsOwnAndGoes) {
  win32::SystemClock clock;
  EXPECT_GT(clock.Now().serial, 46000);
  std::int64_t other = clock.ThreadId();
  std::thread([&] { other = clock.ThreadId(); }).join();
  EXPECT_NE(other, clock.ThreadId());
}

}  // namespace
}  // namespace zorkanca::testing
