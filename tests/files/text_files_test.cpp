// Text files of Linux: links, permissions, devices, full disks and several programs at once.
#include <fcntl.h>
#include <gtest/gtest.h>

#include "files/atomic_file.h"
#include "files/linux_file_system.h"
#include "support/child_process.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

using std::string_view_literals::operator""sv;
using Staging = AtomicFile::Staging;

class TextFiles : public ::testing::Test {
 protected:
  std::unique_ptr<TextStream> Open(const std::string& name, IoMode mode, bool create = true,
                                   TextFormat format = TextFormat::kAnsi) {
    return files_.OpenTextFile(FromUtf8(name.starts_with('/') ? name : folder_.Path(name)), mode, create, format);
  }
  void Append(const std::string& name, TextView text, TextFormat format = TextFormat::kAnsi) {
    auto stream = Open(name, IoMode::kForAppending, true, format);
    stream->Write(text);
    stream->Close();
  }

  TemporaryFolder folder_;
  LinuxFileSystem files_{CodePage::Get(1250)};
};

TEST_F(TextFiles, ReplacementIsWholeOrNotAtAll) {
  for (const Staging staging : {Staging::kUnnamed, Staging::kNamed}) {
    const std::ptrdiff_t hidden = staging == Staging::kNamed ? 1 : 0;
    folder_.Write("real", "old");
    chmod(folder_.Path("real").c_str(), 0640);
    std::filesystem::remove(folder_.Path("link"));
    std::filesystem::create_symlink("real", folder_.Path("link"));
    {
      AtomicFile abandoned(folder_.Path("link"), {.staging = staging});
      abandoned.Write("new");
      EXPECT_EQ(folder_.Count(), 2 + hidden);
    }
    EXPECT_EQ(folder_.Count(), 2);
    {
      AtomicFile file(folder_.Path("link"), {.staging = staging, .durability = AtomicFile::Durability::kSynced});
      file.Write("new");
      files_.ClearFolder(FromUtf8(folder_.path()), u".*");
      EXPECT_EQ(folder_.Count(), 2 + hidden) << "a file being written is in use";
      EXPECT_EQ(folder_.Read("real"), "old");
      file.Commit();
      files_.ClearFolder(FromUtf8(folder_.path()), u"real");
      EXPECT_EQ(folder_.Read("real"), "new") << "locked until the writer is gone";
    }
    EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path("link")));
    EXPECT_EQ(folder_.Mode("real"), 0640u);
    EXPECT_EQ(folder_.Count(), 2);
  }
  std::filesystem::remove(folder_.Path("real"));
  Open("link", IoMode::kForWriting)->Close();
  EXPECT_TRUE(folder_.Has("real")) << "a link to a missing file makes it";
}

TEST_F(TextFiles, KilledWriterLeavesNothing) {
  folder_.Write("a", "old");
  EXPECT_EQ(ExitOf(StartChild([&] {
              auto stream = Open("a", IoMode::kForWriting);
              stream->Write(Text(200000, u'x'));
              return raise(SIGKILL);
            })),
            -SIGKILL);
  EXPECT_EQ(folder_.Count(), 1);
  EXPECT_EQ(folder_.Read("a"), "old");
}

TEST_F(TextFiles, NewFilesFollowTheUmask) {
  const mode_t before = umask(027);
  Open("new", IoMode::kForWriting)->Close();
  Append("log", u"x");
  AtomicFile named(folder_.Path("named"), {.staging = Staging::kNamed});
  named.Commit();
  umask(before);
  for (const char* name : {"new", "log", "named"}) EXPECT_EQ(folder_.Mode(name), 0640u) << name;
}

TEST_F(TextFiles, ClosedFoldersAndCirclesOfLinksAreRefused) {
  folder_.MakeFolder("closed");
  chmod(folder_.Path("closed").c_str(), 0555);
  std::filesystem::create_symlink("circle", folder_.Path("circle"));
  const std::tuple<const char*, IoMode, int> rows[] = {{"closed/a", IoMode::kForWriting, 70},
                                                       {"closed/a", IoMode::kForAppending, 70},
                                                       {"circle", IoMode::kForWriting, 52}};
  for (const auto& [name, mode, number] : rows) {
    EXPECT_EQ(ErrorOf([&, path = name, how = mode] { Open(path, how); }).number(), number) << name;
  }
  EXPECT_EQ(folder_.Count(), 2);
}

TEST_F(TextFiles, FullDiskIsAnErrorAndKeepsTheOldFile) {
  auto device = Open("/dev/full", IoMode::kForWriting);
  device->Write(u"x");
  EXPECT_EQ(ErrorOf([&] { device->Close(); }).number(), 61);
  device->Close();

  folder_.Write("a", "old");
  EXPECT_EQ(ExitOf(StartChild([&] {
              LimitFileSize(100000);
              auto stream = Open("a", IoMode::kForWriting);
              if (ErrorOf([&] { stream->Write(Text(300000, u'x')); }).number() != 61) return 1;
              if (ErrorOf([&] { stream->Close(); }).number() != 61) return 2;  // not the part that fitted
              if (ErrorOf([&] { Append("a", Text(300000, u'x')); }).number() != 61) return 3;
              return 0;
            })),
            0);
  EXPECT_EQ(folder_.Read("a"), "old");
  EXPECT_EQ(folder_.Count(), 1);
}

TEST_F(TextFiles, DevicesAreWrittenDirectly) {
  mkfifo(folder_.Path("pipe").c_str(), 0666);
  const FileDescriptor end(open(folder_.Path("pipe").c_str(), O_RDONLY | O_NONBLOCK));
  auto stream = Open("pipe", IoMode::kForWriting);
  stream->WriteLine(u"a");
  stream->Close();
  char bytes[8] = {};
  EXPECT_EQ(read(end.get(), bytes, sizeof bytes), 3);
  EXPECT_STREQ(bytes, "a\r\n");
  EXPECT_TRUE(std::filesystem::is_fifo(folder_.Path("pipe")));
}

TEST_F(TextFiles, EntriesOfSeveralProgramsNeverMix) {
  constexpr int kPrograms = 8;
  constexpr int kEntries = 12;
  constexpr std::size_t kLength = 150000;
  folder_.Write("log", "");
  auto reader = Open("log", IoMode::kForReading);  // whoever reads holds nobody up
  std::vector<pid_t> children;
  for (int program = 0; program < kPrograms; ++program) {
    children.push_back(StartChild([&] {
      for (int entry = 0; entry < kEntries; ++entry) {
        Append("log", Text(kLength, static_cast<char16_t>(u'a' + program)) + u"\r\n");
      }
      return 0;
    }));
  }
  for (const pid_t child : children) EXPECT_EQ(ExitOf(child), 0);
  int whole = 0;
  for (reader = Open("log", IoMode::kForReading); !reader->AtEndOfStream(); ++whole) {
    const Text line = reader->ReadLine();
    ASSERT_EQ(line.size(), kLength);
    ASSERT_EQ(line.find_first_not_of(line[0]), Text::npos);
  }
  EXPECT_EQ(whole, kPrograms * kEntries);
}

}  // namespace
}  // namespace zorkanca::testing
