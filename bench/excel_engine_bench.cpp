// Measures the Excel engine as the exports drive it, without their query:
//
//   excel_engine_bench data ROWS FILE             writes a text file of eight columns, as the plain export does
//   excel_engine_bench rows FILE RESULT           imports it, copies, formats, fits the columns and saves
//   excel_engine_bench template FOLDER            writes FOLDER/pattern.xltx: one formatted row of ten cells with a
//   picture excel_engine_bench repeat COPIES FOLDER       repeats its row without the picture, lays values over, saves
//   excel_engine_bench pictures COPIES FOLDER     the same with the picture, one paste for each copy
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "excel/excel_engine.h"
#include "opc/package.h"
#include "opc/relationships.h"
#include "runtime/utf8.h"

namespace {

using namespace zorkanca;

constexpr int kTextColumns[] = {2, 3, 4, 8};

// Number, name, group, unit, quantity, price, date, note: unique and repeated texts, grouped numbers, as the export
// writes them in the Czech locale.
void WriteData(long rows, const char* path) {
  std::FILE* file = std::fopen(path, "wb");
  if (!file) std::exit(1);
  std::fputs("\xC8\xEDslo;N\xE1zev;Skupina;Jednotka;Mno\x9Estv\xED;Cena;Datum;Pozn\xE1mka\r\n", file);
  for (long row = 1; row <= rows; ++row) {
    std::fprintf(file, "%ld;\x8Aroub \xE8. %ld;Skupina %ld;ks;%ld,%02ld;%ld\xA0%03ld,%02ld;%ld.%ld.20%02ld;%s\r\n", row,
                 row * 7919 % 1000003, row % 37, row % 500, row % 100, row % 90 + 1, row % 1000, row % 100,
                 row % 28 + 1, row % 12 + 1, row % 25,
                 row % 3 == 0 ? "\"dod\xE1vka; do t\xFD"
                                "dne\""
                              : "");
  }
  if (std::fclose(file) != 0) std::exit(1);
}

OpenTextArguments ImportOf(const Text& path) {
  OpenTextArguments arguments{.Filename = path, .Other = true, .OtherChar = u";"};
  for (std::int32_t column = 1; column <= 8; ++column)
    arguments.FieldInfo.push_back({column, ExcelColumnType::kGeneral});
  for (const int column : kTextColumns) {
    arguments.FieldInfo[static_cast<std::size_t>(column) - 1].type = ExcelColumnType::kText;
  }
  return arguments;
}

void ExportRows(ExcelApplication& excel, const Text& data, const Text& result) {
  const ExcelWorkbookReference workbook = excel.AddWorkbook({});
  excel.OpenText(ImportOf(data));
  const ExcelWorkbookReference import = excel.ActiveWorkbook();
  const auto target = workbook->Sheets(1)->Range(u"A1");
  import->Sheets(1)->Range(u"A1")->CurrentRegion()->Copy(*target);
  for (std::int32_t column = 1; column <= 8; ++column) {
    const bool isText = import->Sheets(1) != nullptr && (column == 2 || column == 3 || column == 4 || column == 8);
    workbook->Sheets(1)->Columns(column)->HorizontalAlignment(isText ? ExcelAlignment::kLeft : ExcelAlignment::kRight);
  }
  import->Close(false);
  target->CurrentRegion()->AutoFitColumns();
  workbook->Sheets(1)->Rows(u"1:1")->FontBold(true);
  workbook->Sheets(1)->Rows(u"1:1")->HorizontalAlignment(ExcelAlignment::kCenter);
  workbook->Activate();
  target->Select();
  workbook->SaveAs(result, ExcelSaveFormat::kWorkbookXml);
}

std::string Cell(int column, const std::string& text) {
  return "<c r=\"" + std::string(1, static_cast<char>('A' + column)) + "1\" s=\"" + std::to_string(column % 5 + 1) +
         "\" t=\"inlineStr\"><is><t>" + text + "</t></is></c>";
}

void WriteTemplate(const std::string& folder) {
  const std::string main = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
  const std::string office = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
  const std::string types = "application/vnd.openxmlformats-officedocument.";
  std::string cells;
  for (int column = 0; column < 9; ++column) cells += Cell(column, "{F" + std::to_string(column) + "}");
  std::string formats = "<xf/>";
  for (int i = 1; i <= 5; ++i) {
    formats += "<xf numFmtId=\"" + std::to_string(i) + "\" fontId=\"0\" fillId=\"" + std::to_string(i % 2) +
               "\" borderId=\"0\" applyNumberFormat=\"1\"/>";
  }
  Package package;
  package.AddPart("/xl/workbook.xml", types + "spreadsheetml.template.main+xml",
                  "<workbook xmlns=\"" + main + "\" xmlns:r=\"" + office +
                      "\"><sheets><sheet name=\"List1\" sheetId=\"1\" r:id=\"rId1\"/></sheets></workbook>");
  package.AddPart(
      "/xl/worksheets/sheet1.xml", types + "spreadsheetml.worksheet+xml",
      "<worksheet xmlns=\"" + main + "\" xmlns:r=\"" + office +
          "\"><sheetData><row r=\"1\" ht=\"24\" customHeight=\"1\">" + cells +
          "<c r=\"J1\" s=\"2\"><f>LEN(A1)+LEN(B1)</f></c></row></sheetData><drawing r:id=\"rId1\"/></worksheet>");
  package.AddPart(
      "/xl/styles.xml", types + "spreadsheetml.styles+xml",
      "<styleSheet xmlns=\"" + main +
          "\"><fonts count=\"1\"><font><sz val=\"11\"/><name val=\"Calibri\"/></font></fonts><fills count=\"2\">"
          "<fill><patternFill/></fill><fill><patternFill patternType=\"gray125\"/></fill></fills>"
          "<borders count=\"1\"><border/></borders><cellXfs count=\"6\">" +
          formats + "</cellXfs></styleSheet>");
  package.AddPart(
      "/xl/drawings/drawing1.xml", types + "drawing+xml",
      "<xdr:wsDr xmlns:xdr=\"http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing\" "
      "xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\"><xdr:twoCellAnchor "
      "editAs=\"oneCell\"><xdr:from>"
      "<xdr:col>10</xdr:col><xdr:colOff>0</xdr:colOff><xdr:row>0</xdr:row><xdr:rowOff>0</xdr:rowOff></xdr:from><xdr:to>"
      "<xdr:col>11</xdr:col><xdr:colOff>0</xdr:colOff><xdr:row>1</xdr:row><xdr:rowOff>0</xdr:rowOff></xdr:to><xdr:sp>"
      "<xdr:nvSpPr><xdr:cNvPr id=\"2\" name=\"Tvar 1\"/><xdr:cNvSpPr/></xdr:nvSpPr><xdr:spPr><a:prstGeom prst=\"rect\">"
      "<a:avLst/></a:prstGeom></xdr:spPr></xdr:sp><xdr:clientData/></xdr:twoCellAnchor></xdr:wsDr>");
  const auto relate = [&](const std::string& source, const std::string& kind, const std::string& target) {
    Relationships list = package.RelationshipsOf(source);
    list.Add(OfficeRelationshipType(kind), target);
    package.SetRelationships(list);
  };
  relate("/", "officeDocument", "/xl/workbook.xml");
  relate("/xl/workbook.xml", "worksheet", "/xl/worksheets/sheet1.xml");
  relate("/xl/workbook.xml", "styles", "/xl/styles.xml");
  relate("/xl/worksheets/sheet1.xml", "drawing", "/xl/drawings/drawing1.xml");
  package.SaveAs(folder + "/pattern.xltx");
}

void Repeat(ExcelApplication& excel, std::int32_t copies, const std::string& folder, bool pictures) {
  const std::string data = folder + "/pattern.txt";
  std::FILE* file = std::fopen(data.c_str(), "wb");
  if (!file) std::exit(1);
  for (std::int32_t row = 1; row <= copies; ++row) {
    for (int column = 0; column < 9; ++column) {
      std::fprintf(file, column == 0 ? "%d" : ";%d", row * 10 + column);
    }
    std::fputs("\r\n", file);
  }
  if (std::fclose(file) != 0) std::exit(1);

  const ExcelWorkbookReference workbook = excel.AddWorkbook(FromUtf8(folder + "/pattern.xltx"));
  const ExcelWorksheetReference sheet = workbook->ActiveSheet();
  const auto first = sheet->Range(u"A1");
  for (std::int32_t column = 0; column < 9; ++column) first->Offset(0, column)->Formula({});
  sheet->Rows(u"1:1")->Copy();
  if (pictures) {
    for (std::int32_t copy = 1; copy < copies; ++copy) {
      first->Offset(copy, 0)->Select();
      sheet->Paste();
    }
  } else {
    sheet->Rows(u"2:" + DecimalText(copies))->Select();
    sheet->Paste();
  }
  excel.CutCopyMode(false);
  OpenTextArguments arguments{.Filename = FromUtf8(data), .Other = true, .OtherChar = u";"};
  for (std::int32_t column = 1; column <= 9; ++column) arguments.FieldInfo.push_back({column, ExcelColumnType::kText});
  excel.OpenText(arguments);
  const ExcelWorkbookReference import = excel.ActiveWorkbook();
  import->Sheets(1)->Range(u"A1")->CurrentRegion()->Copy();
  first->PasteSpecial({.Paste = ExcelPasteType::kFormulas});
  import->Close(false);
  workbook->SaveAs(FromUtf8(folder + (pictures ? "/pictures.xlsx" : "/repeated.xlsx")), ExcelSaveFormat::kWorkbookXml);
}

}  // namespace

int main(int count, char** arguments) {
  const std::string kind = count > 1 ? arguments[1] : "";
  try {
    ExcelEngine engine(*FindLocale(u"cs-CZ"));
    ExcelApplication& excel = *engine.StartExcel();
    if (kind == "data" && count == 4) {
      WriteData(std::atol(arguments[2]), arguments[3]);
    } else if (kind == "rows" && count == 4) {
      ExportRows(excel, FromUtf8(arguments[2]), FromUtf8(arguments[3]));
    } else if (kind == "template" && count == 3) {
      WriteTemplate(arguments[2]);
    } else if ((kind == "repeat" || kind == "pictures") && count == 4) {
      Repeat(excel, std::atoi(arguments[2]), arguments[3], kind == "pictures");
    } else {
      std::fputs("usage: see the head of bench/excel_engine_bench.cpp\n", stderr);
      return 2;
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
