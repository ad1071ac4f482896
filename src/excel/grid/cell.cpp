#include "excel/grid/cell.h"

#include "excel/grid/xml_scanner.h"

namespace zorkanca::excel {

namespace {

// The formula element of a file: a plain formula or an array. Others (tables of values) cannot move.
struct FileFormula {
  std::string text;
  std::optional<CellArea> area;
  bool movable = true;
};

FileFormula ReadFileFormula(std::string_view element) {
  XmlScanner scanner(element);
  FileFormula formula;
  const XmlScanner::Token token = scanner.Next();
  const std::string_view type = AttributeText(scanner.attributes(), "t");
  formula.area = type == "array" ? ParseArea(AttributeText(scanner.attributes(), "ref")) : std::nullopt;
  formula.movable = type != "dataTable" && token == XmlScanner::Token::kStart;
  if (formula.movable) formula.text = scanner.ReadCharacters();
  return formula;
}

}  // namespace

StoredCell::StoredCell(const CellView& view, CellAddress at)
    : column(view.column),
      style(view.style),
      kind(view.kind),
      quotePrefix(view.quotePrefix),
      content(view.content),
      type(view.type),
      result(view.result),
      extra(view.extra) {
  if (view.formula) formula = std::make_shared<const Formula>(*view.formula);
  if (view.array) array = *view.array;
  if (kind != CellKind::kFileFormula) return;
  const FileFormula read = ReadFileFormula(content);
  if (!read.movable) {
    KeepResult();
    return;
  }
  kind = CellKind::kFormula;
  formula = std::make_shared<const Formula>(Formula::FromA1(read.text, at));
  if (read.area) array = ArrayExtent{read.area->bottom - at.row + 1, read.area->right - at.column + 1};
  content.clear();
}

// Its last result is what can be copied of a formula that cannot move.
void StoredCell::KeepResult() {
  kind = type == "str"    ? CellKind::kText
         : type == "b"    ? CellKind::kBoolean
         : type == "e"    ? CellKind::kError
         : result.empty() ? CellKind::kBlank
                          : CellKind::kNumber;
  content.clear();
  AppendResolved(content, result);
  type.clear();
}

CellView StoredCell::View() const {
  return {.column = column,
          .style = style,
          .kind = kind,
          .quotePrefix = quotePrefix,
          .hasLines = kind == CellKind::kText && content.find('\n') != content.npos,
          .content = content,
          .type = type,
          .result = result,
          .extra = extra,
          .formula = formula.get(),
          .array = array ? &*array : nullptr};
}

StoredRow::StoredRow(const RowView& view) : styled(view.styled), style(view.style), attributes(view.attributes) {
  cells.reserve(view.cells.size());
  for (const CellView& cell : view.cells) cells.emplace_back(cell, CellAddress{view.row, cell.column});
}

void StoredRow::Show(RowView& view, std::int32_t number) const {
  view.row = number;
  view.styled = styled;
  view.style = style;
  view.attributes = attributes;
  view.cells.clear();
  for (const StoredCell& cell : cells) view.cells.push_back(cell.View());
}

}  // namespace zorkanca::excel
