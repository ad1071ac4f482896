// Workbooks opened, formatted, assigned to, saved.
#include <gtest/gtest.h>

#include "excel/tables/shared_strings.h"
#include "support/excel_parts.h"

namespace zorkanca::testing {
namespace {

TEST(ExcelWorkbookTest, APlainExport) {
  ExcelFixture bench;
  const ExcelWorkbookReference workbook = bench.Application()->AddWorkbook({});
  EXPECT_EQ(Shown(workbook->Name()), "Sešit1");
  const ExcelWorkbookReference import = bench.Import(
      "Kód;Cena;Dne;Pozn\r\n007;1\u00A0234,50;5.3.2024;\"a\r\nb\"\r\n8;5;6.3.2024;\r\n;;;\r\n9;0,5;7.3.2024;x\r\n",
      "tggt");
  const auto target = workbook->Sheets(1)->Range(u"A1");
  import->Sheets(1)->Range(u"A1")->CurrentRegion()->Copy(*target);
  const ExcelAlignment alignments[] = {ExcelAlignment::kLeft, ExcelAlignment::kRight, ExcelAlignment::kRight,
                                       ExcelAlignment::kGeneral};
  for (std::int32_t column = 0; column < 4; ++column) {
    workbook->Sheets(1)->Columns(column + 1)->HorizontalAlignment(alignments[column]);
  }
  import->Close(false);
  target->CurrentRegion()->AutoFitColumns();
  workbook->Sheets(1)->Rows(u"1:1")->FontBold(true);
  workbook->Sheets(1)->Rows(u"1:1")->HorizontalAlignment(ExcelAlignment::kCenter);
  workbook->Activate();
  workbook->Sheets(1)->Activate();
  target->Select();
  EXPECT_EQ(target->CurrentRegion()->RowCount(), 3);  // a blank record ends a region that is no import any more

  const Package package = bench.Saved(*workbook);
  const std::string sheet = package.ReadPart("/xl/worksheets/sheet1.xml");
  const pugi::xml_document styles = ParseXml(package.ReadPart("/xl/styles.xml"), {});
  // Number format, alignment, bold, wrapped.
  const auto formatOf = [&](const std::string& address) {
    const std::size_t at = sheet.find("<c r=\"" + address + "\" s=\"");
    const int style = std::atoi(sheet.c_str() + at + address.size() + 11);
    const pugi::xml_node format = *std::next(styles.document_element().child("cellXfs").begin(), style);
    const pugi::xml_node font =
        *std::next(styles.document_element().child("fonts").begin(), format.attribute("fontId").as_int());
    const pugi::xml_node alignment = format.child("alignment");
    return std::string(format.attribute("numFmtId").value()) + " " + alignment.attribute("horizontal").value() +
           (font.child("b") ? " bold" : "") + (alignment.attribute("wrapText").as_bool() ? " wrap" : "");
  };
  EXPECT_EQ(formatOf("A1"), "49 center bold");
  EXPECT_EQ(formatOf("B1"), "0 center bold");
  EXPECT_EQ(formatOf("A2"), "49 left");
  EXPECT_EQ(formatOf("B2"), "4 right");
  EXPECT_EQ(formatOf("B3"), "0 right");
  EXPECT_EQ(formatOf("C2"), "14 right");
  EXPECT_EQ(formatOf("D2"), "49 general wrap");
  const auto has = [&](const std::string& part) { EXPECT_NE(sheet.find(part), sheet.npos) << part << "\n" << sheet; };
  has("<dimension ref=\"A1:D5\"/>");
  has("tabSelected=\"1\" workbookViewId=\"0\"><selection activeCell=\"A1\" sqref=\"A1\"/>");
  has("<c r=\"B2\" s=\"");
  has("<v>1234.5</v></c><c r=\"C2\"");
  has("<v>45356</v>");
  has("<row r=\"3\">");
  EXPECT_EQ(sheet.find("<row r=\"4\">"), sheet.npos);  // no empty cells
  has("<cols><col min=\"1\" max=\"1\" style=\"");
  has("bestFit=\"1\" customWidth=\"1\"/>");
  EXPECT_NE(package.ReadPart("/xl/sharedStrings.xml").find("<si><t>a\nb</t></si>"), std::string::npos);
  EXPECT_EQ(Shown(workbook->Name()), "out.xlsx");
}

TEST(ExcelWorkbookTest, ValuesOfEveryKind) {
  ExcelFixture bench;
  const ExcelWorkbookReference workbook = bench.Add(
      {.rows = "<row><c t=\"s\"><v>0</v></c><c t=\"s\"><v>1</v></c><c "
               "t=\"inlineStr\"><is><r><t>ri</t></r><r><t>ch</t></r></is></c>"
               "<c t=\"str\"><f>A1</f><v>_x0041_b</v></c><c><v>1.5E-3</v></c><c t=\"b\"><v>1</v></c><c "
               "t=\"e\"><v>#DIV/0!</v></c>"
               "<c t=\"d\" s=\"2\"><v>2024-03-05</v></c><c s=\"1\"><v>1234.5</v></c><c s=\"2\"/><c><f>X</f></c></row>",
       .strings = "<si><t xml:space=\"preserve\"> a&amp;b "
                  "</t></si><si><r><t>b</t></r><rPh><t>hint</t></rPh><r><t>c</t></r></si>"});
  const ExcelWorksheetReference sheet = workbook->ActiveSheet();
  EXPECT_EQ(ShownValues(*sheet->Range(u"A1:K1")), "' a&b |'bc|'rich|'Ab|0.0015|TRUE|2007!|45356|1234.5||");
  std::string texts;
  for (std::int32_t column = 0; column < 10; ++column)
    texts += Shown(sheet->Range(u"A1")->Offset(0, column)->Text()) + "|";
  EXPECT_EQ(texts, " a&b |bc|rich|Ab|0,0015|PRAVDA|#DIV/0!|5.3.2024|1\u00A0234,50||");
}

TEST(ExcelWorkbookTest, AssignedArrays) {
  ExcelFixture bench;
  const ExcelWorkbookReference workbook = bench.Add({.rows = "<row r=\"1\"><c r=\"A1\" s=\"1\"><v>1</v></c><c r=\"B1\" "
                                                             "s=\"2\"><v>2</v></c><c r=\"C1\"><v>3</v></c></row>"});
  const ExcelWorksheetReference sheet = workbook->ActiveSheet();
  CellGrid grid(2, 4);
  grid.At(0, 0) = Text(u"'00123");
  grid.At(0, 1) = Text(u"''x");
  grid.At(0, 2) = Null();
  grid.At(0, 3) = Text(u"=RC[-1]*R1C1");
  grid.At(1, 0) = 1.5;
  grid.At(1, 1) = true;
  grid.At(1, 2) = ObjectReference(std::make_shared<CellError>(2042));
  grid.At(1, 3) = Text(u"1,234.50");
  sheet->Range(u"A1:D2")->FormulaR1C1(grid);
  sheet->Range(u"A3:D4")->FormulaR1C1(CellGrid(2, 4));
  EXPECT_EQ(ShownValues(*sheet->Range(u"A1:D2")), "'00123|''x|3| / 1.5|TRUE|2042!|1234.5");
  const std::string rows = bench.SavedRows(*workbook);
  EXPECT_EQ(
      rows,
      "<row r=\"1\"><c r=\"A1\" s=\"3\" t=\"s\"><v>0</v></c><c r=\"B1\" s=\"4\" t=\"s\"><v>1</v></c><c "
      "r=\"C1\"><v>3</v></c>"
      "<c r=\"D1\"><f>C1*$A$1</f></c></row><row r=\"2\"><c r=\"A2\"><v>1.5</v></c><c r=\"B2\" t=\"b\"><v>1</v></c>"
      "<c r=\"C2\" t=\"e\"><v>#N/A</v></c><c r=\"D2\"><v>1234.5</v></c></row>");
  const Package package = bench.Saved(*workbook);
  EXPECT_NE(package.ReadPart("/xl/sharedStrings.xml").find("<si><t>00123</t></si><si><t>'x</t></si>"),
            std::string::npos);
  EXPECT_NE(package.ReadPart("/xl/styles.xml").find("<xf numFmtId=\"4\" quotePrefix=\"1\"/>"), std::string::npos);
  EXPECT_EQ(ErrorOf([&] { sheet->Range(u"A1:B2")->FormulaR1C1(CellGrid(1, 2)); }).number(), 1004);
  CellGrid tooLong(1, 1);
  tooLong.At(0, 0) = Text(32769, u'x');
  EXPECT_EQ(ErrorOf([&] { sheet->Range(u"A1")->FormulaR1C1(tooLong); }).number(), 1004);
  sheet->Range(u"B1:B2")->Formula(u"=A1+$A$1");
  EXPECT_EQ(Shown(std::get<Text>(sheet->Range(u"B2")->FormulaR1C1().At(0, 0))), "=RC[-1]+R1C1");
}

TEST(ExcelWorkbookTest, OtherPartsStayAsTheyAre) {
  ExcelFixture bench;
  const std::string plain = "<worksheet xmlns=\"" + kSheetXml +
                            "\"><sheetData><row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c></row></sheetData></worksheet>";
  const std::string formula =
      "<x:worksheet xmlns:x=\"" + kSheetXml +
      "\"><x:sheetData><x:row r=\"1\"><x:c r=\"A1\" t=\"str\" s=\"1\"><x:f>První!A1</x:f><x:v>old</x:v></x:c><x:c "
      "r=\"B1\"><x:v>5</x:v></x:c></x:row></x:sheetData></x:worksheet>";
  ExcelParts parts{.rows =
                       "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c></row><row r=\"3\" x=\"y\"><c  r=\"A3\" "
                       "t='s'><v>1</v></c></row>",
                   .strings = "<si><t>a</t><phoneticPr fontId=\"1\"/></si><si><t>b</t></si>",
                   .workbook = "<definedNames/><extLst/>",
                   .sheets = {{"Druhý", plain}, {"Třetí", formula}}};
  Package package = ExcelPackage(parts);
  package.AddPart("/xl/calcChain.xml", kSheetTypes + "calcChain+xml", "<calcChain/>");
  Relate(package, "/xl/workbook.xml", "calcChain", "/xl/calcChain.xml");
  package.AddPart("/xl/theme/theme1.xml", "application/x", "<theme/>");
  package.SaveAs(bench.folder.Path("t.xltx"));
  const ExcelWorkbookReference workbook = bench.Application()->AddWorkbook(bench.folder.TextPath("t.xltx"));
  EXPECT_EQ(Shown(workbook->Name()), "t1");
  // Nothing was done: nothing changes but the kind of document.
  const Package same = bench.Saved(*workbook);
  for (const std::string& part : package.PartNames()) EXPECT_EQ(same.ReadPart(part), package.ReadPart(part)) << part;
  EXPECT_EQ(same.ContentTypeOf("/xl/workbook.xml"), kSheetTypes + "sheet.main+xml");

  workbook->ActiveSheet()->Range(u"A1")->Formula(u"nový");
  const Package changed = bench.Saved(*workbook);
  EXPECT_EQ(changed.ReadPart("/xl/worksheets/sheet2.xml"), plain);
  EXPECT_EQ(changed.ReadPart("/xl/theme/theme1.xml"), "<theme/>");
  EXPECT_EQ(changed.ReadPart("/xl/styles.xml"), package.ReadPart("/xl/styles.xml"));
  // A formula of another sheet may depend on it: its stored result goes.
  std::string expected = formula;
  expected.erase(expected.find("<x:v>old</x:v>"), 14).erase(expected.find(" t=\"str\""), 8);
  EXPECT_EQ(changed.ReadPart("/xl/worksheets/sheet3.xml"), expected);
  EXPECT_FALSE(changed.HasPart("/xl/calcChain.xml"));
  EXPECT_EQ(changed.RelationshipsOf("/xl/workbook.xml").FirstOf("calcChain"), nullptr);
  EXPECT_NE(changed.ReadPart("/xl/workbook.xml").find("<definedNames/><calcPr fullCalcOnLoad=\"1\"/><extLst/>"),
            std::string::npos);
  EXPECT_NE(
      changed.ReadPart("/xl/worksheets/sheet1.xml").find("<row r=\"3\" x=\"y\"><c  r=\"A3\" t='s'><v>1</v></c></row>"),
      std::string::npos);
  EXPECT_NE(changed.ReadPart("/xl/sharedStrings.xml")
                .find("count=\"3\" uniqueCount=\"3\"><si><t>a</t><phoneticPr "
                      "fontId=\"1\"/></si><si><t>b</t></si><si><t>nový</t></si></sst>"),
            std::string::npos)
      << changed.ReadPart("/xl/sharedStrings.xml");
}

// Readers that look for the usual names find them.
TEST(ExcelWorkbookTest, MissingPartsGetTheirUsualNames) {
  for (const bool taken : {false, true}) {
    ExcelFixture fixture;
    Package package = ExcelPackage({});
    package.RemovePart("/xl/styles.xml");
    Relationships list = package.RelationshipsOf("/xl/workbook.xml");
    list.Remove(list.FirstOf("styles")->id);
    package.SetRelationships(list);
    if (taken) package.AddPart("/xl/styles.xml", "application/xml", "<other/>");
    if (taken) package.AddPart("/xl/sharedStrings.xml", "application/xml", "<other/>");
    package.SaveAs(fixture.folder.Path("bare.xltx"));
    const ExcelWorkbookReference workbook = fixture.Application()->AddWorkbook(fixture.folder.TextPath("bare.xltx"));
    workbook->ActiveSheet()->Range(u"A1")->Formula(u"text");
    const Package saved = fixture.Saved(*workbook);
    const std::string number = taken ? "1" : "";
    EXPECT_EQ(saved.RelatedPart("/xl/workbook.xml", "styles"), "/xl/styles" + number + ".xml");
    EXPECT_EQ(saved.RelatedPart("/xl/workbook.xml", "sharedStrings"), "/xl/sharedStrings" + number + ".xml");
    EXPECT_EQ(saved.ContentTypeOf("/xl/styles" + number + ".xml"), kSheetTypes + "styles+xml");
  }
}

TEST(ExcelWorkbookTest, PrefixesOfElementsAreKept) {
  ExcelFixture bench;
  Package package = ExcelPackage({});
  package.ReplacePart(
      "/xl/worksheets/sheet1.xml",
      "<x:worksheet xmlns:x=\"" + kSheetXml +
          "\"><x:cols><x:col min=\"1\" max=\"3\" width=\"5\" style=\"1\"/></x:cols><x:sheetData>"
          "<x:row r=\"1\"><x:c r=\"A1\"><x:f>B1</x:f><x:v>1</x:v></x:c></x:row></x:sheetData></x:worksheet>");
  package.SaveAs(bench.folder.Path("t.xltx"));
  const ExcelWorkbookReference workbook = bench.Application()->AddWorkbook(bench.folder.TextPath("t.xltx"));
  const ExcelWorksheetReference sheet = workbook->ActiveSheet();
  sheet->Range(u"B1")->Formula(u"text");
  ExcelFixture::Repeat(*sheet, 1, 2);
  sheet->Columns(2)->HorizontalAlignment(ExcelAlignment::kRight);
  EXPECT_EQ(
      bench.SavedSheet(*workbook),
      "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n<x:worksheet xmlns:x=\"" + kSheetXml +
          "\"><x:dimension ref=\"A1:B2\"/><x:sheetViews><x:sheetView workbookViewId=\"0\"><x:selection "
          "activeCell=\"A2\" "
          "sqref=\"2:2\"/></x:sheetView></x:sheetViews><x:cols><x:col min=\"1\" max=\"1\" style=\"1\" width=\"5\"/>"
          "<x:col min=\"2\" max=\"2\" style=\"3\" width=\"5\"/><x:col min=\"3\" max=\"3\" style=\"1\" "
          "width=\"5\"/></x:cols>"
          "<x:sheetData><x:row r=\"1\"><x:c r=\"A1\"><x:f>B1</x:f></x:c><x:c r=\"B1\" s=\"3\" "
          "t=\"s\"><x:v>0</x:v></x:c></x:row>"
          "<x:row r=\"2\"><x:c r=\"A2\"><x:f>B2</x:f></x:c><x:c r=\"B2\" s=\"3\" "
          "t=\"s\"><x:v>0</x:v></x:c></x:row></x:sheetData></x:worksheet>");
}

TEST(ExcelWorkbookTest, TextsThatHardlyRepeatStayInTheirCells) {
  const excel::SharedStrings none;
  excel::TextTable table(none);
  EXPECT_EQ(table.Share(1, "a"), 0U);
  EXPECT_EQ(table.Share(2, "b"), 1U);
  EXPECT_EQ(table.Share(2, "a"), 0U);
  int kept = 0;
  for (int i = 0; i < 20000; ++i) {
    if (!table.Share(3, "unique " + std::to_string(i))) ++kept;
    EXPECT_TRUE(table.Share(4, "group " + std::to_string(i % 50)));
  }
  EXPECT_GT(kept, 15000);
  excel::TextTable small(none, 100);
  EXPECT_EQ(small.Share(1, std::string(50, 'x')), 0U);
  EXPECT_EQ(small.Share(1, std::string(60, 'y')), std::nullopt);
  EXPECT_EQ(small.Share(1, std::string(50, 'x')), 0U);
}

TEST(ExcelWorkbookTest, TheApplicationAndItsWorkbooks) {
  ExcelFixture bench;
  EXPECT_EQ(ErrorOf([&] { bench.Engine().AttachExcel(); }).number(), 429);
  const ExcelApplicationReference excel = bench.Application();
  EXPECT_EQ(bench.Engine().AttachExcel(), excel);
  EXPECT_FALSE(excel->Visible());
  EXPECT_EQ(ErrorOf([&] { excel->ActiveWorkbook(); }).number(), 91);
  const ExcelWorkbookReference first = bench.Add({.rows = "<row r=\"1\"/>", .kind = kSheetTypes + "sheet.main+xml"});
  const ExcelWorkbookReference second = excel->AddWorkbook({});
  EXPECT_EQ(excel->ActiveWorkbook(), second);
  EXPECT_EQ(excel->Workbooks(u"T1"), first);
  EXPECT_EQ(ErrorOf([&] { excel->Workbooks(u"none"); }).number(), 9);
  EXPECT_EQ(ErrorOf([&] { first->Sheets(1)->Range(u"A1")->Select(); }).number(), 1004);
  EXPECT_EQ(ErrorOf([&] { first->Sheets(2); }).number(), 9);
  EXPECT_EQ(ErrorOf([&] { first->Sheets(1)->Range(u"A0"); }).number(), 1004);
  EXPECT_EQ(ErrorOf([&] { first->Sheets(1)->Range(u"A1")->Offset(-1, 0); }).number(), 1004);
  EXPECT_EQ(ErrorOf([&] { first->Sheets(1)->Range(u"A1")->FontBold(true); }).number(), 438);
  first->SaveAs(bench.folder.TextPath("kept.xlsx"), ExcelSaveFormat::kWorkbookXml);
  EXPECT_EQ(bench.Engine().GetWorkbook(bench.folder.TextPath("kept.xlsx")), first);
  const auto range = first->Sheets(1)->Range(u"A1");
  first->Close(false);
  EXPECT_EQ(ErrorOf([&] { range->Value2(); }).number(), 424);
  EXPECT_EQ(ErrorOf([&] { first->Name(); }).number(), 424);
  const ExcelWorkbookReference again = bench.Engine().GetWorkbook(bench.folder.TextPath("kept.xlsx"));
  EXPECT_EQ(Shown(again->FullName()), bench.folder.Path("kept.xlsx"));
  EXPECT_EQ(ErrorOf([&] { excel->AddWorkbook(u"/none/such.xltx"); }).number(), 1004);
  excel->WindowVisible(u"kept.xlsx", true);
  excel->ActiveWindowState(ExcelWindowState::kNormal);
}

TEST(ExcelWorkbookTest, AnotherSheetBecomesActive) {
  ExcelFixture bench;
  const std::string second = "<worksheet xmlns=\"" + kSheetXml +
                             "\"><sheetViews><sheetView workbookViewId=\"0\"/></sheetViews><sheetData/></worksheet>";
  const ExcelWorkbookReference workbook =
      bench.Add({.before = "<sheetViews><sheetView tabSelected=\"1\" workbookViewId=\"0\"><pane "
                           "activePane=\"bottomLeft\"/><selection pane=\"bottomLeft\"/></sheetView></sheetViews>",
                 .sheets = {{"Druhý", second}}});
  workbook->Sheets(2)->Activate();
  workbook->ActiveSheet()->Range(u"B2")->Select();
  const Package package = bench.Saved(*workbook);
  EXPECT_EQ(package.ReadPart("/xl/worksheets/sheet1.xml").find("tabSelected"), std::string::npos);
  EXPECT_NE(package.ReadPart("/xl/worksheets/sheet2.xml")
                .find("tabSelected=\"1\"><selection activeCell=\"B2\" sqref=\"B2\"/>"),
            std::string::npos);
  EXPECT_NE(package.ReadPart("/xl/workbook.xml").find("<bookViews><workbookView activeTab=\"1\"/></bookViews><sheets>"),
            std::string::npos)
      << package.ReadPart("/xl/workbook.xml");
}

TEST(ExcelWorkbookTest, MacrosStayInFilesThatMayHaveThem) {
  ExcelFixture bench;
  Package package = ExcelPackage({.kind = "application/vnd.ms-excel.template.macroEnabled.main+xml"});
  package.AddPart("/xl/vbaProject.bin", "application/vnd.ms-office.vbaProject", "macro");
  Relationships list = package.RelationshipsOf("/xl/workbook.xml");
  list.Add("http://schemas.microsoft.com/office/2006/relationships/vbaProject", "/xl/vbaProject.bin");
  package.SetRelationships(list);
  package.SaveAs(bench.folder.Path("t.xltm"));
  const ExcelWorkbookReference workbook = bench.Application()->AddWorkbook(bench.folder.TextPath("t.xltm"));
  const Package with = bench.Saved(*workbook, "out.xlsm");
  EXPECT_TRUE(with.HasPart("/xl/vbaProject.bin"));
  EXPECT_EQ(with.ContentTypeOf("/xl/workbook.xml"), "application/vnd.ms-excel.sheet.macroEnabled.main+xml");
  const Package without = bench.Saved(*workbook, "out.xlsx");
  EXPECT_FALSE(without.HasPart("/xl/vbaProject.bin"));
  EXPECT_EQ(without.ContentTypeOf("/xl/workbook.xml"), kSheetTypes + "sheet.main+xml");
}

TEST(ExcelWorkbookTest, DatesOf1904) {
  ExcelFixture bench;
  const ExcelWorkbookReference workbook =
      bench.Add({.rows = "<row r=\"1\"><c r=\"A1\" s=\"2\"><v>43894</v></c></row>", .workbook = "<calcPr/>"});
  Package package = ExcelPackage({.rows = "<row r=\"1\"><c r=\"A1\" s=\"2\"><v>43894</v></c></row>"});
  std::string xml = package.ReadPart("/xl/workbook.xml");
  xml.insert(xml.find("<sheets>"), "<workbookPr date1904=\"1\"/>");
  package.ReplacePart("/xl/workbook.xml", xml);
  package.SaveAs(bench.folder.Path("t1904.xltx"));
  const ExcelWorkbookReference old = bench.Application()->AddWorkbook(bench.folder.TextPath("t1904.xltx"));
  EXPECT_EQ(Shown(old->ActiveSheet()->Range(u"A1")->Text()), "5.3.2024");
  bench.Fill(*old->ActiveSheet(), "6.3.2024\r\n", "g");
  EXPECT_EQ(Shown(old->ActiveSheet()->Range(u"A1")->Text()), "6.3.2024");
}

TEST(ExcelWorkbookTest, RefusesBadWorkbooksBeforeAnythingIsWritten) {
  ExcelFixture bench;
  const auto refused = [&](const ExcelParts& parts) {
    const Error error = ErrorOf([&] { bench.Add(parts)->ActiveSheet(); });
    EXPECT_EQ(error.number(), 5) << error.what();
    return Shown(error.description());
  };
  const std::pair<std::string, const char*> rows[] = {
      {"<row r=\"0\"/>", "it has a row 0"},
      {"<row r=\"1048577\"/>", "it has a row 1048577"},
      {"<row r=\"2\"/><row r=\"2\"/>", "row 2 is out of order"},
      {"<row r=\"1\"><c r=\"XFE1\"/></row>", "row 1 has a cell XFE1"},
      {"<row r=\"1\"><c r=\"A2\"/></row>", "row 1 has a cell A2"},
      {"<row r=\"1\"><c r=\"B1\"/><c r=\"A1\"/></row>", "cell A1 is out of order"},
      {"<row r=\"1\"><c r=\"XFD1\"/><c/></row>", "row 1 is too long"},
      {"<row r=\"1\"><c r=\"A1\" s=\"3\"/></row>", "cell A1: there is no style 3"},
      {"<row r=\"1\"><c r=\"A1\" s=\"99999999999\"/></row>", "there is no style 99999999999"},
      {"<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c></row>", "cell A1: there is no shared text 0"},
      {"<row r=\"1\"><c r=\"A1\" t=\"s\"><v>-1</v></c></row>", "there is no shared text -1"},
      {"<row r=\"1\"><c r=\"A1\"><f t=\"shared\" si=\"0\"/></c></row>", "there is no shared formula 0"},
  };
  for (const auto& [xml, reason] : rows) EXPECT_NE(refused({.rows = xml}).find(reason), std::string::npos) << xml;
  EXPECT_NE(refused({.formats = ""}).find("no cell formats"), std::string::npos);
  EXPECT_NE(refused({.kind = "application/x"}).find("no Excel workbook"), std::string::npos);
  const auto broken = [&](const std::string& part, const std::string& xml) {
    Package package = ExcelPackage({.strings = "<si/>"});
    package.ReplacePart(part, xml);
    package.SaveAs(bench.folder.Path("bad.xltx"));
    return ErrorOf([&] { bench.Application()->AddWorkbook(bench.folder.TextPath("bad.xltx"))->ActiveSheet(); })
        .number();
  };
  EXPECT_EQ(broken("/xl/worksheets/sheet1.xml", "<worksheet xmlns=\"" + kSheetXml + "\"><sheetData>"), 5);
  EXPECT_EQ(broken("/xl/worksheets/sheet1.xml", "<worksheet xmlns=\"x\"><sheetData/></worksheet>"), 5);
  EXPECT_EQ(broken("/xl/worksheets/sheet1.xml", "<worksheet xmlns=\"" + kSheetXml + "\"/>"), 5);
  EXPECT_EQ(broken("/xl/sharedStrings.xml", "<!DOCTYPE sst [<!ENTITY a \"b\">]><sst>&a;</sst>"), 5);
  EXPECT_EQ(broken("/xl/styles.xml", "<styleSheet/>"), 5);
  EXPECT_EQ(broken("/xl/workbook.xml", "<workbook xmlns=\"" + kSheetXml + "\"><sheets/></workbook>"), 5);
  EXPECT_EQ(broken("/xl/workbook.xml", "<workbook xmlns=\"" + kSheetXml + "\" xmlns:r=\"" + kOfficeXml +
                                           "\"><sheets><sheet name=\"x\" r:id=\"rId9\"/></sheets></workbook>"),
            5);
  bench.folder.Write("no.xltx", "no package at all");
  EXPECT_NE(ErrorOf([&] { bench.Application()->AddWorkbook(bench.folder.TextPath("no.xltx")); }).number(), 0);
}

// Whoever watches is told how far each part of the work is, and may end it.
TEST(ExcelWorkbookTest, LongWorkIsWatchedAndEndsWhenCancelled) {
  std::string data;
  for (int row = 0; row < 1000; ++row) data += std::to_string(row) + ";text\r\n";
  std::map<ExcelWork, double> reached;
  std::optional<ExcelWork> stopsAt;
  bool stopped = false;
  const auto watch = [&](ExcelWork work, double percent) {
    EXPECT_GE(percent, reached[work]);
    reached[work] = percent;
    if (work == stopsAt && percent > 30) stopped = true;
  };
  for (const std::optional<ExcelWork> stop : {std::optional<ExcelWork>(), std::optional(ExcelWork::kImporting),
                                              std::optional(ExcelWork::kFitting), std::optional(ExcelWork::kSaving)}) {
    reached.clear();
    stopsAt = stop;
    stopped = false;
    ExcelFixture fixture(u"cs-CZ", {.cancelled = [&] { return stopped; }, .reached = watch});
    fixture.folder.Write("out.xlsx", "old");
    std::int32_t raised = 0;
    try {
      const ExcelWorkbookReference import = fixture.Import(data, "gt");
      import->Sheets(1)->Range(u"A1")->CurrentRegion()->AutoFitColumns();
      import->SaveAs(fixture.folder.TextPath("out.xlsx"), ExcelSaveFormat::kWorkbookXml);
    } catch (const Error& error) {
      raised = error.number();
    }
    EXPECT_EQ(raised, stop ? 18 : 0);
    EXPECT_EQ(fixture.folder.Read("out.xlsx") == "old", stop.has_value());
    if (stop) {
      EXPECT_LT(reached[*stop], 50);
      EXPECT_EQ(reached.rbegin()->first, *stop);  // nothing was begun after it
    } else {
      for (const ExcelWork work : {ExcelWork::kImporting, ExcelWork::kFitting, ExcelWork::kSaving}) {
        EXPECT_GT(reached[work], 90);
      }
    }
  }
}

TEST(ExcelWorkbookTest, OtherFormatsByLibreOffice) {
  ExcelFixture bench;
  bench.folder.Write(
      "old.xls",
      "<?xml version=\"1.0\"?><?mso-application progid=\"Excel.Sheet\"?><Workbook "
      "xmlns=\"urn:schemas-microsoft-com:office:spreadsheet\" "
      "xmlns:ss=\"urn:schemas-microsoft-com:office:spreadsheet\"><Worksheet ss:Name=\"Ceny\"><Table><Row>"
      "<Cell><Data ss:Type=\"String\">{nazev}</Data></Cell><Cell><Data ss:Type=\"Number\">12.5</Data></Cell>"
      "<Cell ss:Formula=\"=RC[-1]*2\"><Data ss:Type=\"Number\">0</Data></Cell></Row></Table></Worksheet>"
      "</Workbook>");
  const ExcelWorkbookReference workbook = bench.Application()->AddWorkbook(bench.folder.TextPath("old.xls"));
  EXPECT_EQ(Shown(workbook->Name()), "old1");
  const ExcelWorksheetReference sheet = workbook->ActiveSheet();
  EXPECT_EQ(Shown(sheet->Range(u"A1")->Text()), "{nazev}");
  sheet->Range(u"B1")->Formula(u"21");
  bench.Saved(*workbook);
  EXPECT_EQ(ErrorOf([&] { workbook->ExportAsFixedFormat({.fileName = workbook->FullName()}); }).number(), 70);
  workbook->ExportAsFixedFormat({.fileName = bench.folder.TextPath("out.pdf")});
  EXPECT_TRUE(bench.folder.Read("out.pdf").starts_with("%PDF"));
  // The written formula is calculated by whoever opens the file.
  LibreOfficeConverter().ToOpenXml(bench.folder.Path("out.xlsx"), bench.folder.Path("again.xlsx"));
  const ExcelWorkbookReference again = bench.Engine().GetWorkbook(bench.folder.TextPath("again.xlsx"));
  EXPECT_EQ(ShownValues(*again->ActiveSheet()->Range(u"A1:C1")), "'{nazev}|21|42");
}

TEST(ExcelWorkbookTest, ASaveThatFailsLeavesTheOldFile) {
  ExcelFixture bench;
  Package package =
      ExcelPackage({.rows = "<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>", .sheets = {{"Vadný", "<f><worksheet>"}}});
  package.SaveAs(bench.folder.Path("t.xltx"));
  const ExcelWorkbookReference workbook = bench.Application()->AddWorkbook(bench.folder.TextPath("t.xltx"));
  bench.folder.Write("out.xlsx", "old");
  workbook->ActiveSheet()->Range(u"A1")->Formula({});
  EXPECT_EQ(
      ErrorOf([&] { workbook->SaveAs(bench.folder.TextPath("out.xlsx"), ExcelSaveFormat::kWorkbookXml); }).number(), 5);
  EXPECT_EQ(bench.folder.Read("out.xlsx"), "old");
  EXPECT_EQ(bench.folder.Count(), 2);
}

}  // namespace
}  // namespace zorkanca::testing
