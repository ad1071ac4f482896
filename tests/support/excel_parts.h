// Small workbooks made of snippets of SpreadsheetML, filled as the exports do it and read again.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "excel/excel_engine.h"
#include "opc/package.h"
#include "opc/xml_document.h"
#include "runtime/code_page.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {

inline const std::string kSheetXml = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
inline const std::string kOfficeXml = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
inline const std::string kSheetTypes = "application/vnd.openxmlformats-officedocument.spreadsheetml.";

/// What a workbook is made of; what is left out is as small as can be.
struct ExcelParts {
  std::string rows = {};                                                   ///< inside of sheetData
  std::string before = {};                                                 ///< elements of the sheet before its rows
  std::string behind = {};                                                 ///< and behind them
  std::string strings = {};                                                ///< inside of sst; none without
  std::string formats = "<xf/><xf numFmtId=\"4\"/><xf numFmtId=\"14\"/>";  ///< inside of cellXfs
  std::string styles = {};                                                 ///< before cellXfs
  std::string drawing = {};                                                ///< inside of wsDr
  std::string workbook = {};                                               ///< behind its sheets
  std::map<std::string, std::string> sheets = {};                          ///< further sheets: whole parts, by name
  std::string kind = kSheetTypes + "template.main+xml";
};

inline void Relate(Package& package, const std::string& source, const std::string& kind, const std::string& target) {
  Relationships list = package.RelationshipsOf(source);
  list.Add(OfficeRelationshipType(kind), target);
  package.SetRelationships(list);
}

inline Package ExcelPackage(const ExcelParts& parts) {
  const std::string main = "/xl/workbook.xml";
  const std::string sheet = "/xl/worksheets/sheet1.xml";
  const auto root = [](const std::string& name, const std::string& inside) {
    return "<" + name + " xmlns=\"" + kSheetXml + "\" xmlns:r=\"" + kOfficeXml + "\">" + inside + "</" + name + ">";
  };
  Package package;
  std::string sheets = "<sheet name=\"První\" sheetId=\"1\" r:id=\"rId1\"/>";
  int number = 1;
  for (const auto& [name, xml] : parts.sheets) {
    ++number;
    const std::string id = std::to_string(number);
    sheets += "<sheet name=\"" + name + "\" sheetId=\"" + id + "\" r:id=\"rId" + id + "\"/>";
  }
  package.AddPart(main, parts.kind, root("workbook", "<sheets>" + sheets + "</sheets>" + parts.workbook));
  const std::string drawing = parts.drawing.empty() ? "" : "<drawing r:id=\"rId1\"/>";
  package.AddPart(
      sheet, kSheetTypes + "worksheet+xml",
      root("worksheet", parts.before + "<sheetData>" + parts.rows + "</sheetData>" + parts.behind + drawing));
  Relate(package, "/", "officeDocument", main);
  Relate(package, main, "worksheet", sheet);
  number = 1;
  for (const auto& [name, xml] : parts.sheets) {
    const std::string part = "/xl/worksheets/sheet" + std::to_string(++number) + ".xml";
    package.AddPart(part, kSheetTypes + "worksheet+xml", xml);
    Relate(package, main, "worksheet", part);
  }
  package.AddPart("/xl/styles.xml", kSheetTypes + "styles+xml",
                  root("styleSheet", parts.styles + "<cellXfs>" + parts.formats + "</cellXfs>"));
  Relate(package, main, "styles", "/xl/styles.xml");
  if (!parts.strings.empty()) {
    package.AddPart("/xl/sharedStrings.xml", kSheetTypes + "sharedStrings+xml", root("sst", parts.strings));
    Relate(package, main, "sharedStrings", "/xl/sharedStrings.xml");
  }
  if (!parts.drawing.empty()) {
    package.AddPart("/xl/drawings/drawing1.xml", "application/vnd.openxmlformats-officedocument.drawing+xml",
                    "<xdr:wsDr xmlns:xdr=\"http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing\">" +
                        parts.drawing + "</xdr:wsDr>");
    Relate(package, sheet, "drawing", "/xl/drawings/drawing1.xml");
  }
  return package;
}

/// An engine with a folder for its files.
class ExcelFixture {
 public:
  explicit ExcelFixture(TextView localeTag = u"cs-CZ", ExcelWatch watch = {})
      : locale_(*FindLocale(localeTag)), engine_(locale_, {}, std::move(watch)) {
    locale_.currentYear = 2026;
  }

  ExcelApplicationReference Application() { return engine_.StartExcel(); }
  ExcelEngine& Engine() { return engine_; }
  ExcelWorkbookReference Add(const ExcelParts& parts) {
    ExcelPackage(parts).SaveAs(folder.Path("t.xltx"));
    return Application()->AddWorkbook(folder.TextPath("t.xltx"));
  }
  /// Writes a text in the code page 1250 and imports it.
  /// @param types  of the columns: "t" text, "g" general
  ExcelWorkbookReference Import(const std::string& utf8, const std::string& types) {
    std::string bytes;
    locale_.codePage->AppendEncoded(bytes, FromUtf8(utf8));
    folder.Write("data.txt", bytes);
    OpenTextArguments arguments{.Filename = folder.TextPath("data.txt"), .Other = true, .OtherChar = u";"};
    for (const char type : types) {
      arguments.FieldInfo.push_back({static_cast<std::int32_t>(arguments.FieldInfo.size()) + 1,
                                     type == 't' ? ExcelColumnType::kText : ExcelColumnType::kGeneral});
    }
    Application()->OpenText(arguments);
    return Application()->Workbooks(u"data.txt");
  }
  /// Repeats the first rows of the active sheet with one paste.
  static void Repeat(ExcelWorksheet& sheet, std::int32_t rows, std::int32_t copies) {
    sheet.Rows(u"1:" + DecimalText(rows))->Copy();
    sheet.Rows(DecimalText(rows + 1) + u":" + DecimalText(rows * copies))->Select();
    sheet.Paste();
  }
  /// Lays an import over the sheet's first cell, contents alone, as the template exports do.
  void Fill(ExcelWorksheet& sheet, const std::string& utf8, const std::string& types) {
    const ExcelWorkbookReference import = Import(utf8, types);
    import->Sheets(1)->Range(u"A1")->CurrentRegion()->Copy();
    sheet.Range(u"A1")->PasteSpecial({.Paste = ExcelPasteType::kFormulas});
    import->Close(false);
  }
  /// Saves the workbook and opens the file again.
  Package Saved(ExcelWorkbook& workbook, const std::string& name = "out.xlsx") {
    workbook.SaveAs(folder.TextPath(name), ExcelSaveFormat::kWorkbookXml);
    Package package = Package::Open(folder.Path(name));
    for (const std::string& part : package.PartNames()) {
      if (part.ends_with(".xml")) RequireSoundXml(package.ReadPart(part), {name, part});
    }
    return package;
  }
  std::string SavedSheet(ExcelWorkbook& workbook) { return Saved(workbook).ReadPart("/xl/worksheets/sheet1.xml"); }
  /// The inside of the saved sheet's rows.
  std::string SavedRows(ExcelWorkbook& workbook) {
    const std::string xml = SavedSheet(workbook);
    const std::size_t start = xml.find("<sheetData>") + 11;
    return xml.substr(start, xml.find("</sheetData>") - start);
  }

  TemporaryFolder folder;

 private:
  Locale locale_;
  ExcelEngine engine_;
};

/// Cells in one line, "|" between them: texts, numbers, TRUE, errors as "2042!"; "~" where a record has no field.
inline std::string ShownValues(ExcelRange& range) {
  std::ostringstream shown;
  shown.precision(15);
  const CellGrid grid = range.Value2();
  for (std::int32_t row = 0; row < grid.rows(); ++row) {
    for (std::int32_t column = 0; column < grid.columns(); ++column) {
      shown << (column > 0 ? "|" : row > 0 ? " / " : "");
      const Value& value = grid.At(row, column);
      if (IsNull(value)) shown << "~";
      if (const auto* object = std::get_if<ObjectReference>(&value)) {
        shown << dynamic_cast<const CellError&>(**object).number << "!";
      } else if (const auto* number = std::get_if<double>(&value)) {
        shown << *number;
      } else if (const auto* truth = std::get_if<bool>(&value)) {
        shown << (*truth ? "TRUE" : "FALSE");
      } else if (const auto* text = std::get_if<Text>(&value)) {
        shown << "'" << Shown(*text);
      }
    }
  }
  return shown.str();
}

}  // namespace zorkanca::testing
