// Rows of a sheet before and after what is done to them, one line each.
#include <gtest/gtest.h>

#include "support/excel_steps.h"

namespace zorkanca::testing {
namespace {

struct RowsCase {
  const char* rows;   // inside of sheetData
  const char* steps;  // see support/excel_steps.h
  const char* after;
};

void ExpectRows(const RowsCase& one, const ExcelParts& others = {}) {
  ExcelFixture fixture;
  ExcelParts parts = others;
  parts.rows = one.rows;
  const ExcelWorkbookReference workbook = fixture.Add(parts);
  const ExcelWorksheetReference sheet = workbook->ActiveSheet();
  ExcelSteps(fixture, *sheet).Run(one.steps);
  EXPECT_EQ(fixture.SavedRows(*workbook), one.after) << one.rows << "\n" << one.steps;
}

// Formats of these tests: 0 plain, 1 with decimals, 2 a date.
TEST(SheetRowsTest, ContentsTakeTheFormatOfTheirPlace) {
  const RowsCase rows[] = {
      // A cell's own format, its row's, its column's, in this order.
      {"<row r=\"1\"><c r=\"A1\" s=\"2\"><v>1</v></c></row>", "edit A1 5",
       "<row r=\"1\"><c r=\"A1\" s=\"2\"><v>5</v></c></row>"},
      {"<row r=\"1\" s=\"1\" customFormat=\"1\"><c r=\"A1\" s=\"2\"/></row>", "edit A1 5 | edit C1 7",
       "<row r=\"1\" s=\"1\" customFormat=\"1\"><c r=\"A1\" s=\"2\"><v>5</v></c><c r=\"C1\" "
       "s=\"1\"><v>7</v></c></row>"},
      {"<row r=\"1\" s=\"1\" customFormat=\"1\"/>", "fill gg 5;6",
       "<row r=\"1\" s=\"1\" customFormat=\"1\"><c r=\"A1\" s=\"1\"><v>5</v></c><c r=\"B1\" "
       "s=\"1\"><v>6</v></c></row>"},
      {"<row r=\"1\" s=\"0\" customFormat=\"1\"/>", "edit D1 5",
       "<row r=\"1\" s=\"0\" customFormat=\"1\"><c r=\"D1\"><v>5</v></c></row>"},
      {"", "edit D1 5 | edit E1 6 | fill g 7",
       "<row r=\"1\"><c r=\"A1\"><v>7</v></c><c r=\"D1\" s=\"1\"><v>5</v></c><c r=\"E1\" s=\"1\"><v>6</v></c></row>"},
      {"<row r=\"1\"/><row r=\"2\" s=\"2\" customFormat=\"1\"/>", "fill gggg 1;2;3;4/5;6;7;8",
       "<row r=\"1\"><c r=\"A1\"><v>1</v></c><c r=\"B1\"><v>2</v></c><c r=\"C1\"><v>3</v></c><c r=\"D1\" s=\"1\">"
       "<v>4</v></c></row><row r=\"2\" s=\"2\" customFormat=\"1\"><c r=\"A2\" s=\"2\"><v>5</v></c><c r=\"B2\" s=\"2\">"
       "<v>6</v></c><c r=\"C2\" s=\"2\"><v>7</v></c><c r=\"D2\" s=\"2\"><v>8</v></c></row>"},
      // Copies of a formatted row keep its format for what is put into them.
      {"<row r=\"1\" s=\"1\" customFormat=\"1\"><c r=\"B1\" s=\"2\"/></row>", "repeat 1 2 | fill gg 5;6/7;8",
       "<row r=\"1\" s=\"1\" customFormat=\"1\"><c r=\"A1\" s=\"1\"><v>5</v></c><c r=\"B1\" s=\"2\"><v>6</v></c></row>"
       "<row r=\"2\" s=\"1\" customFormat=\"1\"><c r=\"A2\" s=\"1\"><v>7</v></c><c r=\"B2\" "
       "s=\"2\"><v>8</v></c></row>"},
      // An import with formats brings its own.
      {"<row r=\"1\" s=\"1\" customFormat=\"1\"><c r=\"A1\" s=\"2\"/></row>", "import gg 5;6",
       "<row r=\"1\" s=\"1\" customFormat=\"1\"><c r=\"A1\"><v>5</v></c><c r=\"B1\"><v>6</v></c></row>"},
      // A format without content stays when its content goes, and an empty field empties.
      {"<row r=\"1\"><c r=\"A1\" s=\"1\"><v>1</v></c><c r=\"B1\" s=\"2\"><v>2</v></c></row>", "edit A1 | fill gg ;",
       "<row r=\"1\"><c r=\"A1\" s=\"1\"/><c r=\"B1\" s=\"2\"/></row>"},
      {"<row r=\"1\"><c r=\"A1\" s=\"1\"><v>1</v></c><c r=\"B1\" s=\"2\"><v>2</v></c></row>", "fill gg 9",
       "<row r=\"1\"><c r=\"A1\" s=\"1\"><v>9</v></c><c r=\"B1\" s=\"2\"><v>2</v></c></row>"},
  };
  for (const RowsCase& row : rows) {
    ExpectRows(row, {.before = "<cols><col min=\"4\" max=\"5\" width=\"9\" style=\"1\"/></cols>"});
  }
}

TEST(SheetRowsTest, FormatsOfRowsAndColumns) {
  // 3 and 4 are what alignment and bold make of 0 and 1.
  const RowsCase rows[] = {
      {"<row r=\"1\"><c r=\"A1\"><v>1</v></c><c r=\"B1\"><v>2</v></c></row>", "align 1 right",
       "<row r=\"1\"><c r=\"A1\" s=\"3\"><v>1</v></c><c r=\"B1\"><v>2</v></c></row>"},
      {"<row r=\"1\"><c r=\"A1\"><v>1</v></c><c r=\"B1\" s=\"1\"><v>2</v></c></row>", "bold 1:1",
       "<row r=\"1\" s=\"3\" customFormat=\"1\"><c r=\"A1\" s=\"3\"><v>1</v></c><c r=\"B1\" "
       "s=\"4\"><v>2</v></c></row>"},
      {"<row r=\"2\"><c r=\"A2\"><v>1</v></c></row>", "bold 1:1",
       "<row r=\"1\" s=\"3\" customFormat=\"1\"/><row r=\"2\"><c r=\"A2\"><v>1</v></c></row>"},
      // What comes later takes the format that is there by then.
      {"", "bold 1:1 | edit B1 5", "<row r=\"1\" s=\"3\" customFormat=\"1\"><c r=\"B1\" s=\"3\"><v>5</v></c></row>"},
      {"", "align 2 left | edit B1 5", "<row r=\"1\"><c r=\"B1\" s=\"3\"><v>5</v></c></row>"},
      {"", "align 2 left | align 2 right | edit B1 5", "<row r=\"1\"><c r=\"B1\" s=\"4\"><v>5</v></c></row>"},
      {"<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>", "repeat 1 2 | bold 2:2",
       "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row><row r=\"2\" s=\"3\" customFormat=\"1\"><c r=\"A2\" s=\"3\"><v>1</v>"
       "</c></row>"},
      {"<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>", "bold 1:1 | repeat 1 2",
       "<row r=\"1\" s=\"3\" customFormat=\"1\"><c r=\"A1\" s=\"3\"><v>1</v></c></row>"
       "<row r=\"2\" s=\"3\" customFormat=\"1\"><c r=\"A2\" s=\"3\"><v>1</v></c></row>"},
  };
  for (const RowsCase& row : rows) ExpectRows(row);
}

TEST(SheetRowsTest, CopiesReplaceWhatTheyCover) {
  const RowsCase rows[] = {
      {"<row r=\"1\"><c r=\"A1\"><v>1</v></c></row><row r=\"2\"><c r=\"C2\"><v>2</v></c></row>", "repeat 1 2",
       "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row><row r=\"2\"><c r=\"A2\"><v>1</v></c></row>"},
      // A row without anything replaces too.
      {"<row r=\"1\"><c r=\"A1\"><v>1</v></c></row><row r=\"3\"><c r=\"A3\"><v>3</v></c></row>", "paste 1:2 3",
       "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row><row r=\"3\"><c r=\"A3\"><v>1</v></c></row>"},
      {"<row r=\"2\"><c r=\"A2\"><v>2</v></c></row><row r=\"4\"><c r=\"A4\"><v>4</v></c></row>", "paste 2:3 3",
       "<row r=\"2\"><c r=\"A2\"><v>2</v></c></row><row r=\"3\"><c r=\"A3\"><v>2</v></c></row>"},
      // Copies of copies, and what was put into a copy before.
      {"<row r=\"1\"><c r=\"A1\"><f>B1</f><v>1</v></c></row>", "repeat 1 2 | paste 1:2 3",
       "<row r=\"1\"><c r=\"A1\"><f>B1</f></c></row><row r=\"2\"><c r=\"A2\"><f>B2</f></c></row>"
       "<row r=\"3\"><c r=\"A3\"><f>B3</f></c></row><row r=\"4\"><c r=\"A4\"><f>B4</f></c></row>"},
      {"<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>", "edit B2 5 | edit C3 6 | repeat 1 2",
       "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row><row r=\"2\"><c r=\"A2\"><v>1</v></c></row>"
       "<row r=\"3\"><c r=\"C3\"><v>6</v></c></row>"},
      {"<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>", "paste 1:1 5 | edit A5 | edit B5 =A5*$A$1",
       "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row><row r=\"5\"><c r=\"A5\"/><c r=\"B5\"><f>A5*$A$1</f></c></row>"},
      // Heights, levels and hiding come along; numbers of cells in the row do not.
      {"<row r=\"1\" spans=\"1:9\" hidden=\"1\" outlineLevel=\"2\" collapsed=\"1\"><c r=\"A1\" s=\"1\"/></row>",
       "repeat 1 2",
       "<row r=\"1\" spans=\"1:9\" hidden=\"1\" outlineLevel=\"2\" collapsed=\"1\"><c r=\"A1\" s=\"1\"/></row>"
       "<row r=\"2\" hidden=\"1\" outlineLevel=\"2\" collapsed=\"1\"><c r=\"A2\" s=\"1\"/></row>"},
  };
  for (const RowsCase& row : rows) ExpectRows(row);
}

TEST(SheetRowsTest, TextsAreWrittenSoThatReadersGetThemBack) {
  struct TextCase {
    const char16_t* text;
    const char* item;
  };
  const TextCase rows[] = {
      {u"a & <b>", "<t>a &amp; &lt;b&gt;</t>"},
      {u" a", "<t xml:space=\"preserve\"> a</t>"},
      {u"a\n", "<t xml:space=\"preserve\">a\n</t>"},
      {u"a\rb", "<t>a_x000D_b</t>"},  // a reader would make a line feed of a lone CR
      {u"a\r", "<t xml:space=\"preserve\">a_x000D_</t>"},
      {u"a\r\nb", "<t>a_x000D_\nb</t>"},
      {u"_x000D_", "<t>_x005F_x000D_</t>"},
      {u"_x00_x0041_", "<t>_x00_x005F_x0041_</t>"},
      {u"_x000G_", "<t>_x000G_</t>"},
      {u"a\u0001b", "<t>ab</t>"},
      {u"\u20AC\U0001F600", "<t>\u20AC\U0001F600</t>"},
  };
  for (const TextCase& row : rows) {
    ExcelFixture fixture;
    const ExcelWorkbookReference workbook = fixture.Application()->AddWorkbook({});
    workbook->ActiveSheet()->Range(u"A1")->Formula(Text(u"'") + row.text);
    const Package saved = fixture.Saved(*workbook);
    const std::string xml = saved.ReadPart("/xl/sharedStrings.xml");
    const std::size_t at = xml.find("<si>") + 4;
    EXPECT_EQ(xml.substr(at, xml.find("</si>") - at), row.item);
    const ExcelWorkbookReference again = fixture.Application()->AddWorkbook(fixture.folder.TextPath("out.xlsx"));
    const Value value = again->ActiveSheet()->Range(u"A1")->Value2().At(0, 0);
    Text expected(row.text);
    std::erase(expected, u'\u0001');
    EXPECT_EQ(Shown(std::get<Text>(value)), Shown(expected));
  }
}

TEST(SheetRowsTest, RegionsGrowInAllDirections) {
  struct RegionCase {
    const char* cells;  // with a content
    const char* from;
    const char* region;
  };
  const RegionCase rows[] = {
      {"A1", "A1", "1x1"},
      {"A1 B2 C3", "A1", "3x3"},  // corners hang together
      {"A1 C1", "A1", "1x1"},
      {"A1 A3", "A1", "1x1"},
      {"A3 B2 C1", "A3", "3x3"},        // upward
      {"B4 A3 A2 C1 B1", "B4", "4x3"},  // upward by what lies further left
      {"D1 C2 B3 A4 A5", "A5", "5x4"},
      {"A1 A2 B2 C1 D1 E2", "A2", "2x5"},
      {"B2", "A1", "2x2"},  // an empty cell beside a block belongs to it
      {"A9 C9 C8 B7 A1", "A9", "1x1"},
      {"A9 B8 C8 D7 E6", "C8", "4x5"},
  };
  for (const RegionCase& row : rows) {
    ExcelFixture fixture;
    const ExcelWorkbookReference workbook = fixture.Application()->AddWorkbook({});
    const ExcelWorksheetReference sheet = workbook->ActiveSheet();
    std::istringstream cells(row.cells);
    for (std::string cell; cells >> cell;) sheet->Range(FromUtf8(cell))->Formula(u"1");
    const auto region = sheet->Range(FromUtf8(row.from))->CurrentRegion();
    EXPECT_EQ(std::to_string(region->RowCount()) + "x" + std::to_string(region->ColumnCount()), row.region)
        << row.cells << " from " << row.from;
  }
}

}  // namespace
}  // namespace zorkanca::testing
