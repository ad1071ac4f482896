#include "foundation/daily_rollover_file.h"

#include <gtest/gtest.h>

#include "runtime/date.h"
#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

/// The rolls of these tests have nothing to report.
class SilentLog final : public ILogWriter {
 public:
  void WriteMessage(TextView message, std::int32_t) override { ADD_FAILURE() << Shown(message); }
};

class DailyRolloverFileTest : public ::testing::Test {
 protected:
  DailyRolloverFileTest() {
    file.name(u"Log");
    file.Extension(u"txt");
  }

  /// Puts the file of a November day, modified on a day of its own.
  void PutDay(int day, int modified) {
    computer.files.Put(file.BuildRollName(*MakeDate(2026, 11, day)), "", Date{46000.0 + modified});
  }
  void Put(const Text& name, int modified = 0) {
    computer.files.Put(u"C:\\Temp\\" + name, "", Date{46000.0 + modified});
  }
  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const FileEntry& entry : computer.files.Files(u"C:\\Temp")) names.push_back(ToUtf8(entry.name));
    return names;
  }

  MemoryPlatform computer;
  SilentLog log;
  DailyRolloverFile file{computer.platform, log, u"C:\\Temp"};
};

TEST_F(DailyRolloverFileTest, TheNameIsMadeOfItsPartsAndTheDate) {
  const struct {
    TextView folder, name, extension;
    const char* path;
  } rows[] = {
      {u"C:\\Temp", u"Log", u"txt", "C:\\Temp\\Log_2026-11-16.txt"},
      {u"C:\\Temp\\", u"Log", u".txt", "C:\\Temp\\Log_2026-11-16.txt"},
      {u"C:\\Temp", u"", u"txt", "C:\\Temp\\2026-11-16.txt"},
      {u"C:\\Temp", u"Log", u"", "C:\\Temp\\Log_2026-11-16"},
      {u"C:\\Temp", u"", u".", "C:\\Temp\\2026-11-16"},
      {u"", u"a.b", u"..c", "a.b_2026-11-16..c"},
  };
  for (const auto& row : rows) {
    DailyRolloverFile named(computer.platform, log, Text(row.folder));
    named.name(Text(row.name));
    named.Extension(row.extension);
    EXPECT_EQ(ToUtf8(named.BuildCurrentName()), row.path);
  }
  EXPECT_EQ(ToUtf8(file.BuildRollName(*MakeDate(2026, 1, 2, 23, 59, 59))), "C:\\Temp\\Log_2026-01-02.txt");
  EXPECT_EQ(file.RollSuffixDateFormat(), u"yyyy-mm-dd");
  EXPECT_EQ(file.RollingFilesCount(), 14);
}

TEST_F(DailyRolloverFileTest, TheFirstUseOfADayLeavesTheFourteenModifiedLast) {
  for (int day = 1; day <= 15; ++day) PutDay(day, 100 - day);  // the later its day, the older
  PutDay(17, 101);
  EXPECT_TRUE(file.NeedsRoll());
  EXPECT_EQ(ToUtf8(file.GetCurrentAndRollIfNeeded()), "C:\\Temp\\Log_2026-11-16.txt");
  std::vector<std::string> names = Names();
  EXPECT_EQ(names.size(), 14u);
  EXPECT_EQ(names.front(), "Log_2026-11-01.txt");
  EXPECT_EQ(names[12], "Log_2026-11-13.txt");
  EXPECT_EQ(names[13], "Log_2026-11-17.txt");

  PutDay(16, 0);
  file.RollingFilesCount(0);
  EXPECT_FALSE(file.NeedsRoll());
  file.GetCurrentAndRollIfNeeded();
  EXPECT_EQ(Names().size(), 15u) << "once a day is enough";
  computer.clock.now = *MakeDate(2026, 11, 18);
  file.GetCurrentAndRollIfNeeded();
  EXPECT_TRUE(Names().empty());
}

TEST_F(DailyRolloverFileTest, OnlyFilesOfItsOwnNameAreOld) {
  const std::vector<std::string> foreign = {
      "Log_2026-11-1a.txt",  "Log_2026-11-01.txt.bak", "Log_2026-11-02.TXT",      "Log_20261101.txt",
      "Log_2026-11-011.txt", "Log2026-11-01.txt",      "OtherLog_2026-11-01.txt", "log.txt"};
  for (const std::string& name : foreign) Put(FromUtf8(name));
  Put(u"Log_2026-11-01.txt");
  Put(u"Log_0000-99-99.txt");
  EXPECT_EQ(file.FindRolled().Count(), 2);
  file.RollingFilesCount(-1);
  file.Roll();
  EXPECT_EQ(Names().size(), foreign.size());

  Put(u"a#[b]_2026-11-01.t*t");
  Put(u"a1b_2026-11-01.text");
  file.name(u"a#[b]");
  file.Extension(u"t*t");
  ASSERT_EQ(file.FindRolled().Count(), 1) << "what a pattern would understand stands for itself in a name";
  EXPECT_EQ(ToUtf8(file.FindRolled().Item(1).name), "a#[b]_2026-11-01.t*t");
}

TEST_F(DailyRolloverFileTest, AFolderThatIsMissingIsMadeOnUseOnly) {
  file.Folder(u"C:\\Temp\\a\\b");
  EXPECT_EQ(Shown(ErrorOf([&] { file.Roll(); }).source()),
            "[zorKancA].DailyRollFile.Roll->\\r\\n[zorKancA].DailyRollFile.FindRolled->\\r\\n"
            "[zorKancA].FileCollection.GetFromFolder->\\r\\n[zorKancA].FileCollection.AddFromFolder->\\r\\n\\r\\n"
            "[Detaily: folderName = \"C:\\Temp\\a\\b\"]\\r\\n[Detaily: folderName = \"C:\\Temp\\a\\b\"]");
  file.GetCurrentAndRollIfNeeded();
  EXPECT_TRUE(computer.files.FolderExists(u"C:\\Temp\\a\\b"));
}

}  // namespace
}  // namespace zorkanca::testing
