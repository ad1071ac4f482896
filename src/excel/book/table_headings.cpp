#include "excel/book/table_headings.h"

#include <set>

#include "excel/display/cell_text.h"
#include "excel/sheet/row_composer.h"
#include "excel/tables/local_names.h"
#include "excel/tables/string_item.h"
#include "opc/xml_document.h"
#include "opc/xml_names.h"
#include "runtime/utf8.h"

namespace zorkanca::excel {

namespace {

bool WasTouched(const SheetModel& sheet, const CellArea& heading) {
  return std::any_of(sheet.layers().begin(), sheet.layers().end(), [&](const Layer& layer) {
    if (const auto* rows = std::get_if<RowsLayer>(&layer)) return rows->Area().HasRow(heading.top);
    if (const auto* contents = std::get_if<ContentsLayer>(&layer)) return Common(contents->area, heading).has_value();
    const auto* edits = std::get_if<EditsLayer>(&layer);
    const auto row = edits ? edits->rows.find(heading.top) : decltype(edits->rows.end())();
    if (!edits || row == edits->rows.end()) return false;
    const auto cell = row->second.lower_bound(heading.left);
    return cell != row->second.end() && cell->first <= heading.right;
  });
}

// Line ends stand in names as escapes.
std::string AttributeOf(std::string_view name) {
  std::string value;
  for (const char c : name) value += c == '\n' ? std::string("_x000a_") : std::string(1, c);
  return value;
}

// What the cells of a heading show; a text where a cell holds one already.
struct ShownHeading {
  std::vector<Text> texts;
  std::vector<bool> areTexts;
};

ShownHeading HeadingOf(const SheetModel& sheet, const CellArea& heading, const SharedStrings& texts,
                       const Locale& locale) {
  const auto width = static_cast<std::size_t>(heading.ColumnCount());
  ShownHeading shown{std::vector<Text>(width), std::vector<bool>(width)};
  CellTexts show(sheet, texts, locale);
  RowComposer composer(sheet);
  for (const CellView& cell : composer.Compose(heading.top).cells) {
    if (!heading.HasColumn(cell.column)) continue;
    const auto index = static_cast<std::size_t>(cell.column - heading.left);
    const CellValue value = ValueOf(cell, texts, sheet.part().prefix(), sheet.is1904());
    const bool isConstant = cell.kind != CellKind::kFormula && cell.kind != CellKind::kFileFormula;
    const auto* text = std::get_if<std::string>(&value);
    shown.texts[index] = text ? FromUtf8(*text) : show.Show(cell);
    shown.areTexts[index] = text && isConstant;
  }
  return shown;
}

class TableSettler {
 public:
  TableSettler(SheetModel& sheet, const SharedStrings& texts, const Locale& locale, TableRenames& renames)
      : sheet_(sheet), texts_(texts), locale_(locale), renames_(renames) {}

  // Returns true when the table has to be written.
  bool Settle(pugi::xml_document& document) {
    const XmlNames names(document);
    const pugi::xml_node table = document.document_element();
    const std::optional<CellArea> area = ParseArea(table.attribute("ref").value());
    if (!area || table.attribute("headerRowCount").as_int(1) < 1) return false;
    const CellArea heading{area->top, area->left, area->top, area->right};
    if (!WasTouched(sheet_, heading)) return false;
    std::vector<pugi::xml_node> columns;
    const pugi::xml_node list = names.Child(table, XmlSpace::kSheet, "tableColumns");
    for (pugi::xml_node column = names.Child(list, XmlSpace::kSheet, "tableColumn"); column;
         column = names.NextSibling(column, XmlSpace::kSheet, "tableColumn")) {
      columns.push_back(column);
    }
    if (columns.size() != static_cast<std::size_t>(heading.ColumnCount())) return false;
    if (!Rename(columns, heading, table.attribute("displayName").value())) return false;
    for (const pugi::xml_node column : columns) {
      for (pugi::xml_node formula : column.children()) {  // of a computed column, of its total
        if (formula.text()) {
          formula.text().set(renames_.Renamed(formula.text().get(), table.attribute("displayName").value()).c_str());
        }
      }
    }
    return true;
  }

 private:
  bool Rename(const std::vector<pugi::xml_node>& columns, const CellArea& heading, std::string_view table) {
    const ShownHeading shown = HeadingOf(sheet_, heading, texts_, locale_);
    std::set<Text> taken;
    bool renamed = false;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const Text name = FreeName(shown.texts[i], taken);
      if (name != shown.texts[i] || !shown.areTexts[i]) Put(heading, i, name);
      pugi::xml_attribute attribute = pugi::xml_node(columns[i]).attribute("name");
      std::string old;
      AppendUnescaped(old, attribute.value());
      const std::string utf8 = ToUtf8(name);
      if (old == utf8) continue;
      attribute.set_value(AttributeOf(utf8).c_str());
      renames_.Add(table, old, utf8);
      renamed = true;
    }
    return renamed;
  }

  // Case does not make names different.
  Text FreeName(const Text& shown, std::set<Text>& taken) const {
    const Text stem = shown.empty() ? NewColumnName(locale_) : shown;
    Text name = shown;
    for (std::int32_t number = shown.empty() ? 1 : 2; name.empty() || taken.count(LowerCase(name)) > 0; ++number) {
      name = stem + DecimalText(number);
    }
    taken.insert(LowerCase(name));
    return name;
  }

  void Put(const CellArea& heading, std::size_t index, const Text& name) {
    StoredCell cell;
    cell.column = heading.left + static_cast<std::int32_t>(index);
    cell.kind = CellKind::kText;
    cell.content = ToUtf8(name);
    sheet_.Edit(heading.top, std::move(cell));
  }

  SheetModel& sheet_;
  const SharedStrings& texts_;
  const Locale& locale_;
  TableRenames& renames_;
};

}  // namespace

void SettleTableHeadings(Package& package, const std::string& sheetPart, SheetModel& sheet, const SharedStrings& texts,
                         const Locale& locale, TableRenames& renames) {
  const Relationships relationships = package.RelationshipsOf(sheetPart);
  TableSettler settler(sheet, texts, locale, renames);
  for (const Relationship& relationship : relationships.all()) {
    const auto part = relationship.Is("table") ? relationships.PartOf(relationship) : std::nullopt;
    if (!part || !package.HasPart(*part)) continue;
    pugi::xml_document document = ParseXml(package.ReadPart(*part), {package.path(), *part});
    if (settler.Settle(document)) package.ReplacePart(*part, XmlBytes(document));
  }
}

}  // namespace zorkanca::excel
