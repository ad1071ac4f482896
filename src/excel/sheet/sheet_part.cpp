// One walk over the text of a sheet checks every cell and notes where each row begins and ends; the text stays as it
// is, and a row is taken apart again when somebody asks for it. What surrounds the rows becomes a tree. So an open
// sheet costs its text, sixteen bytes for each row, and nothing for a cell.
//
// Rows and cells ascend, and whatever they refer to exists: what the walk let pass needs no further check. Shared
// formulas are kept aside, because their text stands in one cell only.
#include "excel/sheet/sheet_part.h"

#include <algorithm>

#include "excel/tables/cell_reader.h"
#include "opc/office_error.h"
#include "opc/xml_names.h"

namespace zorkanca::excel {

namespace {

using Token = XmlScanner::Token;

// Rows are read without building a tree, so that the number of their nodes costs no memory.
constexpr XmlLimits kSheetLimits{.nodes = 400'000'000};

std::string InUtf8(std::string xml, const XmlSource& source) {
  RequireSoundXml(xml, source, kSheetLimits);
  const bool wide =
      xml.starts_with("\xFF\xFE") || xml.starts_with("\xFE\xFF") || (xml.size() > 1 && (xml[0] == 0 || xml[1] == 0));
  return wide ? XmlBytes(ParseXml(xml, source)) : xml;
}

}  // namespace

// One walk over the text: finds the rows, checks what cells refer to, and keeps the rest for the tree.
class SheetIndexer {
 public:
  SheetIndexer(SheetPart& part, const XmlSource& source, const CellLimits& limits)
      : part_(part), source_(source), limits_(limits), xml_(part.xml_), scanner_(part.xml_) {}

  void Run() {
    FindRoot();
    std::size_t dataBegin = 0;
    std::size_t dataEnd = 0;
    for (Token token = scanner_.Next(); token != Token::kDone && token != Token::kEnd; token = scanner_.Next()) {
      if (token != Token::kStart && token != Token::kEmpty) continue;
      const bool isData = Local() == "sheetData";
      const std::size_t begin = scanner_.begin();
      if (isData && dataEnd != 0) Refuse("it has rows in two places");
      if (token == Token::kStart) {
        if (isData) {
          ReadRows();
        } else {
          scanner_.SkipElement();
        }
      }
      if (isData) dataBegin = begin, dataEnd = scanner_.end();
    }
    if (dataEnd == 0) Refuse("it has no rows");
    const std::string frame = xml_.substr(0, dataBegin) + "<?" + SheetPart::kRowsMark + "?>" + xml_.substr(dataEnd);
    part_.shell_ = ParseXml(frame, source_);
  }

 private:
  [[noreturn]] void Refuse(const std::string& reason) const { RaiseBadPart(source_.file, source_.part, reason); }
  [[noreturn]] void RefuseCell(const std::string& reason) const {
    std::string cell;
    AppendCell(cell, row_, std::max(column_, 1));
    Refuse("cell " + cell + ": " + reason);
  }

  std::string_view Local() const { return LocalPart(scanner_.name(), part_.prefix_); }

  void FindRoot() {
    while (scanner_.Next() != Token::kStart) {
      if (scanner_.end() >= xml_.size()) Refuse("it is no worksheet");
    }
    const std::string_view name = scanner_.name();
    const std::size_t colon = name.find(':');
    if (colon != name.npos) part_.prefix_ = name.substr(0, colon + 1);
    const std::string declaration = colon == name.npos ? "xmlns" : "xmlns:" + std::string(name.substr(0, colon));
    std::string uri;
    AppendResolved(uri, AttributeText(scanner_.attributes(), declaration));
    if (SpaceOf(uri) != XmlSpace::kSheet || Local() != "worksheet") Refuse("it is no worksheet");
  }

  void ReadRows() {
    for (;;) {
      const Token token = scanner_.Next();
      if (token == Token::kEnd || token == Token::kDone) return;
      if (token == Token::kText) continue;
      if (Local() != "row") {
        if (token == Token::kStart) scanner_.SkipElement();
        continue;
      }
      BeginRow();
      SheetPart::RowEntry entry{.row = row_, .begin = static_cast<std::uint32_t>(scanner_.begin())};
      if (token == Token::kStart) ReadCells(entry);
      entry.end = static_cast<std::uint32_t>(scanner_.end());
      part_.rows_.push_back(entry);
    }
  }

  void BeginRow() {
    const std::optional<std::string_view> number = FindAttribute(scanner_.attributes(), "r");
    const std::optional<std::uint32_t> given = number ? WholeNumberOf(*number) : static_cast<std::uint32_t>(row_) + 1;
    if (!given || *given < 1 || *given > std::uint32_t{kLastRow})
      Refuse("it has a row " + std::string(number.value_or("")));
    if (static_cast<std::int32_t>(*given) <= row_) Refuse("row " + std::to_string(*given) + " is out of order");
    row_ = static_cast<std::int32_t>(*given);
    column_ = 0;
    CheckStyle(FindAttribute(scanner_.attributes(), "s"));
    Cover(row_, 1, 0);
  }

  void ReadCells(SheetPart::RowEntry& entry) {
    for (;;) {
      const Token token = scanner_.Next();
      if (token == Token::kEnd || token == Token::kDone) return;
      if (token == Token::kText) continue;
      if (Local() != "c") {
        if (token == Token::kStart) scanner_.SkipElement();
        continue;
      }
      const FileCell cell = ReadFileCell(scanner_, token == Token::kEmpty, part_.prefix_, xml_);
      CheckCell(cell);
      if (cell.hasFormula) {
        entry.hasFormula = true;
        NoteSharedFormula(cell);
        NoteArray(cell);
      }
    }
  }

  void CheckCell(const FileCell& cell) {
    CellAddress at{row_, column_ + 1};
    if (cell.address) {
      const std::optional<CellAddress> given = ParseCell(*cell.address);
      if (!given || given->row != row_)
        Refuse("row " + std::to_string(row_) + " has a cell " + std::string(*cell.address));
      at = *given;
    }
    if (at.column > kLastColumn) Refuse("row " + std::to_string(row_) + " is too long");
    if (at.column <= column_) Refuse("cell " + std::string(cell.address.value_or("")) + " is out of order");
    column_ = at.column;
    Cover(row_, column_, column_);
    CheckStyle(cell.style);
    if (cell.type == "s" && !cell.result.empty()) {
      const std::optional<std::uint32_t> index = WholeNumberOf(cell.result);
      if (!index || *index >= limits_.strings) RefuseCell("there is no shared text " + std::string(cell.result));
      ++part_.stringReferences_;
    }
  }

  void CheckStyle(std::optional<std::string_view> style) const {
    if (!style) return;
    const std::optional<std::uint32_t> index = WholeNumberOf(*style);
    if (!index || *index >= limits_.styles) RefuseCell("there is no style " + std::string(*style));
  }

  void Cover(std::int32_t row, std::int32_t left, std::int32_t right) {
    if (!part_.used_) part_.used_ = CellArea{row, std::max(left, 1), row, std::max(right, 1)};
    part_.used_->bottom = row;
    part_.used_->left = std::min(part_.used_->left, left);
    part_.used_->right = std::max(part_.used_->right, right);
  }

  // The text of a shared formula stands in one of its cells only.
  void NoteSharedFormula(const FileCell& cell) {
    if (AttributeText(cell.formulaAttributes, "t") != "shared") return;
    const std::optional<std::uint32_t> index = WholeNumberOf(AttributeText(cell.formulaAttributes, "si"));
    if (!index) RefuseCell("its shared formula has no number");
    XmlScanner scanner(cell.formula);
    const bool hasText = scanner.Next() == Token::kStart;
    const std::string text = hasText ? scanner.ReadCharacters() : std::string();
    const std::optional<CellArea> area = ParseArea(AttributeText(cell.formulaAttributes, "ref"));
    if (!text.empty()) {
      part_.sharedFormulas_.insert_or_assign(
          *index, SheetPart::SharedFormula{Formula::FromA1(text, {row_, column_}), area.value_or(CellArea())});
    } else if (!part_.sharedFormulas_.count(*index)) {
      RefuseCell("there is no shared formula " + std::to_string(*index));
    }
  }

  void NoteArray(const FileCell& cell) {
    if (AttributeText(cell.formulaAttributes, "t") != "array") return;
    if (const auto area = ParseArea(AttributeText(cell.formulaAttributes, "ref"))) part_.arrays_.push_back(*area);
  }

  SheetPart& part_;
  const XmlSource& source_;
  const CellLimits& limits_;
  const std::string& xml_;
  XmlScanner scanner_;
  std::int32_t row_ = 0;
  std::int32_t column_ = 0;
};

SheetPart::SheetPart(std::string xml, const XmlSource& source, const CellLimits& limits)
    : xml_(InUtf8(std::move(xml), source)) {
  SheetIndexer(*this, source, limits).Run();
}

void SheetPart::Read(const RowEntry& entry, RowView& row) const {
  const std::string_view xml = XmlOf(entry);
  XmlScanner scanner(xml);
  const Token rowToken = scanner.Next();
  row.Clear(entry.row);
  row.attributes = scanner.attributes();
  const std::optional<std::string_view> style = FindAttribute(row.attributes, "s");
  row.styled = style.has_value();
  row.style = WholeNumberOf(style.value_or("")).value_or(0);
  if (rowToken == Token::kEmpty) return;
  std::int32_t column = 0;
  for (Token token = scanner.Next(); token != Token::kEnd && token != Token::kDone; token = scanner.Next()) {
    if (token == Token::kText) continue;
    if (LocalPart(scanner.name(), prefix_) != "c") {
      if (token == Token::kStart) scanner.SkipElement();
      continue;
    }
    const FileCell cell = ReadFileCell(scanner, token == Token::kEmpty, prefix_, xml);
    std::string_view letters = cell.address.value_or("");
    column = cell.address ? TakeColumn(letters) : column + 1;
    CellView view{.column = column, .style = WholeNumberOf(cell.style.value_or("")).value_or(0)};
    view.kind = cell.hasFormula ? CellKind::kFileFormula : cell.inside.empty() ? CellKind::kBlank : CellKind::kFile;
    view.content = cell.hasFormula ? cell.formula : cell.inside;
    view.type = cell.type;
    view.result = cell.result;
    if (cell.hasExtra) view.extra = cell.attributes;
    if (cell.hasFormula && AttributeText(cell.formulaAttributes, "t") == "shared") {
      view.kind = CellKind::kFormula;
      view.formula = &sharedFormulas_.at(WholeNumberOf(AttributeText(cell.formulaAttributes, "si")).value()).formula;
    }
    row.cells.push_back(view);
  }
}

std::string WithoutResults(std::string original, const XmlSource& source, const TableRenames& renames) {
  const std::string xml = InUtf8(std::move(original), source);
  std::string result;
  std::size_t copied = 0;
  XmlScanner scanner(xml);
  Token token = scanner.Next();
  while (token != Token::kStart && token != Token::kDone) token = scanner.Next();
  const std::string_view root = scanner.name();
  const std::string_view prefix = root.substr(0, root.find(':') == root.npos ? 0 : root.find(':') + 1);
  for (token = scanner.Next(); token != Token::kDone; token = scanner.Next()) {
    if (token != Token::kStart || LocalPart(scanner.name(), prefix) != "c") continue;
    const std::size_t begin = scanner.begin();
    const std::string_view name = scanner.name();
    const FileCell cell = ReadFileCell(scanner, false, prefix, xml);
    if (!cell.hasFormula) continue;
    result.append(xml, copied, begin - copied).append("<").append(name);
    AppendAttributesBut(result, cell.attributes, {"t"});
    result.append(">").append(renames.RenamedElement(cell.formula)).append("</").append(name).append(">");
    copied = scanner.end();
  }
  return result.append(xml, copied);
}

}  // namespace zorkanca::excel
