#include "xmltemplate/template_factory.h"

#include <gtest/gtest.h>

#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

constexpr TextView kTemplate = u"C:\\Temp\\vzor.xml";
constexpr TextView kOutput = u"C:\\Temp\\sesit.xml";

// A template of two sheets, "|" for line ends.
constexpr char kTwoSheets[] =
    "<?xml version=\"1.0\"?>|<Workbook><!-- autor | -->|  ||"
    " <? ZRX_xls #WORKSHEET_BEGIN# ?> | \t |"
    "  <Worksheet ss:Name=\"#worksheet_name#( Faktura )\"><Table>|"
    "<Cell><Data><?zrx_xls #GD-C1-c[***]-R1-r[***]-# ?></Data></Cell><?other #worksheet_end#?>|"
    "</Table></Worksheet>|  |<?zrx_xls #worksheet_end# ?>| mezi listy |"
    "<?zrx_xls x #worksheet_begin#?><Worksheet ss:Name='bez jména'/><!-- a --><?zrx_xls #worksheet_end# ?>||"
    "</Workbook>|  |konec";

class TemplateFactoryTest : public ::testing::Test {
 protected:
  static std::string WithLineEnds(std::string text) {
    for (std::size_t at = text.find('|'); at != std::string::npos; at = text.find('|', at)) text.replace(at, 1, "\r\n");
    return text;
  }
  bool Read(const std::string& bytes) {
    platform_.files.Put(kTemplate, WithLineEnds(bytes));
    return factory_.ReadTemplateFile(kTemplate);
  }
  std::string Saved() {
    EXPECT_TRUE(factory_.SaveWorkbook(kOutput));
    return platform_.files.Bytes(kOutput).value_or("no file");
  }
  // The messages shown since the last call, one after another.
  std::string Messages() {
    std::string all;
    for (const std::string& line : std::exchange(platform_.journal, {})) all += line + "\n";
    return all;
  }
  // A message under the exclamation icon, its text for a title as well.
  static std::string Exclamation(const std::string& text) { return "message 48 [" + text + "] " + text + "\n"; }

  MemoryPlatform platform_;
  cExcel2003XmlTemplateFactory factory_{platform_.platform};
};

TEST_F(TemplateFactoryTest, SavesTheSheetsBetweenHeaderAndFooter) {
  ASSERT_TRUE(Read(kTwoSheets));
  const WorksheetReference first = factory_.AddWorksheet(u"Řád 1", u"FAKTURA ");
  ASSERT_TRUE(first);
  EXPECT_EQ(first->WorksheetName(), u"Řád 1");
  first->SetDataIntoTaggedCell(u"ž€", {.ColSign = 1, .RowSign = 1});
  ASSERT_TRUE(factory_.AddWorksheet(u"druhý", u"2"));
  const std::string saved = WithLineEnds(
      "<?xml version=\"1.0\"?>|<Workbook>|"
      "  <Worksheet ss:Name=\"\xC5\x98\xC3\xA1"
      "d 1\"><Table>|"
      "<Cell><Data>\xC5\xBE\xE2\x82\xAC</Data></Cell><?other #worksheet_end#?>|</Table></Worksheet>|"
      "<Worksheet ss:Name='bez jm\xC3\xA9na'/>|</Workbook>|konec");
  EXPECT_EQ(Saved(), saved);
  EXPECT_EQ(Saved(), saved) << "the second time";
  EXPECT_EQ(Messages(), "");
}

TEST_F(TemplateFactoryTest, EveryByteOfTheTemplateComesOut) {
  std::string bytes = "<?zrx_xls #worksheet_begin# ?>";
  for (int byte = 1; byte < 256; ++byte) bytes.push_back(static_cast<char>(byte));
  platform_.files.Put(kTemplate, bytes + "<?zrx_xls #worksheet_end# ?>");
  ASSERT_TRUE(factory_.ReadTemplateFile(kTemplate));
  ASSERT_TRUE(factory_.AddWorksheet(u"x"));
  EXPECT_EQ(Saved(), "\r\n" + bytes.substr(30) + "\r\n");
}

TEST_F(TemplateFactoryTest, ChoosesTheTemplateSheetByItsKey) {
  ASSERT_TRUE(Read(kTwoSheets));
  const auto adding = [](const std::string& error) {
    return Exclamation("Došlo k chybě při přidávání listu \"L\"\r\n" + error);
  };
  const auto unknown = [](const std::string& key) {
    return Exclamation("List s označením \"" + key + "\" nebyl v šabloně nalezen\u00A0!");
  };
  const struct {
    TextView key;
    bool isFirst;
    std::string messages;
  } rows[] = {
      {u"", true, ""},
      {u"faktura", true, ""},
      {u"1", true, ""},
      {u" 1,5", true, ""},
      {u"2", false, ""},
      {u" ", false, ""},  // equals the missing key of the second sheet
      {u"0", false, adding("9 - Subscript out of range")},
      {u"3", false, adding("9 - Subscript out of range")},
      {u"3000000000", false, adding("6 - Overflow")},
      {u"příloha", false, unknown("příloha")},
  };
  for (const auto& row : rows) {
    const WorksheetReference worksheet = factory_.AddWorksheet(u"L", row.key);
    EXPECT_EQ(Messages(), row.messages) << Shown(row.key);
    EXPECT_EQ(worksheet == nullptr, !row.messages.empty()) << Shown(row.key);
    const bool isFirst = worksheet && worksheet->XmlCode().find(u"Table") != Text::npos;
    EXPECT_EQ(isFirst, row.isFirst) << Shown(row.key);
  }
  EXPECT_EQ(factory_.Worksheets().Count(), 10) << "worksheets that failed stay";
  EXPECT_EQ(factory_.Worksheets().Item(10)->XmlCode(), u"");
}

TEST_F(TemplateFactoryTest, BadTemplates) {
  EXPECT_FALSE(factory_.ReadTemplateFile(u"C:\\Temp\\neni.xml"));
  EXPECT_EQ(Messages(), "message 16 [] Došlo k chybě při otevírání souboru šablony: \r\n53 - File not found\n");
  EXPECT_FALSE(factory_.SaveWorkbook(kOutput));
  EXPECT_EQ(Messages(), Exclamation("Není definován ani jeden list!"));

  const std::string adding = "Došlo k chybě při přidávání listu \"L\"\r\n";
  EXPECT_TRUE(Read("no marker at all"));
  EXPECT_FALSE(factory_.AddWorksheet(u"L"));
  EXPECT_EQ(Messages(), Exclamation(adding + "9 - Subscript out of range"));

  const std::string begin = "<?zrx_xls #worksheet_begin# ?>";
  for (const std::string sheet : {"a \"#worksheet_name#(x)",                        // never closed
                                  "<?zrx_xls #worksheet_section_begin(40000)# ?>",  // beyond 16 bits
                                  "<?zrx_xls #worksheet_section_begin(1)# #worksheet_section_end(1)# ?>"}) {  // crossed
    EXPECT_TRUE(Read(begin + sheet + "<?zrx_xls #worksheet_end# ?>"));
    EXPECT_FALSE(factory_.AddWorksheet(u"L"));
    EXPECT_EQ(Messages().rfind("message 48 [" + adding, 0), 0u) << sheet;
  }

  // A sheet without an end is a sheet, and the footer as well; so is one whose begin marker is cut off.
  cExcel2003XmlTemplateFactory factory(platform_.platform);
  platform_.files.Put(kTemplate, "head" + begin + "body<?zrx_xls #worksheet_end#");
  ASSERT_TRUE(factory.ReadTemplateFile(kTemplate));
  ASSERT_TRUE(factory.AddWorksheet(u"L"));
  ASSERT_TRUE(factory.SaveWorkbook(kOutput));
  EXPECT_EQ(platform_.files.Bytes(kOutput),
            "head\r\nbody<?zrx_xls #worksheet_end#\r\n" + begin + "body<?zrx_xls #worksheet_end#");
}

TEST_F(TemplateFactoryTest, SavingFails) {
  ASSERT_TRUE(Read("<?zrx_xls #worksheet_begin# ?><Worksheet >no table<?zrx_xls #worksheet_end# ?>"));
  const WorksheetReference worksheet = factory_.AddWorksheet(u"L");
  EXPECT_FALSE(factory_.SaveWorkbook(u"C:\\neni\\sesit.xml"));
  EXPECT_EQ(Messages(), Exclamation("Došlo k chybě při ukládání XML dokumentu: \r\n76 - Path not found"));

  worksheet->SetColumnWidth(1, 10);
  EXPECT_FALSE(factory_.SaveWorkbook(kOutput));
  EXPECT_EQ(Messages(), Exclamation("Došlo k chybě při sestavování XML dokumentu: \r\n"
                                    "5 - The worksheet has no table for its column widths"));
  EXPECT_EQ(platform_.files.Bytes(kOutput), std::nullopt);
}

TEST_F(TemplateFactoryTest, Worksheets) {
  ASSERT_TRUE(Read(kTwoSheets));
  for (const TextView name : {u"Žába", u"b", u"žába"}) factory_.AddWorksheet(Text(name));
  cExcel2003XmlWorksheets& worksheets = factory_.Worksheets();
  EXPECT_EQ(worksheets.Item(u"ŽÁBA"), worksheets.Item(1));
  EXPECT_EQ(ErrorOf([&] { worksheets.Item(4); }).number(), 9);
  EXPECT_EQ(ErrorOf([&] { worksheets.Item(u"c"); }).number(), 5);
  worksheets.Remove(1);
  EXPECT_EQ(ErrorOf([&] { worksheets.Item(u"žába"); }).number(), 5) << "the third one was added without the name";
  worksheets.Remove(u"B");
  EXPECT_EQ(worksheets.Count(), 1);
  EXPECT_EQ((*worksheets.begin())->WorksheetName(), u"žába");
}

}  // namespace
}  // namespace zorkanca::testing
