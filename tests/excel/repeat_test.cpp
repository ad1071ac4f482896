// Pattern rows repeated and filled, as the template exports do it.
#include <gtest/gtest.h>

#include "excel/sheet/row_repeats.h"
#include "support/excel_parts.h"

namespace zorkanca::testing {
namespace {

std::string Text1(const std::string& address, const std::string& text, const std::string& style = "0") {
  return "<c r=\"" + address + "\" s=\"" + style + "\" t=\"inlineStr\"><is><t>" + text + "</t></is></c>";
}

// Empties the first cells of the first row.
void EmptyCells(ExcelWorksheet& sheet, std::int32_t count) {
  for (std::int32_t column = 0; column < count; ++column) sheet.Range(u"A1")->Offset(0, column)->Formula({});
}

TEST(ExcelRepeatTest, RowsComeWithEverythingOfTheirs) {
  ExcelFixture bench;
  const ExcelWorkbookReference workbook = bench.Add(
      {.rows =
           "<row r=\"1\" spans=\"1:5\" ht=\"30\" customHeight=\"1\" s=\"1\" customFormat=\"1\" outlineLevel=\"1\">" +
           Text1("A1", "{Kód}", "1") + Text1("B1", "{Cena}", "1") +
           "<c r=\"D1\" s=\"2\"><f>B1*1.21+$A$1+A$1</f><v>99</v></c><c r=\"E1\" s=\"1\"/></row>"
           "<row r=\"2\">" +
           Text1("A2", "starý") + Text1("F2", "starý") +
           "</row>"
           "<row r=\"5\">" +
           Text1("A5", "pata") + "<c r=\"B5\"><f>SUM(B1:B3)</f><v>7</v></c></row>"});
  const ExcelWorksheetReference sheet = workbook->ActiveSheet();
  EmptyCells(*sheet, 2);
  ExcelFixture::Repeat(*sheet, 1, 3);
  bench.Fill(*sheet, "00123;=1+1\r\nb;5,5\r\n\"c <&> \"\"\";\r\n", "tt");
  const std::string row = " s=\"1\" customFormat=\"1\" ht=\"30\" customHeight=\"1\" outlineLevel=\"1\">";
  const auto rest = [](const std::string& n) {
    return "<c r=\"D" + n + "\" s=\"2\"><f>B" + n + "*1.21+$A$1+A$1</f></c><c r=\"E" + n + "\" s=\"1\"/></row>";
  };
  EXPECT_EQ(bench.SavedRows(*workbook),
            "<row r=\"1\"" + row + "<c r=\"A1\" s=\"1\" t=\"s\"><v>0</v></c><c r=\"B1\" s=\"1\" t=\"s\"><v>1</v></c>" +
                rest("1") + "<row r=\"2\"" + row +
                "<c r=\"A2\" s=\"1\" t=\"s\"><v>2</v></c><c r=\"B2\" s=\"1\" t=\"s\"><v>3</v></c>" + rest("2") +
                "<row r=\"3\"" + row + "<c r=\"A3\" s=\"1\" t=\"s\"><v>4</v></c><c r=\"B3\" s=\"1\"/>" + rest("3") +
                "<row r=\"5\">"
                "<c r=\"A5\" t=\"inlineStr\"><is><t>pata</t></is></c><c r=\"B5\"><f>SUM(B1:B3)</f></c></row>");
  EXPECT_EQ(bench.Saved(*workbook).ReadPart("/xl/sharedStrings.xml"),
            "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n<sst xmlns=\"" + kSheetXml +
                "\" count=\"5\" "
                "uniqueCount=\"5\"><si><t>00123</t></si><si><t>=1+1</t></si><si><t>b</t></si><si><t>5,5</t></si>"
                "<si><t>c &lt;&amp;&gt; \"</t></si></sst>");
}

TEST(ExcelRepeatTest, FormulasOfEveryKind) {
  ExcelFixture bench;
  const ExcelWorkbookReference workbook = bench.Add(
      {.rows =
           "<row r=\"1\"><c r=\"A1\"><f t=\"shared\" ref=\"A1:A2\" si=\"0\">B1+1</f><v>1</v></c>"
           "<c r=\"C1\" cm=\"1\"><f t=\"array\" ref=\"C1:D2\">TRANSPOSE(E1:F2)</f><v>1</v></c><c r=\"D1\"><v>2</v></c>"
           "<c r=\"E1\" t=\"str\"><f>'Data 1'!B1&amp;\"&lt;B1\"</f><v>x</v></c>"
           "<c r=\"F1\"><f t=\"dataTable\" ref=\"F1:F1\" dt2D=\"1\" r1=\"A9\" r2=\"A8\"/><v>3</v></c></row>"
           "<row r=\"2\"><c r=\"A2\"><f t=\"shared\" si=\"0\"/><v>1</v></c></row>"});
  const ExcelWorksheetReference sheet = workbook->ActiveSheet();
  ExcelFixture::Repeat(*sheet, 2, 2);
  EXPECT_EQ(bench.SavedRows(*workbook),
            "<row r=\"1\"><c r=\"A1\"><f>B1+1</f></c><c r=\"C1\" cm=\"1\"><f t=\"array\" "
            "ref=\"C1:D2\">TRANSPOSE(E1:F2)</f></c>"
            "<c r=\"D1\"><v>2</v></c><c r=\"E1\"><f>'Data 1'!B1&amp;\"&lt;B1\"</f></c>"
            "<c r=\"F1\"><f t=\"dataTable\" ref=\"F1:F1\" dt2D=\"1\" r1=\"A9\" r2=\"A8\"/></c></row>"
            "<row r=\"2\"><c r=\"A2\"><f>B2+1</f></c></row>"
            "<row r=\"3\"><c r=\"A3\"><f>B3+1</f></c><c r=\"C3\" cm=\"1\"><f t=\"array\" "
            "ref=\"C3:D4\">TRANSPOSE(E3:F4)</f></c>"
            "<c r=\"D3\"><v>2</v></c><c r=\"E3\"><f>'Data 1'!B3&amp;\"&lt;B1\"</f></c><c r=\"F3\"><v>3</v></c></row>"
            "<row r=\"4\"><c r=\"A4\"><f>B4+1</f></c></row>");
}

TEST(ExcelRepeatTest, RulesOfAreas) {
  ExcelFixture bench;
  const ExcelWorkbookReference workbook = bench.Add(
      {.rows = "<row r=\"1\">" + Text1("A1", "x") + "</row><row r=\"2\">" + Text1("A2", "y") + "</row><row r=\"9\"/>",
       .behind =
           "<mergeCells count=\"4\"><mergeCell ref=\"A1:B1\"/><mergeCell ref=\"C1:C2\"/><mergeCell ref=\"D2:D3\"/>"
           "<mergeCell ref=\"A5:B6\"/></mergeCells>"
           "<conditionalFormatting sqref=\"B1:C2\"><cfRule type=\"expression\" "
           "priority=\"1\"><formula>B1&gt;5</formula>"
           "</cfRule></conditionalFormatting><conditionalFormatting sqref=\"A4:A6\"><cfRule/></conditionalFormatting>"
           "<dataValidations count=\"2\"><dataValidation sqref=\"D2\"/><dataValidation "
           "sqref=\"A3:A20\"/></dataValidations>"
           "<hyperlinks><hyperlink ref=\"A2\" r:id=\"rId7\"/><hyperlink ref=\"A4\" location=\"x\"/></hyperlinks>"
           "<rowBreaks count=\"1\"><brk id=\"2\"/></rowBreaks>"
           "<extLst><ext uri=\"x\"><x14:conditionalFormattings xmlns:x14=\"x14\" "
           "xmlns:xm=\"xm\"><x14:conditionalFormatting>"
           "<x14:cfRule/><xm:sqref>B1:B2</xm:sqref></x14:conditionalFormatting></x14:conditionalFormattings>"
           "<x14:sparklines xmlns:x14=\"x14\" "
           "xmlns:xm=\"xm\"><x14:sparkline><xm:f>List1!B1:C1</xm:f><xm:sqref>D1</xm:sqref>"
           "</x14:sparkline><x14:sparkline><xm:f>List1!A4</xm:f><xm:sqref>D4</xm:sqref></x14:sparkline>"
           "<x14:sparkline><xm:f>List1!A9</xm:f><xm:sqref>D9</xm:sqref></x14:sparkline></x14:sparklines></ext></"
           "extLst>"});
  const ExcelWorksheetReference sheet = workbook->ActiveSheet();
  sheet->Range(u"B2")->Formula(u"5");
  ExcelFixture::Repeat(*sheet, 2, 3);
  const std::string xml = bench.SavedSheet(*workbook);
  const auto has = [&](const std::string& part) { EXPECT_NE(xml.find(part), xml.npos) << part << "\n" << xml; };
  has("<mergeCells count=\"6\"><mergeCell ref=\"A1:B1\"/><mergeCell ref=\"C1:C2\"/><mergeCell ref=\"A3:B3\"/>"
      "<mergeCell ref=\"A5:B5\"/><mergeCell ref=\"C3:C4\"/><mergeCell ref=\"C5:C6\"/></mergeCells>"
      "<conditionalFormatting sqref=\"B1:C6\"><cfRule");
  has("</conditionalFormatting><dataValidations count=\"2\"><dataValidation sqref=\"D2 D4 D6\"/><dataValidation "
      "sqref=\"A7:A20\"/>");
  has("<hyperlinks><hyperlink ref=\"A2\" r:id=\"rId7\"/><hyperlink ref=\"A4\" r:id=\"rId7\"/><hyperlink ref=\"A6\" "
      "r:id=\"rId7\"/>"
      "</hyperlinks><rowBreaks count=\"1\"><brk id=\"2\"/>");
  has("<xm:sqref>B1:B6</xm:sqref>");
  // Sparklines of replaced rows go.
  const auto sparkline = [](const std::string& formula, const std::string& cell) {
    return "<x14:sparkline><xm:f>List1!" + formula + "</xm:f><xm:sqref>" + cell + "</xm:sqref></x14:sparkline>";
  };
  has("xmlns:xm=\"xm\">" + sparkline("B1:C1", "D1") + sparkline("A9", "D9") + sparkline("B3:C3", "D3") +
      sparkline("B5:C5", "D5") + "</x14:sparklines>");
  has("<dimension ref=\"A1:B9\"/>");
}

TEST(ExcelRepeatTest, AreasStayFewWhereTheyHangTogether) {
  using excel::AreasText;
  using excel::ParseAreas;
  using excel::RepeatAreas;
  struct Row {
    const char* areas;
    excel::RowRepeat repeat;
    const char* after;
  };
  const Row rows[] = {
      {"A1:C1", {.top = 1, .rows = 1, .first = 2, .copies = 99999}, "A1:C100000"},
      {"B2", {.top = 1, .rows = 3, .first = 4, .copies = 2}, "B2 B5 B8"},
      {"A1:A10", {.top = 1, .rows = 2, .first = 3, .copies = 2}, "A1:A6 A7:A10"},
      {"E5", {.top = 1, .rows = 2, .first = 3, .copies = 2}, ""},
      {"E20", {.top = 1, .rows = 2, .first = 3, .copies = 2}, "E20"},
      {"C:C", {.top = 1, .rows = 1, .first = 2, .copies = 3}, "C1:C4 C5:C1048576"},
      {"A5 A2", {.top = 2, .rows = 1, .first = 10, .copies = 2}, "A5 A2 A10:A11"},
  };
  for (const Row& row : rows)
    EXPECT_EQ(AreasText(RepeatAreas(ParseAreas(row.areas), row.repeat)), row.after) << row.areas;
}

TEST(ExcelRepeatTest, MergedCellsComeWithTheirRows) {
  struct Row {
    const char* merges;
    excel::RowRepeat repeat;
    const char* after;
  };
  const Row rows[] = {
      {"A1:B1", {.top = 1, .rows = 1, .first = 2, .copies = 2}, "A1:B1 A2:B2 A3:B3"},
      {"A1:B2", {.top = 1, .rows = 2, .first = 3, .copies = 2}, "A1:B2 A3:B4 A5:B6"},
      {"A1:B2", {.top = 1, .rows = 1, .first = 3, .copies = 2}, "A1:B2"},  // not wholly copied
      {"A1:A3", {.top = 1, .rows = 1, .first = 2, .copies = 1}, ""},       // one cell is left
      {"A1:B3", {.top = 1, .rows = 1, .first = 2, .copies = 1}, "A1:B1"},  // it was not wholly copied
      {"A4:A8", {.top = 1, .rows = 1, .first = 7, .copies = 1}, "A4:A6"},
      {"A4:A8", {.top = 1, .rows = 1, .first = 2, .copies = 3}, ""},  // begins in the copies
      {"C9:D9", {.top = 1, .rows = 1, .first = 2, .copies = 3}, "C9:D9"},
      {"A5:B5", {.top = 5, .rows = 1, .first = 2, .copies = 1}, "A5:B5 A2:B2"},  // upward
  };
  for (const Row& row : rows) {
    const auto merges = excel::RepeatMerges(excel::ParseAreas(row.merges), row.repeat);
    EXPECT_EQ(excel::AreasText(merges), row.after) << row.merges;
  }
}

const std::string kPicture =
    "<xdr:twoCellAnchor><xdr:from><xdr:col>1</xdr:col><xdr:row>1</xdr:row></xdr:from><xdr:to><xdr:col>2</xdr:col>"
    "<xdr:row>2</xdr:row></xdr:to><xdr:pic><xdr:nvPicPr><xdr:cNvPr id=\"2\" name=\"Obrázek 1\"/></xdr:nvPicPr>"
    "<xdr:blipFill r:embed=\"rId1\" xmlns:r=\"" +
    kOfficeXml + "\"/></xdr:pic></xdr:twoCellAnchor>";

TEST(ExcelRepeatTest, PicturesComeWithEachCopy) {
  ExcelFixture bench;
  const auto at = [](const std::string& kind, const std::string& attributes, int row, int id,
                     const std::string& object) {
    return "<xdr:" + kind + attributes + "><xdr:from><xdr:row>" + std::to_string(row) +
           "</xdr:row></xdr:from><xdr:" + object + "><xdr:cNvPr name=\"Tvar\" id=\"" + std::to_string(id) +
           "\"/></xdr:" + object + "></xdr:" + kind + ">";
  };
  const std::string fixed = at("twoCellAnchor", " editAs=\"absolute\"", 0, 5, "sp") +
                            "<xdr:absoluteAnchor><xdr:pos/></xdr:absoluteAnchor>" +
                            at("twoCellAnchor", "", 0, 6, "graphicFrame") + at("oneCellAnchor", "", 4, 7, "sp");
  const ExcelWorkbookReference workbook =
      bench.Add({.rows = "<row r=\"1\">" + Text1("A1", "x") + "</row>",
                 .drawing = kPicture + at("oneCellAnchor", "", 0, 9, "sp") + fixed});
  const ExcelWorksheetReference sheet = workbook->ActiveSheet();
  EXPECT_EQ(sheet->ShapeCount(), 6);
  sheet->Rows(u"1:2")->Copy();
  for (const std::int32_t row : {2, 4}) {  // one paste for each copy
    sheet->Range(u"A1")->Offset(row, 0)->Select();
    sheet->Paste();
  }
  const std::string xml = bench.Saved(*workbook).ReadPart("/xl/drawings/drawing1.xml");
  const std::size_t originals = xml.find(fixed) + fixed.size();
  std::string copy = kPicture;
  copy.replace(copy.find("<xdr:row>1<"), 11, "<xdr:row>3<").replace(copy.find("<xdr:row>2<"), 11, "<xdr:row>4<");
  copy.replace(copy.find("id=\"2\" name=\"Obrázek 1\""), 24, "id=\"10\" name=\"Obrázek 10\"");
  EXPECT_EQ(xml.substr(originals, copy.size()), copy);
  EXPECT_NE(xml.find("<xdr:row>4</xdr:row></xdr:from><xdr:sp><xdr:cNvPr name=\"Tvar\" id=\"13\"/>"), xml.npos) << xml;
  std::size_t anchored = 0;
  for (std::size_t place = xml.find("<xdr:from>"); place != xml.npos; place = xml.find("<xdr:from>", place + 1))
    ++anchored;
  EXPECT_EQ(anchored, 5U + 4);
}

TEST(ExcelRepeatTest, APatternOfSeveralRowsKeepsItsShape) {
  ExcelFixture bench;
  const ExcelWorkbookReference workbook =
      bench.Add({.rows = "<row r=\"1\">" + Text1("A1", "{a}", "1") + Text1("B1", "{b}", "1") + Text1("D1", "vpravo") +
                         "</row>"
                         "<row r=\"2\">" +
                         Text1("A2", "Kód {c}") + "<c r=\"B2\"><f>A1&amp;A2</f></c></row>"});
  const ExcelWorksheetReference sheet = workbook->ActiveSheet();
  EXPECT_EQ(Shown(sheet->Range(u"A1")->Offset(1, 0)->Text()), "Kód {c}");
  const auto region = sheet->Range(u"A1")->CurrentRegion();
  EXPECT_EQ(region->RowCount(), 2);
  EXPECT_EQ(region->ColumnCount(), 2);
  EmptyCells(*sheet, 2);
  ExcelFixture::Repeat(*sheet, 2, 2);
  // The second line of a record is shorter: what stands right of it stays.
  bench.Fill(*sheet, "1;2\r\nKód 3\r\n4;\r\nKód 6\r\n", "tt");
  EXPECT_EQ(ShownValues(*sheet->Range(u"A1:D4")), "'1|'2||'vpravo / 'Kód 3||| / '4|||'vpravo / 'Kód 6|||");
  const CellGrid formulas = sheet->Range(u"B2:B4")->FormulaR1C1();
  EXPECT_EQ(Shown(std::get<Text>(formulas.At(0, 0))), "=R[-1]C[-1]&RC[-1]");
  EXPECT_EQ(Shown(std::get<Text>(formulas.At(1, 0))), "");
  EXPECT_EQ(Shown(std::get<Text>(formulas.At(2, 0))), "=R[-1]C[-1]&RC[-1]");
}

TEST(ExcelRepeatTest, WhatDoesNotFitIsRefused) {
  ExcelFixture bench;
  const ExcelWorkbookReference workbook = bench.Add({.rows = "<row r=\"1\">" + Text1("A1", "x") + "</row>"});
  const ExcelWorksheetReference sheet = workbook->ActiveSheet();
  EXPECT_EQ(ErrorOf([&] { sheet->Paste(); }).number(), 1004);  // nothing was copied
  sheet->Rows(u"1:3")->Copy();
  EXPECT_EQ(ErrorOf([&] { sheet->Rows(u"4:1048577"); }).number(), 1004);
  sheet->Rows(u"1048575:1048576")->Select();
  EXPECT_EQ(ErrorOf([&] { sheet->Paste(); }).number(), 1004);
  bench.Application()->CutCopyMode(false);
  sheet->Range(u"A4")->Select();
  EXPECT_EQ(ErrorOf([&] { sheet->Paste(); }).number(), 1004);

  const ExcelWorkbookReference arrays = bench.Add(
      {.rows = "<row r=\"1\"/><row r=\"3\"><c r=\"A3\"><f t=\"array\" ref=\"A3:B4\">ROW(A1:B2)</f></c></row>"});
  const ExcelWorksheetReference other = arrays->ActiveSheet();
  other->Rows(u"1:1")->Copy();
  other->Rows(u"2:3")->Select();
  EXPECT_EQ(ErrorOf([&] { other->Paste(); }).number(), 1004);
  other->Rows(u"2:4")->Select();
  other->Paste();
}

}  // namespace
}  // namespace zorkanca::testing
