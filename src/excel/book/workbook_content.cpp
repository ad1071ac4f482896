#include "excel/book/workbook_content.h"

#include "excel/book/workbook_saver.h"
#include "excel/drawing/drawing_repeats.h"
#include "excel/grid/excel_errors.h"
#include "excel/grid/xml_scanner.h"
#include "excel/tables/blank_package.h"
#include "opc/office_error.h"
#include "opc/xml_document.h"
#include "opc/xml_names.h"
#include "opc/xml_tree.h"
#include "runtime/utf8.h"

namespace zorkanca::excel {

namespace {

constexpr std::string_view kWorkbook = "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml";
constexpr std::string_view kTemplate = "application/vnd.openxmlformats-officedocument.spreadsheetml.template.main+xml";
constexpr std::string_view kMacroWorkbook = "application/vnd.ms-excel.sheet.macroEnabled.main+xml";
constexpr std::string_view kMacroTemplate = "application/vnd.ms-excel.template.macroEnabled.main+xml";

}  // namespace

WorkbookContent::WorkbookContent(Package package, const Locale& locale, const ExcelWatch& watch)
    : package_(std::move(package)), locale_(locale), watch_(watch) {
  mainPart_ = package_.MainPart();
  SettleType();
  workbook_ = ParseXml(package_.ReadPart(mainPart_), {file(), mainPart_});
  ReadSheets();
  if (const auto part = package_.RelatedPart(mainPart_, "sharedStrings")) {
    textsPart_ = *part;
    texts_ = SharedStrings(package_.ReadPart(*part), {file(), *part});
  }
  ReadStyles();
}

void WorkbookContent::SettleType() {
  const std::string type = package_.ContentTypeOf(mainPart_);
  if (type == kTemplate) {
    package_.SetContentType(mainPart_, kWorkbook);
  } else if (type == kMacroTemplate) {
    package_.SetContentType(mainPart_, kMacroWorkbook);
  } else if (type != kWorkbook && type != kMacroWorkbook) {
    RaiseNotOfficeDocument(file(), "its main part is no Excel workbook");
  }
}

pugi::xml_node WorkbookContent::WorkbookChild(const char* name) const {
  return XmlNames(workbook_).Child(workbook_.document_element(), XmlSpace::kSheet, name);
}

void WorkbookContent::ReadSheets() {
  const XmlNames names(workbook_);
  const pugi::xml_node root = workbook_.document_element();
  if (!names.Is(root, XmlSpace::kSheet, "workbook")) RaiseBadPart(file(), mainPart_, "it is no workbook");
  const Relationships relationships = package_.RelationshipsOf(mainPart_);
  const pugi::xml_node list = names.Child(root, XmlSpace::kSheet, "sheets");
  for (pugi::xml_node sheet = names.Child(list, XmlSpace::kSheet, "sheet"); sheet;
       sheet = names.NextSibling(sheet, XmlSpace::kSheet, "sheet")) {
    const std::string id = names.Attribute(sheet, XmlSpace::kRelationships, "id").value();
    const Relationship* relationship = relationships.Find(id);
    const auto part = relationship ? relationships.PartOf(*relationship) : std::nullopt;
    const std::string name = sheet.attribute("name").value();
    if (!part || !package_.HasPart(*part)) RaiseBadPart(file(), mainPart_, "the sheet " + name + " is missing");
    sheets_.push_back({.name = name, .part = *part, .hasCells = relationship->Is("worksheet")});
  }
  if (sheets_.empty()) RaiseBadPart(file(), mainPart_, "it has no sheets");
  const pugi::xml_node view =
      names.Child(names.Child(root, XmlSpace::kSheet, "bookViews"), XmlSpace::kSheet, "workbookView");
  activeSheet_ = view.attribute("activeTab").as_uint();
  if (activeSheet_ >= sheets_.size()) activeSheet_ = 0;
  is1904_ = IsTrue(names.Child(root, XmlSpace::kSheet, "workbookPr").attribute("date1904").value());
}

void WorkbookContent::ReadStyles() {
  if (const auto part = package_.RelatedPart(mainPart_, "styles")) {
    stylesPart_ = *part;
  } else {
    stylesPart_ = FreePartName(package_, "/xl/styles");
    package_.AddPart(stylesPart_, "application/vnd.openxmlformats-officedocument.spreadsheetml.styles+xml",
                     BlankStyles());
    Relationships relationships = package_.RelationshipsOf(mainPart_);
    relationships.Add(OfficeRelationshipType("styles"), stylesPart_);
    package_.SetRelationships(relationships);
  }
  styles_ = std::make_unique<StyleBook>(ParseXml(package_.ReadPart(stylesPart_), {file(), stylesPart_}), file());
}

SheetModel& WorkbookContent::Sheet(std::size_t index) {
  SheetEntry& entry = sheets_.at(index);
  if (!entry.hasCells) RaiseUnsupportedExcelMember(u"Sheets of a sheet without cells (" + FromUtf8(entry.name) + u")");
  if (!entry.model) {
    SheetPart part(package_.ReadPart(entry.part), {file(), entry.part},
                   {.styles = styles_->size(), .strings = texts_.size()});
    entry.model = std::make_unique<SheetModel>(std::move(part), *styles_, is1904_);
  }
  return *entry.model;
}

void WorkbookContent::ActivateSheet(std::size_t index) {
  if (index == activeSheet_) return;
  if (sheets_.at(activeSheet_).hasCells) Sheet(activeSheet_).tabSelected = false;
  Sheet(index).tabSelected = true;
  activeSheet_ = index;
  activeChanged_ = true;
}

std::int32_t WorkbookContent::ShapeCount(std::size_t index) {
  const std::string& sheet = sheets_.at(index).part;
  std::size_t count = 0;
  if (const auto part = package_.RelatedPart(sheet, "drawing")) {
    count += DrawingPart(package_.ReadPart(*part), {file(), *part}).shapeCount();
  }
  if (const auto part = package_.RelatedPart(sheet, "comments")) {
    const std::string xml = package_.ReadPart(*part);
    RequireSoundXml(xml, {file(), *part});
    XmlScanner scanner(xml);
    for (auto token = scanner.Next(); token != XmlScanner::Token::kDone; token = scanner.Next()) {
      if (token == XmlScanner::Token::kStart && LocalName(scanner.name()) == "comment") ++count;
    }
  }
  return static_cast<std::int32_t>(count);
}

Package WorkbookContent::Written() {
  return WorkbookSaver(*this).Run();
}

Package WorkbookContent::WrittenWithoutMacros() {
  Package package = Written();
  if (package.ContentTypeOf(mainPart_) != kMacroWorkbook) return package;
  package.SetContentType(mainPart_, kWorkbook);
  Relationships relationships = package.RelationshipsOf(mainPart_);
  const std::vector<Relationship> all = relationships.all();
  for (const Relationship& relationship : all) {
    if (!relationship.type.ends_with("/vbaProject")) continue;
    if (const auto part = relationships.PartOf(relationship)) package.RemovePart(*part);
    relationships.Remove(relationship.id);
  }
  package.SetRelationships(relationships);
  return package;
}

}  // namespace zorkanca::excel
