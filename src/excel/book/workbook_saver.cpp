// Headings of tables are settled first, because formulas of all sheets follow them. Then each changed sheet is written
// row by row into a compressed part, new texts are gathered meanwhile, and the tables of texts and formats are written
// behind all sheets that use them. Sheets that were not changed are only read where stored results or counts may be
// wrong, and keep their bytes where they are not. The workbook that is open stays as it is; the result is another
// package over it.
#include "excel/book/workbook_saver.h"

#include <array>

#include "excel/book/table_headings.h"
#include "excel/display/auto_fit.h"
#include "excel/display/row_height.h"
#include "excel/drawing/drawing_repeats.h"
#include "excel/sheet/row_composer.h"
#include "excel/sheet/row_writer.h"
#include "excel/sheet/sheet_frame.h"
#include "excel/tables/blank_package.h"
#include "excel/tables/cell_reader.h"
#include "opc/deflated_part.h"
#include "opc/xml_names.h"
#include "opc/xml_tree.h"

namespace zorkanca::excel {

namespace {

// Children of a workbook in the order of the schema.
constexpr std::array<std::string_view, 19> kWorkbookOrder = {"fileVersion",    "fileSharing",
                                                             "workbookPr",     "workbookProtection",
                                                             "bookViews",      "sheets",
                                                             "functionGroups", "externalReferences",
                                                             "definedNames",   "calcPr",
                                                             "oleSize",        "customWorkbookViews",
                                                             "pivotCaches",    "smartTagPr",
                                                             "smartTagTypes",  "webPublishing",
                                                             "fileRecoveryPr", "webPublishObjects",
                                                             "extLst"};

// Cells of a sheet that nobody changed that refer to a shared text.
std::uint64_t CountReferences(std::string_view xml) {
  std::uint64_t count = 0;
  XmlScanner scanner(xml);
  for (auto token = scanner.Next(); token != XmlScanner::Token::kDone; token = scanner.Next()) {
    if (token == XmlScanner::Token::kStart && LocalName(scanner.name()) == "c" &&
        AttributeText(scanner.attributes(), "t") == "s") {
      ++count;
    }
  }
  return count;
}

}  // namespace

Package WorkbookSaver::Run() {
  for (const SheetEntry& entry : workbook_.sheets_) {
    changed_ = changed_ || (entry.model && entry.model->changed());
  }
  for (const SheetEntry& entry : workbook_.sheets_) {
    if (!entry.model || !entry.model->contentsChanged()) continue;
    SettleTableHeadings(package_, entry.part, *entry.model, workbook_.texts_, workbook_.locale_, renames_);
  }
  for (const SheetEntry& entry : workbook_.sheets_) {
    if (entry.model && entry.model->changed()) {
      WriteSheet(entry);
      WriteDrawing(entry);
    } else if (changed_ && entry.hasCells) {
      WatchedWork(workbook_.watch_, ExcelWork::kSaving, 0);
      KeepSheet(entry);
    }
  }
  WriteTexts();
  if (workbook_.styles_->changed())
    package_.ReplacePart(workbook_.stylesPart_, XmlBytes(workbook_.styles_->document()));
  WriteWorkbook();
  if (changed_) RemoveCalculationChain();
  return std::move(package_);
}

void WorkbookSaver::WriteSheet(const SheetEntry& entry) {
  const SheetModel& sheet = *entry.model;
  ColumnTable columns = sheet.columns();
  for (const CellArea& area : sheet.fits()) {
    for (const auto& [column, width] :
         FittedWidths(sheet, area, workbook_.texts_, workbook_.locale_, workbook_.watch_)) {
      columns.SetFittedWidth(column, width);
    }
  }
  SheetFrame frame = MakeFrame(sheet, columns);
  const auto part = std::make_shared<DeflatedPart>();
  XmlBuffer xml(*part);
  RowWriter writer(xml, sheet.part().prefix(), texts_, renames_);
  const std::string data = sheet.part().prefix() + "sheetData>";
  xml.Put(frame.before);
  xml.Put("<" + data);
  RowComposer composer(sheet);
  RowHeights heights(sheet, workbook_.texts_, columns, std::move(frame.merges));
  std::uint64_t untouched = 0;
  WatchedWork work(workbook_.watch_, ExcelWork::kSaving, static_cast<std::uint64_t>(sheet.Extent().bottom));
  while (composer.Next()) {
    work.Reach(static_cast<std::uint64_t>(composer.number()));
    if (const std::optional<std::string_view> raw = composer.Untouched()) {
      untouched += CountReferences(*raw);
      writer.WriteRaw(*raw);
      continue;
    }
    const RowView& row = composer.Compose();
    if (!row.cells.empty() || row.styled || !row.attributes.empty()) writer.Write(row, heights.Of(row));
  }
  xml.Put("</" + data);
  xml.Put(frame.behind);
  xml.Flush();
  part->Finish();
  references_ += untouched + writer.stringReferences();
  package_.ReplacePart(entry.part, part);
}

void WorkbookSaver::WriteDrawing(const SheetEntry& entry) {
  const std::vector<RowRepeat> repeats = RepeatsOf(*entry.model);
  const auto name = repeats.empty() ? std::nullopt : package_.RelatedPart(entry.part, "drawing");
  if (!name) return;
  const DrawingPart drawing(package_.ReadPart(*name), {package_.path(), *name});
  if (!drawing.IsRepeated(repeats)) return;
  const auto part = std::make_shared<DeflatedPart>();
  drawing.Write(*part, repeats, workbook_.watch_);
  part->Finish();
  package_.ReplacePart(*name, part);
}

// Stored results may depend on what has changed; a sheet without formulas stays byte for byte.
void WorkbookSaver::KeepSheet(const SheetEntry& entry) {
  std::string xml = package_.ReadPart(entry.part);
  const bool mayHaveFormulas = xml.find("f>") != xml.npos || xml.find("<f ") != xml.npos || xml.find(":f ") != xml.npos;
  if (!mayHaveFormulas && workbook_.texts_.size() == 0) return;
  const XmlSource source{package_.path(), entry.part};
  RequireSoundXml(xml, source, {.nodes = 400'000'000});
  references_ += CountReferences(xml);
  if (!mayHaveFormulas) return;
  std::string written = WithoutResults(xml, source, renames_);
  if (written != xml) package_.ReplacePart(entry.part, std::move(written));
}

void WorkbookSaver::WriteTexts() {
  const bool counted = workbook_.texts_.count() == references_;
  if (!changed_ || (!texts_.changed() && (counted || workbook_.textsPart_.empty()))) return;
  const auto part = std::make_shared<DeflatedPart>();
  texts_.Write(*part, references_, NamespaceUri(XmlSpace::kSheet));
  part->Finish();
  if (!workbook_.textsPart_.empty()) return package_.ReplacePart(workbook_.textsPart_, part);
  const std::string name = FreePartName(package_, "/xl/sharedStrings");
  package_.AddPart(name, "application/vnd.openxmlformats-officedocument.spreadsheetml.sharedStrings+xml", part);
  Relationships relationships = package_.RelationshipsOf(workbook_.mainPart_);
  relationships.Add(OfficeRelationshipType("sharedStrings"), name);
  package_.SetRelationships(relationships);
}

void WorkbookSaver::WriteWorkbook() {
  if (!changed_ && !workbook_.activeChanged_) return;
  pugi::xml_document document;
  document.reset(workbook_.workbook_);
  const XmlNames names(document);
  const pugi::xml_node root = document.document_element();
  if (changed_)
    SetAttribute(RequireChild(root, names, XmlSpace::kSheet, "calcPr", kWorkbookOrder), "fullCalcOnLoad", "1");
  if (!renames_.empty()) {
    for (pugi::xml_node name : names.Child(root, XmlSpace::kSheet, "definedNames").children()) {
      if (name.text()) name.text().set(renames_.Renamed(name.text().get()).c_str());
    }
  }
  if (workbook_.activeChanged_) {
    pugi::xml_node views = RequireChild(root, names, XmlSpace::kSheet, "bookViews", kWorkbookOrder);
    pugi::xml_node view = names.Child(views, XmlSpace::kSheet, "workbookView");
    if (!view) view = views.append_child(names.Qualified(XmlSpace::kSheet, "workbookView").c_str());
    SetAttribute(view, "activeTab", std::to_string(workbook_.activeSheet_));
  }
  package_.ReplacePart(workbook_.mainPart_, XmlBytes(document));
}

// The order of calculation that the file stores names cells that may have no formula any more.
void WorkbookSaver::RemoveCalculationChain() {
  Relationships relationships = package_.RelationshipsOf(workbook_.mainPart_);
  const Relationship* chain = relationships.FirstOf("calcChain");
  if (!chain) return;
  const std::string id = chain->id;
  if (const auto part = relationships.PartOf(*chain)) package_.RemovePart(*part);
  relationships.Remove(id);
  package_.SetRelationships(relationships);
}

}  // namespace zorkanca::excel
