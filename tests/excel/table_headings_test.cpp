// Tables whose headings are written over.
#include <gtest/gtest.h>

#include "excel/grid/table_references.h"
#include "support/excel_steps.h"

namespace zorkanca::testing {
namespace {

std::string TablePart(const std::string& attributes, const std::string& columns) {
  return "<table xmlns=\"" + kSheetXml + "\" id=\"1\" name=\"Prodej\" displayName=\"Prodej\" " + attributes +
         "><autoFilter ref=\"A3:C5\"/><tableColumns count=\"3\">" + columns + "</tableColumns></table>";
}

const std::string kColumns =
    "<tableColumn id=\"1\" name=\"Kód\"/><tableColumn id=\"2\" name=\"Cena\"/><tableColumn id=\"3\" name=\"S DPH\">"
    "<calculatedColumnFormula>Prodej[[#This Row],[Cena]]*1.21</calculatedColumnFormula></tableColumn>";

// Names of the saved table's columns, then what the cells of its heading hold.
std::string HeadingOf(const Package& package, ExcelWorksheet& sheet, const char* area) {
  const pugi::xml_document table = ParseXml(package.ReadPart("/xl/tables/table1.xml"), {});
  std::string names;
  for (const pugi::xml_node column : table.document_element().child("tableColumns").children()) {
    names += (names.empty() ? "" : "|") + std::string(column.attribute("name").value());
  }
  return names + " = " + ShownValues(*sheet.Range(FromUtf8(area)));
}

struct TableCase {
  const char* steps;
  const char* heading;
  const char* formula;  // of E1
  std::string attributes = "ref=\"A3:C5\"";
};

// Rows 1 and 2 are the pattern; the table begins in row 3.
TEST(TableHeadingsTest, NamesOfColumnsFollowTheirCells) {
  const char* const kSame = "SUM(Prodej[Cena])";
  const TableCase rows[] = {
      {"edit A1 x", "Kód|Cena|S DPH = 'Kód|'Cena|'S DPH", kSame},
      {"edit A5 x", "Kód|Cena|S DPH = 'Kód|'Cena|'S DPH", kSame},
      {"edit B3 Netto", "Kód|Netto|S DPH = 'Kód|'Netto|'S DPH", "SUM(Prodej[Netto])"},
      {"edit B3 Cena", "Kód|Cena|S DPH = 'Kód|'Cena|'S DPH", kSame},
      {"edit B3 kód", "Kód|kód2|S DPH = 'Kód|'kód2|'S DPH", "SUM(Prodej[kód2])"},
      {"edit B3 5,5", "Kód|5,5|S DPH = 'Kód|'5,5|'S DPH", "SUM(Prodej[5,5])"},
      {"edit B3 1250", "Kód|1250|S DPH = 'Kód|'1250|'S DPH", "SUM(Prodej[1250])"},
      {"edit B3 =A1", "Kód|Sloupec1|S DPH = 'Kód|'Sloupec1|'S DPH", "SUM(Prodej[Sloupec1])"},
      {"edit B3", "Kód|Sloupec1|S DPH = 'Kód|'Sloupec1|'S DPH", "SUM(Prodej[Sloupec1])"},
      {"edit B3 [a]'", "Kód|[a]'|S DPH = 'Kód|'[a]'|'S DPH", "SUM(Prodej['[a']''])"},
      {"edit B3 'a\nb", "Kód|a_x000a_b|S DPH = 'Kód|'a\\nb|'S DPH", "SUM(Prodej[a\nb])"},
      // Copies of the pattern over it, filled or not.
      {"repeat 2 2 | fill ttt 1;2;3/4;5;6/7;8;9/0;1;2", "7|8|9 = '7|'8|'9", "SUM(Prodej[8])"},
      {"repeat 2 2", "Sloupec1|Sloupec2|Sloupec3 = 'Sloupec1|'Sloupec2|'Sloupec3", "SUM(Prodej[Sloupec2])"},
      {"repeat 2 2 | fill ttt 1;2;3/4;5;6/x;x;X/0;1;2", "x|x2|X3 = 'x|'x2|'X3", "SUM(Prodej[x2])"},
      // A table without a heading, one elsewhere, and one that is not what it says.
      {"repeat 2 2", "Kód|Cena|S DPH = ||", kSame, "ref=\"A3:C5\" headerRowCount=\"0\""},
      {"edit B3 Netto", "Kód|Cena|S DPH = 'Kód|'Netto|'S DPH", kSame, "ref=\"A4:C5\""},
      {"edit B3 Netto", "Kód|Cena|S DPH = 'Kód|'Netto|'S DPH", kSame, "ref=\"A3:D5\""},
  };
  for (const TableCase& row : rows) {
    ExcelFixture fixture;
    const std::string sheetTwo = "<worksheet xmlns=\"" + kSheetXml +
                                 "\"><sheetData><row r=\"1\"><c r=\"A1\"><f>SUM(Prodej[Cena])</f><v>1</v></c></row>"
                                 "</sheetData></worksheet>";
    Package package = ExcelPackage(
        {.rows = "<row r=\"1\"><c r=\"E1\"><f>SUM(Prodej[Cena])</f><v>1</v></c></row><row r=\"2\"/><row r=\"3\">"
                 "<c r=\"A3\" t=\"inlineStr\"><is><t>Kód</t></is></c><c r=\"B3\" t=\"inlineStr\"><is><t>Cena</t></is>"
                 "</c><c r=\"C3\" t=\"inlineStr\"><is><t>S DPH</t></is></c></row>",
         .behind = "<tableParts count=\"1\"><tablePart r:id=\"rId1\"/></tableParts>",
         .workbook = "<definedNames><definedName name=\"Ceny\">Prodej[Cena]</definedName></definedNames>",
         .sheets = {{"Druhý", sheetTwo}}});
    package.AddPart("/xl/tables/table1.xml", kSheetTypes + "table+xml", TablePart(row.attributes, kColumns));
    Relate(package, "/xl/worksheets/sheet1.xml", "table", "/xl/tables/table1.xml");
    package.SaveAs(fixture.folder.Path("t.xltx"));
    const ExcelWorkbookReference workbook = fixture.Application()->AddWorkbook(fixture.folder.TextPath("t.xltx"));
    const ExcelWorksheetReference sheet = workbook->ActiveSheet();
    ExcelSteps(fixture, *sheet).Run(row.steps);
    const Package saved = fixture.Saved(*workbook);
    const ExcelWorkbookReference again = fixture.Engine().GetWorkbook(fixture.folder.TextPath("out.xlsx"));
    EXPECT_EQ(HeadingOf(saved, *again->Sheets(1), "A3:C3"), row.heading) << row.steps;
    // Formulas follow: of the sheet, of another one, names, and the table's own.
    const std::string formula = row.formula;
    EXPECT_NE(saved.ReadPart("/xl/worksheets/sheet1.xml").find("<f>" + formula + "</f>"), std::string::npos)
        << row.steps;
    EXPECT_NE(saved.ReadPart("/xl/worksheets/sheet2.xml").find("<f>" + formula + "</f>"), std::string::npos)
        << row.steps;
    const std::string reference = formula.substr(4, formula.size() - 5);
    EXPECT_NE(saved.ReadPart("/xl/workbook.xml").find(">" + reference + "<"), std::string::npos) << row.steps;
    const std::string column = reference.substr(6);
    EXPECT_NE(saved.ReadPart("/xl/tables/table1.xml").find("Prodej[[#This Row]," + column + "]*1.21"),
              std::string::npos)
        << row.steps;
  }
}

TEST(TableHeadingsTest, FormulasFollowRenamedColumns) {
  excel::TableRenames renames;
  renames.Add("Prodej", "Cena", "Netto");
  renames.Add("Prodej", "Netto", "Cena");
  renames.Add("Prodej", "S DPH #", "S [DPH]");
  const std::pair<const char*, const char*> rows[] = {
      {"SUM(Prodej[Cena])", "SUM(Prodej[Netto])"},
      {"sum(PRODEJ[cena])-Prodej[Netto]", "sum(PRODEJ[Netto])-Prodej[Cena]"},
      {"Prodej[@Cena]*Prodej[@[Netto]]", "Prodej[@Netto]*Prodej[@[Cena]]"},
      {"Prodej[[#This Row],[Cena]]", "Prodej[[#This Row],[Netto]]"},
      {"Prodej[[Cena]:[S DPH '#]]", "Prodej[[Netto]:[S '[DPH']]]"},
      {"Prodej[#Headers]", "Prodej[#Headers]"},
      {"Prodej[]", "Prodej[]"},
      {"Prodej[[#All],[Cena],[Jiný]]", "Prodej[[#All],[Netto],[Jiný]]"},
      {"Jiná[Cena]+Prodej2[Cena]", "Jiná[Cena]+Prodej2[Cena]"},
      {"\"Prodej[Cena]\"&'Prodej[Cena]'!A1", "\"Prodej[Cena]\"&'Prodej[Cena]'!A1"},
      {"[1]List1!A1+Prodej[Cena", "[1]List1!A1+Prodej[Cena"},
      {"Prodej [Cena]", "Prodej [Cena]"},
      {"[Cena]", "[Cena]"},
  };
  for (const auto& [formula, renamed] : rows) EXPECT_EQ(renames.Renamed(formula), renamed);
  EXPECT_EQ(renames.Renamed("[Cena]*2+[@Netto]+Jiná[Cena]", "Prodej"), "[Netto]*2+[@Cena]+Jiná[Cena]");
  EXPECT_EQ(renames.RenamedElement("<x:f ca=\"1\">A1&lt;Prodej[Cena]</x:f>"),
            "<x:f ca=\"1\">A1&lt;Prodej[Netto]</x:f>");
  EXPECT_EQ(renames.RenamedElement("<f t=\"shared\" si=\"0\"/>"), "<f t=\"shared\" si=\"0\"/>");
}

}  // namespace
}  // namespace zorkanca::testing
