#include "excel/tables/blank_package.h"

#include "excel/tables/local_names.h"
#include "opc/xml_escape.h"
#include "opc/xml_names.h"

namespace zorkanca::excel {

namespace {

constexpr std::string_view kTypes = "application/vnd.openxmlformats-officedocument.spreadsheetml.";
constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n";

std::string Root(std::string_view element) {
  std::string xml(kDeclaration);
  return xml.append("<").append(element).append(" xmlns=\"").append(NamespaceUri(XmlSpace::kSheet)).append("\"");
}

std::string Type(std::string_view kind) {
  return std::string(kTypes).append(kind).append("+xml");
}

}  // namespace

std::string FreePartName(Package& package, const std::string& stem) {
  std::string usual = stem + ".xml";
  return package.HasPart(usual) ? package.FreshPartName(stem + "#.xml") : usual;
}

std::string BlankStyles() {
  return Root("styleSheet") +
         "><fonts count=\"1\"><font><sz val=\"11\"/><name val=\"Calibri\"/><family val=\"2\"/></font></fonts>"
         "<fills count=\"2\"><fill><patternFill patternType=\"none\"/></fill>"
         "<fill><patternFill patternType=\"gray125\"/></fill></fills>"
         "<borders count=\"1\"><border><left/><right/><top/><bottom/><diagonal/></border></borders>"
         "<cellStyleXfs count=\"1\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\"/></cellStyleXfs>"
         "<cellXfs count=\"1\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\" xfId=\"0\"/></cellXfs>"
         "<cellStyles count=\"1\"><cellStyle name=\"Normal\" xfId=\"0\" builtinId=\"0\"/></cellStyles></styleSheet>";
}

Package BlankWorkbook(const Locale& locale) {
  const std::string main = "/xl/workbook.xml";
  const std::string sheet = "/xl/worksheets/sheet1.xml";
  const std::string styles = "/xl/styles.xml";
  std::string workbook = Root("workbook");
  workbook.append(" xmlns:r=\"").append(NamespaceUri(XmlSpace::kRelationships));
  workbook += "\"><bookViews><workbookView/></bookViews><sheets><sheet name=\"";
  AppendXmlAttribute(workbook, NewSheetName(locale) + u"1");
  workbook += "\" sheetId=\"1\" r:id=\"rId1\"/></sheets></workbook>";

  Package package;
  package.AddPart(main, Type("sheet.main"), workbook);
  package.AddPart(
      sheet, Type("worksheet"),
      Root("worksheet") +
          "><dimension ref=\"A1\"/><sheetViews><sheetView tabSelected=\"1\" workbookViewId=\"0\"/></sheetViews>"
          "<sheetFormatPr defaultRowHeight=\"15\"/><sheetData/>"
          "<pageMargins left=\"0.7\" right=\"0.7\" top=\"0.75\" bottom=\"0.75\" header=\"0.3\" footer=\"0.3\"/>"
          "</worksheet>");
  package.AddPart(styles, Type("styles"), BlankStyles());
  Relationships top{std::string(Package::kRoot)};
  top.Add(OfficeRelationshipType("officeDocument"), main);
  package.SetRelationships(top);
  Relationships own(main);
  own.Add(OfficeRelationshipType("worksheet"), sheet);
  own.Add(OfficeRelationshipType("styles"), styles);
  package.SetRelationships(own);
  return package;
}

}  // namespace zorkanca::excel
