#include "excel/tables/style_book.h"

#include <algorithm>
#include <array>

#include "excel/grid/excel_errors.h"
#include "opc/office_error.h"
#include "opc/xml_tree.h"

namespace zorkanca::excel {

namespace {

constexpr std::size_t kMostFormats = 65430;
constexpr std::int32_t kFirstOwnFormat = 164;

// Children of the root in the order of the schema.
constexpr std::array<std::string_view, 11> kOrder = {"numFmts",      "fonts",   "fills",      "borders",
                                                     "cellStyleXfs", "cellXfs", "cellStyles", "dxfs",
                                                     "tableStyles",  "colors",  "extLst"};

struct BuiltIn {
  std::int32_t id;
  std::string_view pattern;
};
constexpr std::array kBuiltIns = std::to_array<BuiltIn>({
    {0, "General"},
    {1, "0"},
    {2, "0.00"},
    {3, "#,##0"},
    {4, "#,##0.00"},
    {5, "#,##0\\ \"Kč\";-#,##0\\ \"Kč\""},
    {6, "#,##0\\ \"Kč\";[Red]-#,##0\\ \"Kč\""},
    {7, "#,##0.00\\ \"Kč\";-#,##0.00\\ \"Kč\""},
    {8, "#,##0.00\\ \"Kč\";[Red]-#,##0.00\\ \"Kč\""},
    {9, "0%"},
    {10, "0.00%"},
    {11, "0.00E+00"},
    {12, "# ?/?"},
    {13, "# ?\?/?\?"},
    {14, "m/d/yyyy"},
    {15, "d-mmm-yy"},
    {16, "d-mmm"},
    {17, "mmm-yy"},
    {18, "h:mm AM/PM"},
    {19, "h:mm:ss AM/PM"},
    {20, "h:mm"},
    {21, "h:mm:ss"},
    {22, "m/d/yyyy h:mm"},
    {37, "#,##0;-#,##0"},
    {38, "#,##0;[Red]-#,##0"},
    {39, "#,##0.00;-#,##0.00"},
    {40, "#,##0.00;[Red]-#,##0.00"},
    {45, "mm:ss"},
    {46, "[h]:mm:ss"},
    {47, "mm:ss.0"},
    {48, "##0.0E+0"},
    {49, "@"},
});

// A reader that knows no extensions takes the fallback.
pugi::xml_node Resolved(const XmlNames& names, pugi::xml_node entry) {
  if (!names.Is(entry, XmlSpace::kCompatibility, "AlternateContent")) return entry;
  const pugi::xml_node fallback = names.Child(entry, XmlSpace::kCompatibility, "Fallback");
  const pugi::xml_node branch = fallback ? fallback : names.Child(entry, XmlSpace::kCompatibility, "Choice");
  for (const pugi::xml_node child : branch.children()) {
    if (child.type() == pugi::node_element) return child;
  }
  return entry;
}

std::vector<pugi::xml_node> EntriesOf(const XmlNames& names, pugi::xml_node list) {
  std::vector<pugi::xml_node> entries;
  for (const pugi::xml_node child : list.children()) {
    if (child.type() == pugi::node_element) entries.push_back(Resolved(names, child));
  }
  return entries;
}

const char* HorizontalName(ExcelAlignment alignment) {
  switch (alignment) {
    case ExcelAlignment::kLeft:
      return "left";
    case ExcelAlignment::kRight:
      return "right";
    case ExcelAlignment::kCenter:
      return "center";
    case ExcelAlignment::kGeneral:
      return "general";
  }
  return "general";
}

}  // namespace

std::string_view BuiltInPattern(std::int32_t id) {
  const auto* found =
      std::find_if(kBuiltIns.begin(), kBuiltIns.end(), [&](const BuiltIn& one) { return one.id == id; });
  return found == kBuiltIns.end() ? std::string_view() : found->pattern;
}

std::string CellFormatChange::Key() const {
  const auto flag = [](std::optional<bool> value) { return !value ? '-' : *value ? '1' : '0'; };
  std::string key = alignment ? std::to_string(static_cast<int>(*alignment)) : "-";
  key += {'/', flag(bold), flag(quotePrefix), flag(wrap), '/'};
  if (numberFormat) key.append(std::to_string(numberFormat->id)).append(numberFormat->pattern);
  return key;
}

StyleBook::StyleBook(pugi::xml_document document, std::string file)
    : document_(std::move(document)), file_(std::move(file)), names_(document_) {
  const pugi::xml_node root = document_.document_element();
  if (!names_.Is(root, XmlSpace::kSheet, "styleSheet")) RaiseNotOfficeDocument(file_, "its styles are no styles");
  formats_ = EntriesOf(names_, names_.Child(root, XmlSpace::kSheet, "cellXfs"));
  fonts_ = EntriesOf(names_, names_.Child(root, XmlSpace::kSheet, "fonts"));
  if (formats_.empty()) RaiseNotOfficeDocument(file_, "its styles have no cell formats");
  for (const pugi::xml_node entry : EntriesOf(names_, names_.Child(root, XmlSpace::kSheet, "numFmts"))) {
    patterns_[entry.attribute("numFmtId").as_int()] = entry.attribute("formatCode").value();
  }
}

pugi::xml_node StyleBook::List(const char* name) {
  pugi::xml_node root = document_.document_element();
  if (pugi::xml_node list = names_.Child(root, XmlSpace::kSheet, name)) return list;
  const auto place = std::find(kOrder.begin(), kOrder.end(), name);
  pugi::xml_node before;
  for (auto later = place + 1; later < kOrder.end() && !before; ++later) {
    before = names_.Child(root, XmlSpace::kSheet, *later);
  }
  const std::string qualified = names_.Qualified(XmlSpace::kSheet, name);
  return before ? root.insert_child_before(qualified.c_str(), before) : root.append_child(qualified.c_str());
}

pugi::xml_node StyleBook::AddCopy(pugi::xml_node list, pugi::xml_node original) {
  pugi::xml_node copy = list.append_copy(original);
  SetAttribute(list, "count", std::to_string(EntriesOf(names_, list).size()));
  changed_ = true;
  return copy;
}

std::uint32_t StyleBook::Changed(std::uint32_t style, const CellFormatChange& change) {
  const std::string key = std::to_string(style) + ':' + change.Key();
  const auto found = made_.find(key);
  if (found != made_.end()) return found->second;
  return made_[key] = Add(style, change);
}

std::uint32_t StyleBook::Add(std::uint32_t style, const CellFormatChange& change) {
  if (formats_.size() >= kMostFormats) RaiseExcelError(u"Too many different cell formats.");
  pugi::xml_node format = AddCopy(List("cellXfs"), formats_.at(style));
  if (change.numberFormat) {
    SetAttribute(format, "numFmtId", std::to_string(IdOf(*change.numberFormat)));
    SetAttribute(format, "applyNumberFormat", "1");
  }
  if (change.bold) {
    SetAttribute(format, "fontId", std::to_string(BoldFont(format.attribute("fontId").as_int(), *change.bold)));
    SetAttribute(format, "applyFont", "1");
  }
  if (change.quotePrefix) SetAttribute(format, "quotePrefix", *change.quotePrefix ? "1" : "0");
  if (change.alignment || change.wrap) {
    pugi::xml_node alignment = names_.Child(format, XmlSpace::kSheet, "alignment");
    if (!alignment) alignment = format.prepend_child(names_.Qualified(XmlSpace::kSheet, "alignment").c_str());
    if (change.alignment) SetAttribute(alignment, "horizontal", HorizontalName(*change.alignment));
    if (change.wrap) SetAttribute(alignment, "wrapText", *change.wrap ? "1" : "0");
    SetAttribute(format, "applyAlignment", "1");
  }
  formats_.push_back(format);
  return static_cast<std::uint32_t>(formats_.size() - 1);
}

std::int32_t StyleBook::IdOf(const NumberFormatCode& format) {
  if (format.id != 0 || format.pattern.empty()) return format.id;
  std::int32_t last = kFirstOwnFormat - 1;
  for (const auto& [id, pattern] : patterns_) {
    if (pattern == format.pattern) return id;
    last = std::max(last, id);
  }
  pugi::xml_node list = List("numFmts");
  pugi::xml_node entry = list.append_child(names_.Qualified(XmlSpace::kSheet, "numFmt").c_str());
  SetAttribute(entry, "numFmtId", std::to_string(last + 1));
  SetAttribute(entry, "formatCode", format.pattern);
  SetAttribute(list, "count", std::to_string(EntriesOf(names_, list).size()));
  changed_ = true;
  patterns_[last + 1] = format.pattern;
  return last + 1;
}

std::int32_t StyleBook::BoldFont(std::int32_t font, bool bold) {
  if (FontAt(font).bold == bold) return font;
  const auto [place, isNew] = boldFonts_.try_emplace({font, bold}, 0);
  if (!isNew) return place->second;
  pugi::xml_node list = List("fonts");
  const bool known = font >= 0 && static_cast<std::size_t>(font) < fonts_.size();
  pugi::xml_node copy = known ? AddCopy(list, fonts_[static_cast<std::size_t>(font)])
                              : list.append_child(names_.Qualified(XmlSpace::kSheet, "font").c_str());
  while (pugi::xml_node old = names_.Child(copy, XmlSpace::kSheet, "b")) copy.remove_child(old);
  if (bold) copy.prepend_child(names_.Qualified(XmlSpace::kSheet, "b").c_str());
  fonts_.push_back(copy);
  return place->second = static_cast<std::int32_t>(fonts_.size() - 1);
}

NumberFormatCode StyleBook::NumberFormatOf(std::uint32_t style) const {
  NumberFormatCode code{.id = formats_.at(style).attribute("numFmtId").as_int()};
  const auto own = patterns_.find(code.id);
  code.pattern = own != patterns_.end() ? own->second : std::string(BuiltInPattern(code.id));
  return code;
}

CellFont StyleBook::FontAt(std::int32_t index) const {
  CellFont font;
  if (index < 0 || static_cast<std::size_t>(index) >= fonts_.size()) return font;
  const pugi::xml_node node = fonts_[static_cast<std::size_t>(index)];
  const auto value = [&](const char* name) { return names_.Child(node, XmlSpace::kSheet, name).attribute("val"); };
  if (value("name")) font.name = value("name").value();
  if (value("sz")) font.size = value("sz").as_double(font.size);
  const pugi::xml_node bold = names_.Child(node, XmlSpace::kSheet, "b");
  font.bold = bold && (!bold.attribute("val") || IsTrue(bold.attribute("val").value()));
  return font;
}

CellFont StyleBook::FontOf(std::uint32_t style) const {
  return FontAt(formats_.at(style).attribute("fontId").as_int());
}

LineBreaking StyleBook::LineBreakingOf(std::uint32_t style) const {
  const pugi::xml_node alignment = names_.Child(formats_.at(style), XmlSpace::kSheet, "alignment");
  const auto fills = [&](const char* direction) {
    const std::string_view how = alignment.attribute(direction).value();
    return how == "justify" || how == "distributed";
  };
  return {.wraps = IsTrue(alignment.attribute("wrapText").value()) || fills("horizontal") || fills("vertical"),
          .rotated = alignment.attribute("textRotation").as_int() != 0,
          .indent = std::clamp(alignment.attribute("indent").as_int(), 0, 250)};
}

CellFont StyleBook::StandardFont() const {
  const pugi::xml_node named = names_.Child(document_.document_element(), XmlSpace::kSheet, "cellStyleXfs");
  for (const pugi::xml_node first : EntriesOf(names_, named)) return FontAt(first.attribute("fontId").as_int());
  return FontAt(0);
}

}  // namespace zorkanca::excel
