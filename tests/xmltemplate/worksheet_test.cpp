#include "xmltemplate/worksheet.h"

#include <gtest/gtest.h>

#include "support/memory_platform.h"
#include "support/text_support.h"
#include "xmltemplate/template_factory.h"

namespace zorkanca::testing {
namespace {

class WorksheetTest : public ::testing::Test {
 protected:
  explicit WorksheetTest(TextView locale = u"cs-CZ") : platform_(locale) { sheet_.XmlProcessFactory(&factory_); }

  // A tagged cell's marker: signs of column and row, indices as written.
  static Text Marker(TextView col, TextView colIndex, TextView row, TextView rowIndex) {
    return Text(u"<?zrx_xls #GD-C")
        .append(col)
        .append(u"-c[")
        .append(colIndex)
        .append(u"]-R")
        .append(row)
        .append(u"-r[")
        .append(rowIndex)
        .append(u"]-# ?>");
  }
  static Text Section(TextView number, TextView text) {
    return Text(u"<?zrx_xls #worksheet_section_begin(")
        .append(number)
        .append(u")# ?>")
        .append(text)
        .append(u"<?zrx_xls #worksheet_section_end(")
        .append(number)
        .append(u")# ?>");
  }

  MemoryPlatform platform_;
  cExcel2003XmlTemplateFactory factory_{platform_.platform};
  cExcel2003XmlWorksheet sheet_{u"List", platform_.locale};
};

TEST_F(WorksheetTest, RepeatsAGridAndFillsIt) {
  sheet_.Load(u"<Table>\r\n  <?zrx_xls #grid_rows_(1)_begin# ?>\r\n  <Row>" + Marker(u"1", u"***", u"1", u"***") +
              Marker(u"1", u"***", u"1", u"***") + u"</Row> \r\n  <?zrx_xls #grid_rows_(1)_end# ?>\r\n </Table>");
  sheet_.SetRowsOfTaggedGrid(2, 5);  // there is none
  sheet_.SetRowsOfTaggedGrid(1, 3);
  sheet_.SetDataIntoTaggedCell(u"b", {.ColSign = 1, .RowSign = 1, .ColIndex = 4, .RowIndex = 2});  // the first open one
  sheet_.SetDataIntoTaggedCell(u"a", {.ColSign = 1, .RowSign = 1, .ColIndex = 4, .RowIndex = 2});
  sheet_.SetDataIntoTaggedCell(u"<&>", {.ColSign = 1, .RowSign = 1, .RowIndex = 3});
  const Text open = Marker(u"1", u"***", u"1", u"***");
  EXPECT_EQ(Shown(sheet_.XmlCode()),
            Shown(u"<Table>\r\n   <Row>" + Marker(u"1", u"***", u"1", u"001") + u"b</Row>\r\n   <Row>" +
                  Marker(u"1", u"***", u"1", u"002") + u"a</Row>\r\n   <Row>" + Marker(u"1", u"***", u"1", u"003") +
                  u"<&></Row>\r\n </Table>"));
  EXPECT_EQ(Shown(sheet_.Compose()),
            Shown(u"<Table>\r\n   <Row>b</Row>\r\n   <Row>a</Row>\r\n   <Row><&></Row>\r\n </Table>"));
}

TEST_F(WorksheetTest, IndexedCellsComeBeforeOpenOnes) {
  sheet_.Load(Marker(u"1", u"001", u"-2", u"***") + Marker(u"1", u"***", u"-2", u"001") +
              Marker(u"1", u"***", u"-2", u"***") + Marker(u"1", u"001", u"-2", u"001"));
  const TaggedCell cell{.ColSign = 1, .RowSign = -2};
  for (const TextView data : {u"1", u"2", u"3", u"4", u"none"}) sheet_.SetDataIntoTaggedCell(data, cell);
  EXPECT_EQ(Shown(sheet_.XmlCode()), "4321");
}

TEST_F(WorksheetTest, SetsAttributes) {
  const Text marker = Marker(u"1", u"***", u"1", u"***");
  const struct {
    TextView tag, name, value, changed;
  } rows[] = {
      {u"<Cell>", u"ss:StyleID", u"s1", u"<Cell ss:StyleID=\"s1\">"},
      {u"<CELL ss:X=\"1\">", u"ss:StyleID", u"s1", u"<CELL ss:StyleID=\"s1\" ss:X=\"1\">"},
      {u"<Cell SS:styleid = \"s1\">", u"ss:StyleID", u"s2", u"<Cell SS:styleid = \"s2\">"},
      {u"<Cell ss:StyleID=\"s1\">", u"SS:STYLEID", u"  ", u"<Cell ss:StyleID=\"s1\">"},
      {u"<Cell ss:Xy=\"1\">", u"ss:X", u"", u"<Cell ss:X=\"\" ss:Xy=\"1\">"},
      {u"<Cell ss:X='1'>", u"ss:X", u"2", u"<Cell ss:X='1'>"},              // no double quotes to set it between
      {u"<Cell\r\n ss:X=\"1\">", u"ss:X", u"2", u"<Cell\r\n ss:X=\"1\">"},  // no start tag as they are looked for
  };
  const TaggedCell cell{.ColSign = 1, .RowSign = 1};
  for (const auto& row : rows) {
    sheet_.Load(Text(row.tag) + u"<Data>" + marker);
    sheet_.SetAttributeValueToTaggedCell(row.name, row.value, cell);
    EXPECT_EQ(Shown(sheet_.XmlCode()), Shown(Text(row.changed) + u"<Data>" + marker)) << Shown(row.tag);
  }
  sheet_.Load(u"<Table ss:X=\"1\"><Cell ss:Y = \"ř\"><Data ss:Type=\"String\">a" + marker + u"b</DATA></Cell>");
  EXPECT_EQ(sheet_.GetAttributeValueFromTaggedCell(u"SS:y", cell), u"ř");
  EXPECT_EQ(sheet_.GetAttributeValueFromTaggedCell(u"ss:Z", cell), u"");
  EXPECT_EQ(sheet_.GetAttributeValueFromTable(u"ss:X"), u"1");
  sheet_.SetAttributeValueToTable(u"ss:X", u"2");
  sheet_.RemoveDataFromTaggedCell(cell);
  EXPECT_EQ(sheet_.XmlCode(), u"<Table ss:X=\"2\"><Cell ss:Y = \"ř\"></Cell>");
}

TEST_F(WorksheetTest, TextsThatOnlyTogetherMakeSomething) {
  const TaggedCell cell{.ColSign = 1, .RowSign = 1};
  const Text marker = Marker(u"1", u"***", u"1", u"***");
  const Text grid = u"<?zrx_xls #grid_rows_(1)_begin# ?>x<?zrx_xls #grid_rows_(1)_end# ?>";
  // A line end whose halves are the cell's data and the template's text.
  sheet_.Load(u"a" + marker + u"\n" + grid);
  sheet_.SetDataIntoTaggedCell(u" \r", cell);
  sheet_.SetRowsOfTaggedGrid(1, 1);
  EXPECT_EQ(Shown(sheet_.XmlCode()), "a\\r\\n   x\\r\\n");
  sheet_.Load(u"a\r" + marker + grid);
  sheet_.SetDataIntoTaggedCell(u"\n", cell);
  sheet_.SetRowsOfTaggedGrid(1, 1);
  EXPECT_EQ(Shown(sheet_.XmlCode()), "a\\r\\n   x\\r\\n");
  // A marker that was cut off, until a value ends it.
  sheet_.Load(u"<?zrx_xls #GD-C1-c[***]-R1-r[***]-# <Table >");
  sheet_.SetAttributeValueToTable(u"ss:X", u"<?zrx_xls #GD-C1-c[***]-R1-r[***]-# ?>");
  sheet_.SetDataIntoTaggedCell(u"x", cell);
  EXPECT_EQ(Shown(sheet_.XmlCode()), "x\" >");
}

TEST_F(WorksheetTest, AddsSections) {
  sheet_.Load(u"[" + Section(u"2", u"\r\n b" + Marker(u"7", u"***", u"7", u"***") + u"\r\n \r\n") + u"|" +
              Section(u"1", u"a") + u"|" + Section(u"3", u"c") + u"|<?zrx_xls #worksheet_section_begin(4)# ?>d]");
  EXPECT_EQ(sheet_.TemplateSections().Count(), 3);
  EXPECT_EQ(sheet_.AddWorksheetSection(4), nullptr);
  const WorksheetSectionReference first = sheet_.AddWorksheetSection(2);
  sheet_.AddWorksheetSection(1);
  const WorksheetSectionReference second = sheet_.AddWorksheetSection(2);
  sheet_.AddWorksheetSection(2);
  EXPECT_EQ(second->SectionNumber(), 2);
  EXPECT_EQ(second->Index(), 2);
  EXPECT_EQ(sheet_.Sections().Item(2, 2), second);
  EXPECT_EQ(ErrorOf([&] { sheet_.Sections().Item(3, 1); }).number(), 5);
  first->SetDataIntoTaggedCell(u"1", {.ColSign = 7, .RowSign = 7});
  second->SetDataIntoTaggedCell(u"2", {.ColSign = 7, .RowSign = 7});
  EXPECT_EQ(Shown(sheet_.Compose()), "[ b1\\r\\n b2\\r\\n b|a||d]");

  sheet_.Sections().Remove(2, 1);
  EXPECT_EQ(sheet_.AddWorksheetSection(2)->Index(), 4);
  EXPECT_EQ(Shown(sheet_.Compose()), "[ b2\\r\\n b\\r\\n b|a||d]");
}

TEST_F(WorksheetTest, SetsColumnWidths) {
  const Error error = ErrorOf([&] { sheet_.SetColumnWidth(0, 10); });
  EXPECT_EQ(error.number(), -9999);
  EXPECT_EQ(error.description(), u"Hodnotu indexu sloupce listu je nutno zadávat od 1\u00A0!");
  sheet_.Load(u"<Column ss:Width=\"1\"/><Worksheet ss:Name=\"a\"><Table><Column ss:Width=\"9\"/><Row/>");
  sheet_.SetColumnWidth(3, 40);
  EXPECT_EQ(Shown(sheet_.Compose()),
            "<Column ss:Width=\"1\"/><Worksheet ss:Name=\"a\"><Table><Column ss:Width=\"9\"/>"
            "\\r\\n   <Column/>\\r\\n   <Column ss:AutoFitWidth=\"0\" ss:Width=\"40\"/><Row/>");
  sheet_.SetColumnWidth(1, 0.5f, true);
  sheet_.SetColumnWidth(2, -1);
  EXPECT_EQ(Shown(sheet_.Compose()),
            "<Column ss:Width=\"1\"/><Worksheet ss:Name=\"a\"><Table><Column ss:AutoFitWidth=\"1\" ss:Width=\"0.5\"/>"
            "\\r\\n   <Column ss:AutoFitWidth=\"0\"/>\\r\\n   <Column ss:AutoFitWidth=\"0\" ss:Width=\"40\"/><Row/>");
}

TEST_F(WorksheetTest, NeedsItsFactory) {
  sheet_.Load(Section(u"1", u"x"));
  const WorksheetSectionReference section = sheet_.AddWorksheetSection(1);
  sheet_.XmlProcessFactory(nullptr);
  section->XmlProcessFactory(nullptr);
  EXPECT_EQ(ErrorOf([&] { sheet_.SetRowsOfTaggedGrid(1, 1); }).number(), 91);
  EXPECT_EQ(ErrorOf([&] { section->SetColsOfTaggedGrid(1, 1); }).number(), 91);
}

}  // namespace
}  // namespace zorkanca::testing
