// Opening documents and starting programs, with programs of our own; searching trees.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <functional>
#include <thread>

#include "host/desktop/desktop_shell.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

class Desktop : public ::testing::Test {
 protected:
  Desktop() : path_(std::getenv("PATH")) { setenv("PATH", (folder_.path() + ":" + path_).c_str(), 1); }
  ~Desktop() override { setenv("PATH", path_.c_str(), 1); }

  void InstallOpener(const std::string& script) { InstallProgram("xdg-open", script); }
  void InstallProgram(const std::string& name, const std::string& script) {
    folder_.Write(name, "#!/bin/sh\n" + script + "\n");
    chmod(folder_.Path(name).c_str(), 0755);
  }
  static bool NoChildIsLeft() {
    siginfo_t child{};
    return waitid(P_ALL, 0, &child, WEXITED | WNOWAIT | WNOHANG) == -1;
  }
  static bool Until(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!condition() && std::chrono::steady_clock::now() < end) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return condition();
  }

  std::string path_;
  TemporaryFolder folder_;
};

TEST_F(Desktop, HandsOverTheAbsolutePathAsItIs) {
  InstallOpener("printf '%s|' \"$#\" \"$1\" > \"${0%/*}/called\"");
  const std::string name = "-a $(x) 'ž\".txt";
  folder_.Write(name, "");
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.path());
  DesktopShell(std::chrono::seconds(10)).OpenDocument(FromUtf8(name));
  std::filesystem::current_path(before);
  EXPECT_EQ(folder_.Read("called"), "1|" + folder_.Path(name) + "|");
}

TEST_F(Desktop, FailuresAreTold) {
  DesktopShell shell(std::chrono::seconds(10));
  folder_.Write("a.txt", "");
  InstallOpener("exit 3");
  const Error failed = ErrorOf([&] { shell.OpenDocument(folder_.TextPath("a.txt")); });
  EXPECT_EQ(failed.number(), 5);
  EXPECT_EQ(Shown(failed.description()),
            "xdg-open could not open " + folder_.Path("a.txt") + ": no program for this kind of file was found");
  InstallOpener("kill -9 $$");
  EXPECT_EQ(ErrorOf([&] { shell.OpenDocument(folder_.TextPath("a.txt")); }).number(), 5);
  EXPECT_EQ(ErrorOf([&] { shell.OpenDocument(folder_.TextPath("none")); }).number(), 53);
  std::filesystem::remove(folder_.Path("xdg-open"));
  setenv("PATH", folder_.path().c_str(), 1);
  const Error missing = ErrorOf([&] { shell.OpenDocument(folder_.TextPath("a.txt")); });
  EXPECT_EQ(missing.number(), 53);
  EXPECT_EQ(Shown(missing.description()), "xdg-open, which opens documents, is not installed (package xdg-utils)");
}

TEST_F(Desktop, CommandLinesAreDividedAtBlanksOutsideQuotes) {
  InstallProgram("my program", "for word; do printf '%s|' \"$word\"; done > \"${0%/*}/said\"; : > \"${0%/*}/done\"");
  struct Row {
    TextView arguments;
    const char* words;
  };
  const Text program = Text(u"\"").append(folder_.TextPath("my program")).append(u"\" ");
  const Row rows[] = {
      {u"", ""},
      {u"a  b\tc ", "a|b|c|"},
      {u"\"a b\" \"\" c\"d e\"f", "a b||cd ef|"},
      {u"\"žluťoučký kůň.xlsx\"", "žluťoučký kůň.xlsx|"},
      {u"$HOME `ls` ;rm * 'a' \\x", "$HOME|`ls`|;rm|*|'a'|\\x|"},  // no shell reads the line
  };
  for (const Row& row : rows) {
    std::filesystem::remove(folder_.Path("done"));
    DesktopShell().StartCommandLine(Text(program).append(row.arguments));
    ASSERT_TRUE(Until([&] { return folder_.Has("done"); }));
    EXPECT_EQ(folder_.Read("said"), row.words);
  }
  EXPECT_TRUE(Until(NoChildIsLeft)) << "a dead child was left in the table";
}

TEST_F(Desktop, ProgramsThatCannotBeStartedAreTold) {
  DesktopShell shell;
  for (const TextView line : {u"", u"  ", u"\"\" a", u"no-such-program-here a", u"\"/no/such/program\" a"}) {
    EXPECT_EQ(ErrorOf([&] { shell.StartCommandLine(line); }).number(), 53) << ToUtf8(line);
  }
  folder_.Write("document", "no program");
  const Error refused = ErrorOf([&] { shell.StartCommandLine(folder_.TextPath("document")); });
  EXPECT_EQ(refused.number(), 5);
  EXPECT_EQ(Shown(refused.description()), folder_.Path("document") + " could not be started: Permission denied");
  EXPECT_EQ(ErrorOf([&] { shell.StartCommandLine(folder_.TextPath("")); }).number(), 5) << "a folder";
  EXPECT_TRUE(Until(NoChildIsLeft));
}

TEST_F(Desktop, TreesAreSearchedPastWhatCannotBeRead) {
  std::filesystem::create_directories(folder_.Path("a/wanted"));  // a folder of that name is no file
  std::filesystem::create_directories(folder_.Path("b/c"));
  folder_.Write("b/c/wanted", "");
  std::filesystem::create_directory_symlink("..", folder_.Path("b/loop"));
  DesktopShell shell;
  EXPECT_EQ(Shown(shell.SearchTree(folder_.TextPath(""), u"wanted")), folder_.Path("b/c/wanted"));
  EXPECT_EQ(Shown(shell.SearchTree(folder_.TextPath("b") + u"\\c", u"wanted")), folder_.Path("b/c/wanted"));
  EXPECT_EQ(Shown(shell.SearchTree(folder_.TextPath(""), u"missing")), "");
  EXPECT_EQ(Shown(shell.SearchTree(folder_.TextPath("none"), u"wanted")), "");
  EXPECT_EQ(Shown(shell.SearchTree(u"", u"wanted")), "");
}

TEST_F(Desktop, RunningOpenerIsLeftAloneAndCollectedLater) {
  InstallOpener("while [ ! -e \"${0%/*}/stop\" ]; do sleep 0.02; done; exit 4");
  folder_.Write("a.txt", "");
  DesktopShell(std::chrono::milliseconds(50)).OpenDocument(folder_.TextPath("a.txt"));
  siginfo_t child{};
  EXPECT_EQ(waitid(P_ALL, 0, &child, WEXITED | WNOWAIT | WNOHANG), 0) << "still there";
  folder_.Write("stop", "");
  EXPECT_TRUE(Until(NoChildIsLeft)) << "a dead child was left in the table";
}

TEST_F(Desktop, QuotedProgramsAndFilesArriveAsTheyAre) {
  const std::string program = folder_.Path("my \"office\" scalc");
  folder_.Write("my \"office\" scalc",
                "#!/bin/sh\nprintf '%s|' \"$@\" > \"${0%/*}/part\"\nmv \"${0%/*}/part\" \"${0%/*}/called\"\n");
  DesktopShell shell;
  EXPECT_FALSE(shell.IsProgram(FromUtf8(program))) << "it may not be started";
  Text line(u"\"");
  line.append(Replace(FromUtf8(program), u"\"", u"\"\"")).append(u"\" \"a  \"\"b\"\" $(c).xls\" \"\" d");
  EXPECT_EQ(ErrorOf([&] { shell.StartCommandLine(line); }).number(), 5);
  chmod(program.c_str(), 0755);
  EXPECT_TRUE(shell.IsProgram(FromUtf8(program)));
  EXPECT_FALSE(shell.IsProgram(folder_.TextPath("")));
  shell.StartCommandLine(line);
  for (int i = 0; i < 1000 && !folder_.Has("called"); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  EXPECT_EQ(folder_.Read("called"), "a  \"b\" $(c).xls||d|");
  EXPECT_EQ(ErrorOf([&] { shell.StartCommandLine(u"\"\" \"a\""); }).number(), 53);
}

TEST_F(Desktop, ProgramsAreFoundInTheSearchPath) {
  setenv("PATH", ("relative::" + folder_.path()).c_str(), 1);
  DesktopShell shell;
  const ProgramPlaces places = shell.Programs();
  EXPECT_EQ(places.extension, u"");
  EXPECT_EQ(places.folders.front(), FromUtf8(folder_.path()));
  EXPECT_THAT(places.folders, ::testing::Contains(Text(u"/usr/lib/libreoffice/program")));
}

}  // namespace
}  // namespace zorkanca::testing
