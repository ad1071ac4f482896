// What surrounds the rows of a sheet, before and after what is done to it, one line each.
#include <gtest/gtest.h>

#include "support/excel_steps.h"

namespace zorkanca::testing {
namespace {

struct FrameCase {
  const char* before;  // elements before the rows
  const char* behind;
  const char* steps;
  const char* beforeAfter;
  const char* behindAfter;
};

const std::string kSelected = "<sheetViews><sheetView workbookViewId=\"0\"><selection activeCell=\"";

TEST(SheetFrameTest, ElementsBeforeAndBehindTheRows) {
  const std::string row = "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>";
  const FrameCase rows[] = {
      // The dimension follows the contents; what the schema wants in front of it stays there.
      {"<sheetPr/>", "<pageMargins/>", "edit C5 1", "<sheetPr/><dimension ref=\"A1:C5\"/>", "<pageMargins/>"},
      {"<dimension ref=\"A1\"/>", "", "edit B1 1", "<dimension ref=\"A1:B1\"/>", ""},
      {"<dimension ref=\"A1\"/>", "", "select B7",
       "<dimension ref=\"A1\"/><sheetViews><sheetView workbookViewId=\"0\"><selection activeCell=\"B7\" sqref=\"B7\"/>"
       "</sheetView></sheetViews>",
       ""},
      // A selection takes the place of the one in its pane.
      {"<sheetViews><sheetView workbookViewId=\"0\"><selection activeCell=\"C1\" "
       "sqref=\"C1\"/></sheetView></sheetViews>",
       "", "select A2",
       "<sheetViews><sheetView workbookViewId=\"0\"><selection activeCell=\"A2\" "
       "sqref=\"A2\"/></sheetView></sheetViews>",
       ""},
      {"<sheetViews><sheetView workbookViewId=\"0\"><pane ySplit=\"1\" activePane=\"bottomLeft\"/><selection "
       "pane=\"topLeft\"/><selection pane=\"bottomLeft\" activeCell=\"C9\" sqref=\"C9\"/></sheetView></sheetViews>",
       "", "select A2",
       "<sheetViews><sheetView workbookViewId=\"0\"><pane ySplit=\"1\" activePane=\"bottomLeft\"/><selection "
       "pane=\"topLeft\"/><selection pane=\"bottomLeft\" activeCell=\"A2\" sqref=\"A2\"/></sheetView></sheetViews>",
       ""},
      {"<sheetViews><sheetView workbookViewId=\"0\"><pane ySplit=\"1\" "
       "activePane=\"bottomLeft\"/></sheetView></sheetViews>",
       "", "select A2",
       "<sheetViews><sheetView workbookViewId=\"0\"><pane ySplit=\"1\" activePane=\"bottomLeft\"/><selection "
       "pane=\"bottomLeft\" activeCell=\"A2\" sqref=\"A2\"/></sheetView></sheetViews>",
       ""},
      // Columns come behind the format of the sheet.
      {"<sheetFormatPr defaultRowHeight=\"15\"/>", "", "align 2 right",
       "<sheetFormatPr defaultRowHeight=\"15\"/><cols><col min=\"2\" max=\"2\" width=\"9.140625\" style=\"3\"/></cols>",
       ""},
      {"<cols><col min=\"1\" max=\"3\" width=\"5\"/></cols>", "", "align 2 right",
       "<cols><col min=\"1\" max=\"1\" width=\"5\"/><col min=\"2\" max=\"2\" style=\"3\" width=\"5\"/><col min=\"3\" "
       "max=\"3\" width=\"5\"/></cols>",
       ""},
      {"", "", "fit A1", "<cols><col min=\"1\" max=\"1\" width=\"2.5703125\" bestFit=\"1\" customWidth=\"1\"/></cols>",
       ""},
      // Rules, links and counts of repeated rows.
      {"", "<conditionalFormatting sqref=\"A1\"><cfRule/></conditionalFormatting>", "repeat 1 3",
       "<dimension ref=\"A1:A3\"/>", "<conditionalFormatting sqref=\"A1:A3\"><cfRule/></conditionalFormatting>"},
      {"", "<conditionalFormatting sqref=\"A2:A3\"><cfRule/></conditionalFormatting><pageMargins/>", "repeat 1 3",
       "<dimension ref=\"A1:A3\"/>", "<pageMargins/>"},
      {"",
       "<dataValidations count=\"2\"><dataValidation sqref=\"A2\"/><dataValidation sqref=\"A1 C9\"/></dataValidations>",
       "repeat 1 3", "<dimension ref=\"A1:A3\"/>",
       "<dataValidations count=\"1\"><dataValidation sqref=\"A1:A3 C9\"/></dataValidations>"},
      {"", "<dataValidations count=\"1\"><dataValidation sqref=\"A2\"/></dataValidations><pageMargins/>", "repeat 1 3",
       "<dimension ref=\"A1:A3\"/>", "<pageMargins/>"},
      {"", "<ignoredErrors><ignoredError sqref=\"A1\" numberStoredAsText=\"1\"/></ignoredErrors>", "repeat 1 3",
       "<dimension ref=\"A1:A3\"/>",
       "<ignoredErrors><ignoredError sqref=\"A1:A3\" numberStoredAsText=\"1\"/></ignoredErrors>"},
      {"", "<mergeCells count=\"1\"><mergeCell ref=\"B2:C2\"/></mergeCells><pageMargins/>", "repeat 1 3",
       "<dimension ref=\"A1:A3\"/>", "<pageMargins/>"},
      {"", "<mergeCells><mergeCell ref=\"B1:C1\"/></mergeCells>", "repeat 1 2", "<dimension ref=\"A1:A2\"/>",
       "<mergeCells count=\"2\"><mergeCell ref=\"B1:C1\"/><mergeCell ref=\"B2:C2\"/></mergeCells>"},
      {"", "<mergeCells><mergeCell ref=\"B1:C1\"/></mergeCells>", "edit A1 5", "<dimension ref=\"A1\"/>",
       "<mergeCells><mergeCell ref=\"B1:C1\"/></mergeCells>"},
      {"", "<hyperlinks><hyperlink ref=\"A1\" location=\"x!A1\" display=\"a&amp;b\"/></hyperlinks><pageMargins/>",
       "repeat 1 2", "<dimension ref=\"A1:A2\"/>",
       "<hyperlinks><hyperlink ref=\"A1\" location=\"x!A1\" display=\"a&amp;b\"/><hyperlink ref=\"A2\" "
       "location=\"x!A1\" display=\"a&amp;b\"/></hyperlinks><pageMargins/>"},
      {"", "<hyperlinks><hyperlink ref=\"A2:B2\" location=\"x\"/></hyperlinks>", "repeat 1 2",
       "<dimension ref=\"A1:A2\"/>", ""},
      // What is not copied stays: breaks, protection, print settings, unknown elements.
      {"",
       "<sheetProtection sheet=\"1\"/><autoFilter ref=\"A1:B1\"/><rowBreaks count=\"1\"><brk id=\"1\"/></rowBreaks>"
       "<legacyDrawing r:id=\"rId9\"/>",
       "repeat 1 2", "<dimension ref=\"A1:A2\"/>",
       "<sheetProtection sheet=\"1\"/><autoFilter ref=\"A1:B1\"/><rowBreaks count=\"1\"><brk id=\"1\"/></rowBreaks>"
       "<legacyDrawing r:id=\"rId9\"/>"},
  };
  for (const FrameCase& one : rows) {
    ExcelFixture fixture;
    const ExcelWorkbookReference workbook = fixture.Add({.rows = row, .before = one.before, .behind = one.behind});
    const ExcelWorksheetReference sheet = workbook->ActiveSheet();
    ExcelSteps(fixture, *sheet).Run(one.steps);
    std::string xml = fixture.SavedSheet(*workbook);
    // A paste leaves its target selected; that has lines of its own above.
    const std::string steps = one.steps;
    if (steps.starts_with("repeat")) {
      const std::string view = "<sheetViews><sheetView workbookViewId=\"0\"><selection";
      const std::size_t at = xml.find(view);
      ASSERT_NE(at, xml.npos) << xml;
      const std::string end = "</sheetViews>";
      xml.erase(at, xml.find(end) + end.size() - at);
    }
    const std::size_t start = xml.find('>', xml.find("<worksheet")) + 1;
    const std::size_t data = xml.find("<sheetData>");
    const std::string close = "</sheetData>";
    const std::size_t end = xml.find(close) + close.size();
    EXPECT_EQ(xml.substr(start, data - start), one.beforeAfter) << one.before << one.behind << "\n" << one.steps;
    EXPECT_EQ(xml.substr(end, xml.find("</worksheet>") - end), one.behindAfter) << one.behind << "\n" << one.steps;
  }
}

// Links and rules of a hundred thousand copies are what a reader can hold.
TEST(SheetFrameTest, ManyCopiesStayFewAreas) {
  ExcelFixture fixture;
  const ExcelWorkbookReference workbook =
      fixture.Add({.rows = "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>",
                   .behind = "<conditionalFormatting sqref=\"A1:B1\"><cfRule/></conditionalFormatting><dataValidations "
                             "count=\"1\"><dataValidation sqref=\"B1\"/></dataValidations>"});
  ExcelSteps(fixture, *workbook->ActiveSheet()).Run("repeat 1 100000");
  const std::string xml = fixture.SavedSheet(*workbook);
  const std::size_t behind = xml.find("</sheetData>");
  EXPECT_EQ(xml.substr(behind),
            "</sheetData><conditionalFormatting sqref=\"A1:B100000\"><cfRule/></conditionalFormatting><dataValidations "
            "count=\"1\"><dataValidation sqref=\"B1:B100000\"/></dataValidations></worksheet>");
}

}  // namespace
}  // namespace zorkanca::testing
