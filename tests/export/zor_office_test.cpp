#include "export/zor_office.h"

#include <gtest/gtest.h>

#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(ZorOffice, CreationMakesAndClearsTheWorkFolder) {
  MemoryPlatform computer;
  {
    const cZorOffice office(computer.platform);
    EXPECT_EQ(office.WorkFolder(), u"C:\\Temp\\Zorix");
    EXPECT_EQ(office.PercentInterval(), 1.0f);
    EXPECT_EQ(office.Multiplier(), u"");
    EXPECT_EQ(office.BlankRecordsBefore(), 0);
  }
  computer.files.Put(u"C:\\Temp\\Zorix\\rad12345.TMP", "x");
  computer.files.Put(u"C:\\Temp\\Zorix\\tabulka.htm", "x");
  computer.files.Put(u"C:\\Temp\\jiny.tmp", "x");
  const cZorOffice office(computer.platform);
  EXPECT_EQ(computer.files.Paths(), (std::vector<Text>{u"C:\\Temp\\jiny.tmp", u"C:\\Temp\\Zorix\\tabulka.htm"}));

  MemoryPlatform broken;
  broken.files.FailFromCall(1);
  EXPECT_EQ(ErrorOf([&] { const cZorOffice failing(broken.platform); }).number(), 70);
}

TEST(ZorOffice, SettingsAreLeadingNumbersOfTexts) {
  const struct {
    RegistryValue value;
    bool setting;
  } kCases[] = {{Text(u"1"), true}, {Text(u"2"), true},    {Text(u" -1x"), true}, {Text(u"0"), false},
                {Text(u""), false}, {Text(u"ano"), false}, {Text(u"0,5"), false}, {std::int32_t{1}, true}};
  for (const auto& row : kCases) {
    MemoryPlatform computer;
    computer.registry.Write(RegistryHive::kLocalMachine, u"SOFTWARE\\QRD\\Zorix\\Instalace\\ZorKancA",
                            u"WordVisibleWithinDataProcess", row.value);
    const OfficeSettings settings = ReadOfficeSettings(computer.registry);
    EXPECT_EQ(settings.WordVisibleWithinDataProcess, row.setting);
    EXPECT_FALSE(settings.ExcelVisibleWithinDataProcess);
    EXPECT_FALSE(settings.XlPasteFormulasNoClipboard);
  }
}

TEST(ZorOffice, SeparatorsAreReadOffANumber) {
  const auto separators = [](TextView tag) { return FindNumberSeparators(*FindLocale(tag)); };
  EXPECT_EQ(separators(u"cs-CZ").grouping, u'\x00A0');
  EXPECT_EQ(separators(u"cs-CZ").decimal, u',');
  EXPECT_EQ(separators(u"en-US").grouping, u',');
  EXPECT_EQ(separators(u"en-US").decimal, u'.');
  Locale ungrouped = *FindLocale(u"cs-CZ");
  ungrouped.groupSeparator.clear();
  EXPECT_EQ(FindNumberSeparators(ungrouped).grouping, u' ');
  EXPECT_EQ(FindNumberSeparators(ungrouped).decimal, u',');
}

}  // namespace
}  // namespace zorkanca::testing
