// Members of the object model: what they do to a sheet, and what they refuse.
#include <gtest/gtest.h>

#include <functional>

#include "support/excel_steps.h"

namespace zorkanca::testing {
namespace {

std::int32_t RaisedBy(const std::function<void()>& body) {
  try {
    body();
  } catch (const Error& error) {
    return error.number();
  }
  return 0;
}

TEST(ExcelMembersTest, WhatIsNotSupportedIsRefused) {
  ExcelFixture fixture;
  const ExcelApplicationReference excel = fixture.Application();
  const ExcelWorkbookReference workbook = fixture.Add({.rows = "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>"});
  const ExcelWorksheetReference sheet = workbook->ActiveSheet();
  const auto cell = sheet->Range(u"A1");
  const ExcelWorkbookReference other = excel->AddWorkbook({});
  fixture.folder.Write("import.txt", "a;b\r\n");
  const auto import = [&](OpenTextArguments arguments) {
    arguments.Filename = fixture.folder.TextPath("import.txt");
    excel->OpenText(arguments);
    excel->Workbooks(u"import.txt")->Close(false);
  };
  struct Row {
    const char* what;
    std::int32_t error;
    std::function<void()> call;
  };
  const Row rows[] = {
      {"blanks are skipped", 438, [&] { cell->PasteSpecial({.SkipBlanks = true}); }},
      {"transposed", 438, [&] { cell->PasteSpecial({.Transpose = true}); }},
      {"added", 438, [&] { cell->PasteSpecial({.Operation = static_cast<ExcelPasteOperation>(2)}); }},
      {"nothing copied", 1004, [&] { cell->PasteSpecial({}); }},
      {"cells copied", 438, [&] { cell->Copy(); }},
      {"columns copied", 438, [&] { sheet->Columns(1)->Copy(); }},
      {"alignment of a cell", 438, [&] { cell->HorizontalAlignment(ExcelAlignment::kLeft); }},
      {"formula of a whole column", 438, [&] { sheet->Columns(1)->Formula(u"1"); }},
      {"column 0", 1004, [&] { sheet->Columns(0); }},
      {"column 16385", 1004, [&] { sheet->Columns(16385); }},
      {"rows that are cells", 1004, [&] { sheet->Rows(u"A1:B2"); }},
      {"no address", 1004, [&] { sheet->Range(u"hello"); }},
      {"beyond the sheet", 1004, [&] { cell->Offset(1048576, 0); }},
      {"left of the sheet", 1004, [&] { cell->Offset(0, -1); }},
      {"no rows", 1004, [&] { cell->Resize(0, 1); }},
      {"too many rows", 1004, [&] { cell->Resize(1048577, 1); }},
      {"too large to be read", 1004, [&] { sheet->Range(u"A:Z")->Value2(); }},
      {"of an inactive workbook", 1004, [&] { sheet->Range(u"A1")->Select(); }},
      {"copied cells of another sheet", 438,
       [&] {
         sheet->Rows(u"1:1")->Copy();
         other->Activate();
         other->ActiveSheet()->Range(u"A1")->Select();
         other->ActiveSheet()->Paste();
       }},
      {"formulas of rows", 438, [&] { cell->PasteSpecial({.Paste = ExcelPasteType::kFormulas}); }},
      {"the old format", 438, [&] { workbook->SaveAs(u"x.xls", static_cast<ExcelSaveFormat>(56)); }},
      {"XPS", 438, [&] { workbook->ExportAsFixedFormat({.Type = 1, .fileName = u"x.xps"}); }},
      {"PDF of everything", 438,
       [&] { workbook->ExportAsFixedFormat({.fileName = u"x.pdf", .IgnorePrintAreas = true}); }},
      {"PDF to be shown", 438,
       [&] { workbook->ExportAsFixedFormat({.fileName = u"x.pdf", .OpenAfterPublish = true}); }},
      {"saving while closing", 438, [&] { workbook->Close(true); }},
      {"a folder that is missing", 76, [&] { workbook->SaveAs(u"/none/x.xlsx", ExcelSaveFormat::kWorkbookXml); }},
      {"copy mode on", 438, [&] { excel->CutCopyMode(true); }},
      {"one delimiter", 0, [&] { import({.Semicolon = true}); }},
      {"another delimiter", 0, [&] { import({.Other = true, .OtherChar = u"|"}); }},
      {"no delimiter", 438, [&] { import({}); }},
      {"two delimiters", 438, [&] { import({.Semicolon = true, .Comma = true}); }},
      {"a delimiter beyond ASCII", 438, [&] { import({.Other = true, .OtherChar = u"\u00A7"}); }},
      {"joined delimiters", 438, [&] { import({.ConsecutiveDelimiter = true, .Semicolon = true}); }},
      {"another page", 438, [&] { import({.Origin = 1252, .Semicolon = true}); }},
      {"fixed widths", 438, [&] { import({.DataType = 2, .Semicolon = true}); }},
      {"single quotes", 438, [&] { import({.TextQualifier = 2, .Semicolon = true}); }},
  };
  for (const Row& row : rows) EXPECT_EQ(RaisedBy(row.call), row.error) << row.what;
  EXPECT_EQ(fixture.folder.Count(), 2);  // nothing was written
}

TEST(ExcelMembersTest, ContentsAsTheEnglishProgramTakesThem) {
  struct Row {
    const char16_t* content;
    const char* cell;  // the element that is written
    const char* r1c1;  // read back, of B2
  };
  const Row rows[] = {
      {u"5", "<c r=\"B2\"><v>5</v></c>", "5"},
      {u"-0.50", "<c r=\"B2\"><v>-0.5</v></c>", "-0.5"},
      {u"1,234.5", "<c r=\"B2\"><v>1234.5</v></c>", "1234.5"},
      {u"0,5", "<c r=\"B2\" t=\"s\"><v>0</v></c>", "0,5"},  // no English number
      {u"1e3", "<c r=\"B2\"><v>1000</v></c>", "1000"},
      {u"TRUE", "<c r=\"B2\" t=\"b\"><v>1</v></c>", "TRUE"},
      {u"#N/A", "<c r=\"B2\" t=\"e\"><v>#N/A</v></c>", "#N/A"},
      {u"text", "<c r=\"B2\" t=\"s\"><v>0</v></c>", "text"},
      {u"'5", "<c r=\"B2\" s=\"3\" t=\"s\"><v>0</v></c>", "5"},
      {u"'=A1", "<c r=\"B2\" s=\"3\" t=\"s\"><v>0</v></c>", "=A1"},
      {u"''x", "<c r=\"B2\" s=\"3\" t=\"s\"><v>0</v></c>", "'x"},
      {u"'", "", ""},
      {u"=", "<c r=\"B2\" t=\"s\"><v>0</v></c>", "="},
      {u"=RC[-1]", "<c r=\"B2\"><f>A2</f></c>", "=RC[-1]"},
      {u"=SUM(R1C1:R[-1]C)", "<c r=\"B2\"><f>SUM($A$1:B1)</f></c>", "=SUM(R1C1:R[-1]C)"},
      {u"=R[-2]C", "<c r=\"B2\"><f>#REF!</f></c>", "=R[-2]C"},
      {u"=\"RC\"&'R C'!RC", "<c r=\"B2\"><f>\"RC\"&amp;'R C'!B2</f></c>", "=\"RC\"&'R C'!RC"},
      {u" 5 ", "<c r=\"B2\"><v>5</v></c>", "5"},
  };
  for (const Row& row : rows) {
    ExcelFixture fixture;
    const ExcelWorkbookReference workbook = fixture.Add({});
    const auto range = workbook->ActiveSheet()->Range(u"B2");
    CellGrid grid(1, 1);
    grid.At(0, 0) = Text(row.content);
    range->FormulaR1C1(grid);
    const std::string written = std::string(row.cell).empty() ? "" : "<row r=\"2\">" + std::string(row.cell) + "</row>";
    EXPECT_EQ(fixture.SavedRows(*workbook), written) << row.r1c1;
    EXPECT_EQ(Shown(std::get<Text>(range->FormulaR1C1().At(0, 0))), row.r1c1);
  }
}

// What cells show: values of every kind by formats of every kind.
TEST(ExcelMembersTest, TextsOfCells) {
  const std::string formats =
      "<xf/><xf numFmtId=\"4\"/><xf numFmtId=\"14\"/><xf numFmtId=\"10\"/><xf numFmtId=\"11\"/><xf numFmtId=\"49\"/>"
      "<xf numFmtId=\"164\"/><xf numFmtId=\"22\"/><xf numFmtId=\"12\"/>";
  struct Row {
    int format;
    const char* cell;  // attributes and inside
    const char* text;
  };
  const Row rows[] = {
      {0, "><v>1234.5</v>", "1234,5"},
      {0, "><v>1E+20</v>", "1E+20"},
      {1, "><v>-1234.5</v>", "-1~234,50"},
      {2, "><v>45356</v>", "5.3.2024"},
      {2, " t=\"d\"><v>2024-03-05</v>", "5.3.2024"},
      {3, "><v>0.125</v>", "12,50%"},
      {4, "><v>9996</v>", "1,00E+04"},
      {5, "><v>5</v>", "5"},
      {5, " t=\"str\"><v>05</v>", "05"},
      {6, "><v>3</v>", "3 ks"},
      {6, "><v>0</v>", "nic"},
      {6, " t=\"str\"><f>A9</f><v>text</v>", "text"},
      {7, "><v>45356.75</v>", "5.3.2024 18:00"},
      {8, "><v>1.5</v>", "1,5"},
      {1, " t=\"b\"><v>true</v>", "PRAVDA"},
      {1, " t=\"b\"><v>0</v>", "NEPRAVDA"},
      {1, " t=\"e\"><v>#REF!</v>", "#REF!"},
      {1, "><f>B1</f>", ""},  // no result yet
      {1, "><v/>", ""},
      {0, " t=\"inlineStr\"><is><r><t>a</t></r><r><t xml:space=\"preserve\"> b</t></r></is>", "a b"},
  };
  for (const Row& row : rows) {
    ExcelFixture fixture;
    const ExcelWorkbookReference workbook = fixture.Add(
        {.rows = "<row r=\"1\"><c r=\"A1\" s=\"" + std::to_string(row.format) + "\"" + row.cell + "</c></row>",
         .formats = formats,
         .styles = "<numFmts><numFmt numFmtId=\"164\" formatCode=\"0&quot; ks&quot;;;&quot;nic&quot;\"/></numFmts>"});
    const Text text = workbook->ActiveSheet()->Range(u"A1")->Text();
    EXPECT_EQ(Shown(Replace(text, u"\u00A0", u"~")), row.text) << row.cell;
  }
}

// Imported dates count from where the workbook's do.
TEST(ExcelMembersTest, ImportsIntoWorkbooksOf1904) {
  ExcelFixture fixture;
  Package package = ExcelPackage({});
  std::string xml = package.ReadPart("/xl/workbook.xml");
  xml.insert(xml.find("<sheets>"), "<workbookPr date1904=\"true\"/>");
  package.ReplacePart("/xl/workbook.xml", xml);
  package.SaveAs(fixture.folder.Path("t.xltx"));
  const ExcelWorkbookReference workbook = fixture.Application()->AddWorkbook(fixture.folder.TextPath("t.xltx"));
  ExcelSteps(fixture, *workbook->ActiveSheet()).Run("import gggg 5.3.2024;5.3.2024 6:00;6:00;45356");
  EXPECT_EQ(ShownValues(*workbook->ActiveSheet()->Range(u"A1:D1")), "43894|43894.25|0.25|45356");
  EXPECT_EQ(Shown(workbook->ActiveSheet()->Range(u"B1")->Text()), "5.3.2024 6:00");
}

TEST(ExcelMembersTest, ImportsBeginWhereTheyAreTold) {
  struct Row {
    OpenTextArguments arguments;
    const char* values;
  };
  const Row rows[] = {
      {{.Semicolon = true}, "'a|'b / 1|2 / 3|4"},
      {{.StartRow = 2, .Semicolon = true}, "1|2 / 3|4"},
      {{.StartRow = 3, .Semicolon = true, .FieldInfo = {{2, ExcelColumnType::kText}}}, "3|'4"},
      {{.StartRow = 9, .Semicolon = true}, "~"},
      {{.StartRow = -1, .Semicolon = true, .FieldInfo = {{0, ExcelColumnType::kText}, {20000, ExcelColumnType::kText}}},
       "'a|'b / 1|2 / 3|4"},
      {{.Comma = true}, "'a;b / '1;2 / '3;4"},
      {{.Semicolon = true, .DecimalSeparator = u".", .ThousandsSeparator = u" "}, "'a|'b / 1|2 / 3|4"},
  };
  for (Row row : rows) {
    ExcelFixture fixture;
    fixture.folder.Write("import.txt", "a;b\r\n1;2\r\n3;4");
    row.arguments.Filename = fixture.folder.TextPath("import.txt");
    fixture.Application()->OpenText(row.arguments);
    const auto sheet = fixture.Application()->Workbooks(u"IMPORT.TXT")->Sheets(1);
    EXPECT_EQ(ShownValues(*sheet->Range(u"A1")->CurrentRegion()), row.values);
    // A second import of the same name waits for the first to be closed.
    EXPECT_EQ(RaisedBy([&] { fixture.Application()->OpenText(row.arguments); }), 1004);
  }
}

// A strict workbook is read as any other, its dates included, and saved as the usual kind.
TEST(ExcelMembersTest, StrictWorkbooksAreFilledAsOthers) {
  ExcelFixture fixture;
  Package package = ExcelPackage(
      {.rows = "<row r=\"1\"><c r=\"A1\" t=\"inlineStr\"><is><t>{a}</t></is></c><c r=\"B1\" s=\"2\" t=\"d\">"
               "<v>2024-03-05</v></c><c r=\"C1\"><f>B1+1</f><v>1</v></c></row>",
       .drawing = "<xdr:oneCellAnchor><xdr:from><xdr:row>0</xdr:row></xdr:from><xdr:sp><xdr:cNvPr id=\"1\" "
                  "name=\"Tvar\"/></xdr:sp></xdr:oneCellAnchor>"});
  package.SaveAs(fixture.folder.Path("usual.xltx"));
  const auto strict = [](std::string xml) {
    const std::pair<std::string, std::string> uris[] = {
        {"http://schemas.openxmlformats.org/spreadsheetml/2006/main", "http://purl.oclc.org/ooxml/spreadsheetml/main"},
        {"http://schemas.openxmlformats.org/officeDocument/2006/relationships",
         "http://purl.oclc.org/ooxml/officeDocument/relationships"},
        {"http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing",
         "http://purl.oclc.org/ooxml/drawingml/spreadsheetDrawing"}};
    for (const auto& [usual, other] : uris) {
      for (std::size_t at = xml.find(usual); at != xml.npos; at = xml.find(usual, at))
        xml.replace(at, usual.size(), other);
    }
    return xml;
  };
  for (const std::string& part : package.PartNames()) package.ReplacePart(part, strict(package.ReadPart(part)));
  package.SaveAs(fixture.folder.Path("strict.xltx"));
  std::string results[2];
  for (const bool isStrict : {false, true}) {
    const ExcelWorkbookReference workbook =
        fixture.Application()->AddWorkbook(fixture.folder.TextPath(isStrict ? "strict.xltx" : "usual.xltx"));
    const ExcelWorksheetReference sheet = workbook->ActiveSheet();
    EXPECT_EQ(Shown(sheet->Range(u"B1")->Text()), "5.3.2024");
    EXPECT_EQ(sheet->ShapeCount(), 1);
    ExcelSteps(fixture, *sheet).Run("paste 1:1 2 | fill t x/y | align 2 center");
    const Package saved = fixture.Saved(*workbook);
    for (const char* part : {"/xl/workbook.xml", "/xl/worksheets/sheet1.xml", "/xl/styles.xml", "/xl/sharedStrings.xml",
                             "/xl/drawings/drawing1.xml"}) {
      results[isStrict ? 1 : 0] += saved.ReadPart(part) + "\n";
    }
    workbook->Close(false);
  }
  EXPECT_EQ(results[1], results[0]);
  EXPECT_NE(results[0].find("<xdr:row>1</xdr:row>"), std::string::npos);
}

// Sheets that nobody changed lose stored results, which may be stale, and nothing else.
TEST(ExcelMembersTest, OtherSheetsKeepTheirBytes) {
  const std::pair<const char*, const char*> rows[] = {
      {"<c r=\"A1\"><v>1</v></c>", "<c r=\"A1\"><v>1</v></c>"},
      {"<c r='A1' t=\"str\"  s=\"1\"><f>B1</f><v>x</v></c>", "<c r='A1' s=\"1\"><f>B1</f></c>"},
      {"<c r=\"A1\"><f>B1</f></c>", "<c r=\"A1\"><f>B1</f></c>"},
      {"<c r=\"A1\"><f t=\"shared\" si=\"0\" ref=\"A1:A2\">B1&lt;2</f><v>1</v></c>",
       "<c r=\"A1\"><f t=\"shared\" si=\"0\" ref=\"A1:A2\">B1&lt;2</f></c>"},
      {"<c r=\"A1\" t=\"e\"><f>1/0</f><v>#DIV/0!</v></c><c r=\"B1\" t=\"s\"><v>0</v></c>",
       "<c r=\"A1\"><f>1/0</f></c><c r=\"B1\" t=\"s\"><v>0</v></c>"},
      {"<!-- a --><c r=\"A1\" cm=\"1\"><f t=\"array\" ref=\"A1\">X</f><v>1</v></c>",
       "<!-- a --><c r=\"A1\" cm=\"1\"><f t=\"array\" ref=\"A1\">X</f></c>"},
  };
  for (const auto& [before, after] : rows) {
    const auto sheet = [](const std::string& cells) {
      return "<?xml version=\"1.0\"?>\n<worksheet xmlns=\"" + kSheetXml + "\"><sheetData>\n<row r=\"1\">" + cells +
             "</row></sheetData><pageMargins/></worksheet>";
    };
    ExcelFixture fixture;
    const ExcelWorkbookReference workbook =
        fixture.Add({.rows = "<row r=\"1\"/>", .strings = "<si><t>x</t></si>", .sheets = {{"Druhý", sheet(before)}}});
    workbook->ActiveSheet()->Range(u"A1")->Formula(u"1");
    EXPECT_EQ(fixture.Saved(*workbook).ReadPart("/xl/worksheets/sheet2.xml"), sheet(after));
  }
}

}  // namespace
}  // namespace zorkanca::testing
