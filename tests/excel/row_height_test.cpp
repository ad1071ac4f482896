// Rows that get a height, because their texts take several lines.
#include <gtest/gtest.h>

#include "excel/display/text_width.h"
#include "support/excel_steps.h"

namespace zorkanca::testing {
namespace {

// Heights of the written rows in points, "-" where none was written, "!" behind one that is marked as set.
std::string HeightsOf(const std::string& rows) {
  std::string heights;
  for (std::size_t at = rows.find("<row "); at != rows.npos; at = rows.find("<row ", at + 1)) {
    const std::string tag = rows.substr(at, rows.find('>', at) - at);
    const std::size_t height = tag.find(" ht=\"");
    if (!heights.empty()) heights += " ";
    heights += height == tag.npos ? "-" : tag.substr(height + 5, tag.find('"', height + 5) - height - 5);
    if (tag.find("customHeight=\"1\"") != tag.npos) heights += "!";
  }
  return heights;
}

// Formats: 0 plain, 1 wrapped, 2 wrapped in Arial 20, 3 justified, 4 wrapped and turned, 5 wrapped with indent, 6 in
// Arial 20.
const std::string kFormats =
    "<xf fontId=\"0\"/><xf fontId=\"0\"><alignment wrapText=\"1\"/></xf><xf fontId=\"1\"><alignment wrapText=\"true\"/>"
    "</xf><xf fontId=\"0\"><alignment horizontal=\"justify\"/></xf><xf fontId=\"0\"><alignment wrapText=\"1\" "
    "textRotation=\"90\"/></xf><xf fontId=\"0\"><alignment wrapText=\"1\" indent=\"9\"/></xf><xf fontId=\"1\"/>";
const std::string kFonts =
    "<fonts><font><sz val=\"11\"/><name val=\"Calibri\"/></font><font><sz val=\"20\"/><name val=\"Arial\"/></font>"
    "</fonts>";

std::string Cell(const std::string& address, int format, const std::string& text = {}) {
  const std::string start = "<c r=\"" + address + "\" s=\"" + std::to_string(format) + "\"";
  return text.empty() ? start + "/>" : start + " t=\"inlineStr\"><is><t>" + text + "</t></is></c>";
}

struct HeightCase {
  std::string rows;
  const char* steps;
  const char* heights;
};

// Column A holds ten digits, B twenty.
TEST(RowHeightTest, RowsAreAsHighAsTheirTexts) {
  const HeightCase rows[] = {
      // One line needs no height; line breaks and words that do not fit do.
      {"<row r=\"1\">" + Cell("A1", 1) + "</row>", "fill t krátký", "-"},
      {"<row r=\"1\">" + Cell("A1", 1) + "</row>", "fill t \"a\nb\nc\"", "45"},
      {"<row r=\"1\">" + Cell("A1", 1) + "</row>", "fill t jedna dvě tři čtyři", "30"},
      {"<row r=\"1\">" + Cell("A1", 1) + "</row>", "fill t 123456789012345678901234567", "45"},
      {"<row r=\"1\">" + Cell("A1", 1) + "</row>", "fill t 12345678-12345678", "30"},
      {"<row r=\"1\">" + Cell("A1", 3) + "</row>", "fill t jedna dvě tři čtyři", "30"},
      {"<row r=\"1\">" + Cell("A1", 5) + "</row>", "fill t 123456", "90"},  // a digit a line
      {"<row r=\"1\">" + Cell("A1", 4) + "</row>", "fill t jedna dvě tři čtyři", "-"},
      // The highest cell counts, and each copy by its own texts.
      {"<row r=\"1\">" + Cell("A1", 1) + Cell("B1", 1) + "</row>",
       "repeat 1 4 | fill tt jedna dvě tři čtyři;x/x;\"a\nb\nc\nd\"/x;y/;", "30 60 - -"},
      {"<row r=\"1\">" + Cell("A1", 2) + "</row>", "fill t 12345678", "48"},
      {"<row r=\"1\">" + Cell("A1", 1) + Cell("B1", 2) + "</row>", "fill tt \"a\nb\nc\";x", "45"},
      // A font that is higher than a usual row, in copies too; not where nothing is written in it.
      {"<row r=\"1\">" + Cell("A1", 6) + "</row>", "fill t x", "24"},
      {"<row r=\"1\">" + Cell("A1", 6) + "</row>", "repeat 1 2 | fill t x/", "24 -"},
      {"<row r=\"1\" ht=\"26.25\">" + Cell("A1", 6) + "</row>", "repeat 1 2 | fill t x/y", "26.25 26.25"},
      {"<row r=\"1\">" + Cell("A1", 6) + Cell("B1", 1) + "</row>", "fill tt x;\"a\nb\"", "30"},
      // What does not wrap shows its line breaks in some programs.
      {"<row r=\"1\">" + Cell("A1", 0) + "</row>", "fill t \"a\nb\"", "30"},
      {"<row r=\"1\">" + Cell("A1", 0) + "</row>", "fill t jedna dvě tři čtyři pět šest", "-"},
      {"", "edit B2 '1\n2", "30"},
      // A plain import wraps what has line breaks.
      {"", "import tt a;b/\"1\n2\n3\";c", "- 45"},
      // Numbers do not wrap.
      {"<row r=\"1\">" + Cell("A1", 1) + "</row>", "fill g 123456789012345", "-"},
      // A height that was set stays, one that was found for the pattern does not.
      {"<row r=\"1\" ht=\"20\" customHeight=\"1\">" + Cell("A1", 1) + "</row>", "repeat 1 2 | fill t \"a\nb\"/c",
       "20! 20!"},
      {"<row r=\"1\" ht=\"60\">" + Cell("A1", 1) + "</row>", "repeat 1 3 | fill t \"a\nb\"/c/\"a\nb\nc\"", "30 15 45"},
      {"<row r=\"1\" ht=\"60\">" + Cell("A1", 0) + "</row>", "repeat 1 2 | fill t a/b", "60 60"},
      {"<row r=\"1\" hidden=\"1\">" + Cell("A1", 1) + "</row>", "fill t \"a\nb\"", "-"},
      // Texts of the pattern itself, in all copies.
      {"<row r=\"1\">" + Cell("A1", 0) + Cell("B1", 1, "jedna dvě tři čtyři pět šest sedm") + "</row>",
       "repeat 1 3 | fill t a/b/c", "30 30 30"},
      {"<row r=\"1\">" + Cell("A1", 1, "aaaaaaaaaa") + "</row>", "repeat 1 3 | bold 2:2", "- 30 -"},
      // Rows that nobody touches stay as they are.
      {"<row r=\"1\"/><row r=\"2\">" + Cell("A2", 1, "jedna dvě tři čtyři") + "</row>", "edit A1 5", "- -"},
      {"<row r=\"1\">" + Cell("A1", 1) + "</row>", "edit A1 5", "-"},
  };
  for (const HeightCase& row : rows) {
    ExcelFixture fixture;
    const ExcelWorkbookReference workbook =
        fixture.Add({.rows = row.rows,
                     .before = "<cols><col min=\"1\" max=\"1\" width=\"10.7109375\"/><col min=\"2\" max=\"2\" "
                               "width=\"20.7109375\"/></cols>",
                     .formats = kFormats,
                     .styles = kFonts});
    const ExcelWorksheetReference sheet = workbook->ActiveSheet();
    ExcelSteps(fixture, *sheet).Run(row.steps);
    EXPECT_EQ(HeightsOf(fixture.SavedRows(*workbook)), row.heights) << row.rows << "\n" << row.steps;
  }
}

TEST(RowHeightTest, WidthsComeFromMergedCellsAndTheSheet) {
  struct Case {
    const char* before;
    const char* behind;
    const char* heights;
  };
  // Some 33 digits of text.
  const std::string rows = "<row r=\"1\">" + Cell("A1", 1) + Cell("B1", 1) + "</row>";
  const Case cases[] = {
      {"", "", "60 60"},  // 64 pixels
      {"<sheetFormatPr defaultColWidth=\"20\"/>", "", "30 30"},
      {"<sheetFormatPr baseColWidth=\"40\"/>", "", "- -"},
      {"<sheetFormatPr defaultRowHeight=\"36\"/>", "", "60 60"},
      {"<sheetFormatPr defaultRowHeight=\"80\"/>", "", "- -"},
      {"<sheetFormatPr defaultRowHeight=\"36\" customHeight=\"1\"/>", "", "- -"},  // a height set for all
      {"<cols><col min=\"1\" max=\"9\" width=\"40\"/></cols>", "", "- -"},
      {"", "<mergeCells><mergeCell ref=\"A1:B1\"/></mergeCells>", "30 30"},  // in each copy
      {"", "<mergeCells><mergeCell ref=\"A1:E1\"/></mergeCells>", "- -"},
      {"", "<mergeCells><mergeCell ref=\"A1:A2\"/></mergeCells>", "60 60"},  // the copy cuts it off
      {"", "<mergeCells><mergeCell ref=\"B1:C1\"/></mergeCells>", "60 60"},
  };
  for (const Case& one : cases) {
    ExcelFixture fixture;
    const ExcelWorkbookReference workbook =
        fixture.Add({.rows = rows, .before = one.before, .behind = one.behind, .formats = kFormats, .styles = kFonts});
    const ExcelWorksheetReference sheet = workbook->ActiveSheet();
    ExcelSteps(fixture, *sheet)
        .Run("repeat 1 2 | fill t abcd efgh ijkl mnop qrst uvwx yz/abcd efgh ijkl mnop qrst uvwx yz");
    EXPECT_EQ(HeightsOf(fixture.SavedRows(*workbook)), one.heights) << one.before << one.behind;
  }
}

// Arrays keep in mind which of their texts have line breaks; numbers and formulas have none.
TEST(RowHeightTest, AssignedTextsCountAsTheyAre) {
  ExcelFixture fixture;
  const ExcelWorkbookReference workbook =
      fixture.Add({.rows = "<row r=\"1\"/><row r=\"2\" ht=\"33\"/>", .formats = kFormats, .styles = kFonts});
  CellGrid grid(6, 2);
  grid.At(0, 0) = Text(u"'1\n2\n3");
  grid.At(1, 1) = Text(u"jeden řádek");
  grid.At(2, 0) = Text(u"=\"a\nb\"");
  grid.At(2, 1) = 5.0;
  grid.At(3, 1) = Text(u"a\nb");
  grid.At(4, 0) = Text(u"\n");
  workbook->ActiveSheet()->Range(u"A1:B6")->FormulaR1C1(grid);
  EXPECT_EQ(HeightsOf(fixture.SavedRows(*workbook)), "45 33 - 30 30");
}

// What is merged downwards has the room of several rows.
TEST(RowHeightTest, CellsMergedDownwardsDoNotCount) {
  ExcelFixture fixture;
  const ExcelWorkbookReference workbook = fixture.Add({.rows = "<row r=\"1\">" + Cell("A1", 1) + "</row><row r=\"3\"/>",
                                                       .behind = "<mergeCells><mergeCell ref=\"A1:A2\"/></mergeCells>",
                                                       .formats = kFormats,
                                                       .styles = kFonts});
  const ExcelWorksheetReference sheet = workbook->ActiveSheet();
  ExcelSteps(fixture, *sheet).Run("fill t jedna dvě tři čtyři pět | edit B3 'a\nb");
  EXPECT_EQ(HeightsOf(fixture.SavedRows(*workbook)), "- 30");
}

// Columns that were fitted to a text need one line for it, whatever was rounded on the way.
TEST(RowHeightTest, FittedColumnsDoNotWrap) {
  ExcelFixture fixture;
  std::string text = "Příliš žluťoučký kůň";
  for (int length = 0; length < 40; ++length) {
    text += static_cast<char>('a' + length % 26);
    const ExcelWorkbookReference workbook = fixture.Application()->AddWorkbook({});
    const ExcelWorksheetReference sheet = workbook->ActiveSheet();
    ExcelSteps(fixture, *sheet).Run("import t \"" + text + "\nx\" | fit A1");
    EXPECT_EQ(HeightsOf(fixture.SavedRows(*workbook)), "30") << text;
    workbook->Close(false);
  }
}

TEST(RowHeightTest, LinesOfFonts) {
  using excel::CellFont;
  using excel::TextWidths;
  const std::pair<CellFont, int> rows[] = {{{"Calibri", 11, false}, 20}, {{"Calibri", 14, false}, 25},
                                           {{"Calibri", 16, true}, 28},  {{"Arial", 10, false}, 17},
                                           {{"Neznámé", 10, true}, 17},  {{"Calibri", 8, false}, 15}};
  for (const auto& [font, pixels] : rows) EXPECT_EQ(TextWidths(font).LinePixels(), pixels) << font.name << font.size;
  const TextWidths widths(CellFont{});
  struct Lines {
    const char* text;
    double pixels;
    int lines;
  };
  const Lines lines[] = {
      {"", 50, 1},
      {"\n", 50, 2},
      {"a\n\nb\n", 50, 4},
      {"0123456789", 75, 1},
      {"0123456789", 70, 2},
      {"0123456789", 1, 10},
      {"012 345 678", 25, 3},
      {"012 345     ", 25, 2},
      {"012-345-678", 30, 3},
      {"0 0123456789 0", 50, 3},
      {"šššš šššš", 30, 2},
  };
  for (const Lines& one : lines) EXPECT_EQ(widths.LinesWithin(one.text, one.pixels), one.lines) << one.text;
}

}  // namespace
}  // namespace zorkanca::testing
