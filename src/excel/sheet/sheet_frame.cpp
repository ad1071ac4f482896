// Everything of a sheet but its rows is a tree with a mark where the rows stand. Each layer of repeated rows changes,
// one after the other, what the tree says of areas: what lies under the copies is cut away first, then each copy gets
// what its source has.
//
// Rules (conditional formats, validations) list their areas, so that copies make areas grow instead of making rules;
// see row_repeats.h. Merged cells and links stand for each copy: their lists are written as text in place of further
// marks, because a tree of a hundred thousand nodes would cost more than everything else. Sparklines are few and stay
// nodes.
//
// Invariants: children of the worksheet keep the order of the schema; elements that nobody knows stay where they are.
// The cost is that of what is written, times the number of repeats for lists of merged cells and links.
#include "excel/sheet/sheet_frame.h"

#include <array>

#include "excel/grid/xml_scanner.h"
#include "opc/xml_escape.h"
#include "opc/xml_names.h"
#include "opc/xml_tree.h"

namespace zorkanca::excel {

namespace {

// Children of a worksheet in the order of the schema, as far as something may have to be put between them.
constexpr std::array<std::string_view, 20> kOrder = {"sheetPr",
                                                     "dimension",
                                                     "sheetViews",
                                                     "sheetFormatPr",
                                                     "cols",
                                                     "sheetData",
                                                     "sheetCalcPr",
                                                     "sheetProtection",
                                                     "protectedRanges",
                                                     "scenarios",
                                                     "autoFilter",
                                                     "sortState",
                                                     "dataConsolidate",
                                                     "customSheetViews",
                                                     "mergeCells",
                                                     "phoneticPr",
                                                     "conditionalFormatting",
                                                     "dataValidations",
                                                     "hyperlinks",
                                                     "printOptions"};

// Long lists are written as text in the place of these marks.
constexpr const char* kColumnsMark = "zorkanca-columns";
constexpr const char* kMergesMark = "zorkanca-merges";
constexpr const char* kLinksMark = "zorkanca-links";

class ShellMaker {
 public:
  ShellMaker(const SheetModel& sheet, const ColumnTable& columns)
      : sheet_(sheet), columns_(columns), prefix_(sheet.part().prefix()), repeats_(RepeatsOf(sheet)) {
    document_.reset(sheet.part().frame());
    root_ = document_.document_element();
  }

  SheetFrame Make() {
    WriteDimension();
    WriteViews();
    ReplaceColumns();
    ReadMerges();
    if (!repeats_.empty()) {
      ReplaceMerges();
      RepeatRules();
      ReplaceLinks();
      if (pugi::xml_node extensions = Child("extLst")) RepeatExtensions(extensions);
    }
    return Split(XmlBytes(document_));
  }

 private:
  std::string Name(std::string_view local) const { return prefix_ + std::string(local); }
  pugi::xml_node Child(std::string_view local) { return root_.child(Name(local).c_str()); }
  std::vector<pugi::xml_node> Children(pugi::xml_node parent, std::string_view local) const {
    const std::string name = Name(local);
    std::vector<pugi::xml_node> found;
    for (const pugi::xml_node child : parent.children(name.c_str())) found.push_back(child);
    return found;
  }

  // A node at the place of the schema where an element of this name stands.
  pugi::xml_node Insert(std::string_view local, pugi::xml_node_type type, const char* name) {
    const auto place = std::find(kOrder.begin(), kOrder.end(), local);
    pugi::xml_node before;
    for (pugi::xml_node child : root_.children()) {
      const bool isRows = std::string_view(child.name()) == SheetPart::kRowsMark;
      const std::string_view known = isRows ? std::string_view("sheetData") : LocalName(child.name());
      const auto known_place = std::find(kOrder.begin(), kOrder.end(), known);
      const bool isElement = isRows || child.type() == pugi::node_element;
      if (isElement && known_place > place) {  // whatever is not in the list comes later
        before = child;
        break;
      }
    }
    pugi::xml_node node = before ? root_.insert_child_before(type, before) : root_.append_child(type);
    node.set_name(name);
    return node;
  }

  void WriteDimension() {
    if (!sheet_.contentsChanged()) return;
    std::string area;
    AppendArea(area, sheet_.Extent());
    pugi::xml_node dimension = Child("dimension");
    if (!dimension) dimension = Insert("dimension", pugi::node_element, Name("dimension").c_str());
    SetAttribute(dimension, "ref", area);
  }

  void WriteViews() {
    if (!sheet_.selection() && !sheet_.tabSelected) return;
    pugi::xml_node views = Child("sheetViews");
    if (!views) views = Insert("sheetViews", pugi::node_element, Name("sheetViews").c_str());
    pugi::xml_node view = views.child(Name("sheetView").c_str());
    if (!view) {
      view = views.append_child(Name("sheetView").c_str());
      SetAttribute(view, "workbookViewId", "0");
    }
    if (sheet_.tabSelected) {
      view.remove_attribute("tabSelected");
      if (*sheet_.tabSelected) view.append_attribute("tabSelected").set_value("1");
    }
    if (sheet_.selection()) WriteSelection(view, *sheet_.selection());
  }

  // Each pane of a split window has a selection of its own; the active one's counts.
  void WriteSelection(pugi::xml_node view, const CellArea& area) {
    const pugi::xml_node pane = view.child(Name("pane").c_str());
    const std::string_view active = pane ? pane.attribute("activePane").value() : "";
    pugi::xml_node selection;
    for (const pugi::xml_node each : Children(view, "selection")) {
      if (active == each.attribute("pane").value()) selection = each;
    }
    if (!selection) {
      selection = pane ? view.insert_child_after(Name("selection").c_str(), pane)
                       : view.prepend_child(Name("selection").c_str());
      if (!active.empty()) SetAttribute(selection, "pane", std::string(active));
    }
    std::string cell;
    AppendCell(cell, area.top, area.left);
    std::string whole;
    AppendArea(whole, area);
    SetAttribute(selection, "activeCell", cell);
    SetAttribute(selection, "sqref", whole);
  }

  void ReplaceColumns() {
    if (columns_.empty()) return;
    const pugi::xml_node mark = Insert("cols", pugi::node_pi, kColumnsMark);
    columnsMarked_ = !mark.empty();
    root_.remove_child(Child("cols"));
  }

  void ReadMerges() {
    for (const pugi::xml_node merge : Children(Child("mergeCells"), "mergeCell")) {
      if (const std::optional<CellArea> area = ParseArea(merge.attribute("ref").value())) merges_.push_back(*area);
    }
  }

  void ReplaceMerges() {
    pugi::xml_node list = Child("mergeCells");
    if (!list) return;
    for (const RowRepeat& repeat : repeats_) merges_ = RepeatMerges(merges_, repeat);
    root_.insert_child_before(pugi::node_pi, list).set_name(kMergesMark);
    root_.remove_child(list);
  }

  std::string Repeated(const char* list) const {
    std::vector<CellArea> areas = ParseAreas(list);
    for (const RowRepeat& repeat : repeats_) areas = RepeatAreas(areas, repeat);
    return AreasText(areas);
  }

  // A rule whose last area was replaced goes with it.
  void RepeatRule(pugi::xml_node rule) const {
    const std::string areas = Repeated(rule.attribute("sqref").value());
    if (areas.empty()) {
      rule.parent().remove_child(rule);
    } else {
      SetAttribute(rule, "sqref", areas);
    }
  }

  void RepeatRules() {
    std::vector<pugi::xml_node> rules;
    for (const pugi::xml_node child : Children(root_, "conditionalFormatting")) rules.push_back(child);
    for (const pugi::xml_node child : Children(Child("dataValidations"), "dataValidation")) {
      rules.push_back(child);
    }
    for (const pugi::xml_node child : Children(Child("ignoredErrors"), "ignoredError")) {
      rules.push_back(child);
    }
    for (const pugi::xml_node rule : rules) RepeatRule(rule);
    for (const auto& [list, entry] :
         {std::pair("dataValidations", "dataValidation"), std::pair("ignoredErrors", "ignoredError")}) {
      const pugi::xml_node node = Child(list);
      if (!node) continue;
      const std::size_t count = Children(node, entry).size();
      if (count == 0) root_.remove_child(node);
      if (count > 0 && node.attribute("count")) node.attribute("count").set_value(std::to_string(count).c_str());
    }
  }

  void ReplaceLinks() {
    pugi::xml_node list = Child("hyperlinks");
    if (!list) return;
    struct Link {
      CellArea area;
      std::string rest;
    };
    std::vector<Link> links;
    for (pugi::xml_node link : Children(list, "hyperlink")) {
      const std::optional<CellArea> area = ParseArea(link.attribute("ref").value());
      if (!area) continue;
      link.remove_attribute("ref");
      link.remove_attribute("xr:uid");  // of one link only
      links.push_back({*area, XmlBytes(link).substr(1 + Name("hyperlink").size())});
    }
    for (const RowRepeat& repeat : repeats_) {
      std::vector<Link> after;
      for (const Link& link : links) {
        if (!Common(link.area, repeat.Target())) after.push_back(link);
      }
      for (const Link& link : links) {
        if (!repeat.Source().Holds(link.area)) continue;
        for (std::int32_t copy = 0; copy < repeat.copies; ++copy) {
          after.push_back({link.area.Moved(repeat.first - repeat.top + copy * repeat.rows, 0), link.rest});
        }
      }
      links = std::move(after);
    }
    for (const Link& link : links) {
      links_.append("<").append(Name("hyperlink")).append(" ref=\"");
      AppendArea(links_, link.area);
      links_.append("\"").append(link.rest);
    }
    root_.insert_child_before(pugi::node_pi, list).set_name(kLinksMark);
    linksMarked_ = true;
    root_.remove_child(list);
  }

  // Rules and validations of later versions; each names its areas in an element.
  void RepeatExtensions(pugi::xml_node node) const {
    for (pugi::xml_node child = node.first_child(); child;) {
      const pugi::xml_node next = child.next_sibling();
      const std::string_view local = LocalName(child.name());
      if (local == "conditionalFormatting" || local == "dataValidation" || local == "ignoredError") {
        for (pugi::xml_node part : child.children()) {
          if (LocalName(part.name()) != "sqref") continue;
          const std::string areas = Repeated(part.text().get());
          if (areas.empty()) {
            node.remove_child(child);
          } else {
            part.text().set(areas.c_str());
          }
          break;
        }
      } else if (local == "sparklines") {
        RepeatSparklines(child);
      } else {
        RepeatExtensions(child);
      }
      child = next;
    }
  }

  // A sparkline stands in one cell and shows the numbers that a formula names.
  void RepeatSparklines(pugi::xml_node list) const {
    for (const RowRepeat& repeat : repeats_) {
      std::vector<pugi::xml_node> sources;
      for (pugi::xml_node chart = list.first_child(); chart;) {
        const pugi::xml_node next = chart.next_sibling();
        const std::optional<CellAddress> at = ParseCell(TextOfChild(chart, "sqref"));
        if (at && repeat.Target().HasRow(at->row)) {
          list.remove_child(chart);
        } else if (at && repeat.Source().HasRow(at->row)) {
          sources.push_back(chart);
        }
        chart = next;
      }
      for (const pugi::xml_node source : sources) {
        const CellAddress at = *ParseCell(TextOfChild(source, "sqref"));
        const Formula formula = Formula::FromA1(TextOfChild(source, "f"), at);
        for (std::int32_t copy = 0; copy < repeat.copies; ++copy) {
          const CellAddress to{at.row + repeat.first - repeat.top + copy * repeat.rows, at.column};
          pugi::xml_node chart = list.append_copy(source);
          std::string text;
          formula.AppendA1(text, to);
          SetTextOfChild(chart, "f", text);
          text.clear();
          AppendCell(text, to.row, to.column);
          SetTextOfChild(chart, "sqref", text);
        }
      }
    }
  }

  static const char* TextOfChild(pugi::xml_node node, std::string_view local) {
    for (const pugi::xml_node child : node.children()) {
      if (LocalName(child.name()) == local) return child.text().get();
    }
    return "";
  }
  static void SetTextOfChild(pugi::xml_node node, std::string_view local, const std::string& text) {
    for (pugi::xml_node child : node.children()) {
      if (LocalName(child.name()) == local) child.text().set(text.c_str());
    }
  }

  void PutAtMark(std::string& xml, const char* mark, const std::string& element, const std::string& inside,
                 const std::string& attributes = {}) const {
    const std::string written = "<?" + std::string(mark) + "?>";
    const std::size_t at = xml.find(written);
    if (at == xml.npos) return;
    const std::string name = Name(element);
    xml.replace(at, written.size(),
                inside.empty() ? std::string() : "<" + name + attributes + ">" + inside + "</" + name + ">");
  }

  SheetFrame Split(const std::string& xml) {
    const std::string rows = "<?" + std::string(SheetPart::kRowsMark) + "?>";
    const std::size_t at = xml.find(rows);
    SheetFrame frame{.before = xml.substr(0, at), .behind = xml.substr(at + rows.size())};
    if (columnsMarked_) PutAtMark(frame.before, kColumnsMark, "cols", columns_.ToXml(prefix_));
    std::string merges;
    for (const CellArea& area : merges_) {
      merges.append("<").append(Name("mergeCell")).append(" ref=\"");
      AppendArea(merges, area);
      merges += "\"/>";
    }
    PutAtMark(frame.behind, kMergesMark, "mergeCells", merges, " count=\"" + std::to_string(merges_.size()) + "\"");
    if (linksMarked_) PutAtMark(frame.behind, kLinksMark, "hyperlinks", links_);
    frame.merges = std::move(merges_);
    return frame;
  }

  const SheetModel& sheet_;
  const ColumnTable& columns_;
  std::string prefix_;
  std::vector<RowRepeat> repeats_;
  pugi::xml_document document_;
  pugi::xml_node root_;
  std::vector<CellArea> merges_;
  std::string links_;
  bool columnsMarked_ = false;
  bool linksMarked_ = false;
};

}  // namespace

std::vector<RowRepeat> RepeatsOf(const SheetModel& sheet) {
  std::vector<RowRepeat> repeats;
  for (const Layer& layer : sheet.layers()) {
    const auto* rows = std::get_if<RowsLayer>(&layer);
    if (rows) repeats.push_back({rows->block->top, rows->block->RowCount(), rows->first, rows->copies});
  }
  return repeats;
}

SheetFrame MakeFrame(const SheetModel& sheet, const ColumnTable& columns) {
  return ShellMaker(sheet, columns).Make();
}

}  // namespace zorkanca::excel
