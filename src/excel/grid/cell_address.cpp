#include "excel/grid/cell_address.h"

#include <charconv>

namespace zorkanca::excel {

namespace {

bool TakeDollar(std::string_view& text) {
  if (!text.starts_with('$')) return false;
  text.remove_prefix(1);
  return true;
}

// One corner: a cell, a column alone, or a row alone (the other number is 0). A "$" belongs to what follows it.
std::optional<CellAddress> TakeCorner(std::string_view& text) {
  CellAddress corner{0, 0};
  const bool dollar = TakeDollar(text);
  corner.column = TakeColumn(text);
  const bool rowDollar = corner.column == 0 ? dollar : TakeDollar(text);
  corner.row = TakeRow(text);
  if (corner.row == 0 && (corner.column == 0 || rowDollar)) return std::nullopt;
  return corner;
}

}  // namespace

std::int32_t TakeColumn(std::string_view& text) {
  std::int32_t column = 0;
  std::size_t length = 0;
  for (; length < text.size(); ++length) {
    const char c = text[length];
    const bool upper = c >= 'A' && c <= 'Z';
    if (!upper && !(c >= 'a' && c <= 'z')) break;
    if (length == 3) return 0;
    column = column * 26 + (c - (upper ? 'A' : 'a')) + 1;
  }
  if (column > kLastColumn) return 0;
  text.remove_prefix(length);
  return column;
}

std::int32_t TakeRow(std::string_view& text) {
  std::int32_t row = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), row);
  if (failure != std::errc() || row < 1 || row > kLastRow || text.starts_with('-')) return 0;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return row;
}

std::optional<CellAddress> ParseCell(std::string_view text) {
  const std::optional<CellAddress> corner = TakeCorner(text);
  if (!corner || !text.empty() || corner->row == 0 || corner->column == 0) return std::nullopt;
  return corner;
}

std::optional<CellArea> ParseArea(std::string_view text) {
  const std::optional<CellAddress> first = TakeCorner(text);
  if (!first) return std::nullopt;
  std::optional<CellAddress> second = first;
  if (text.starts_with(':')) {
    text.remove_prefix(1);
    second = TakeCorner(text);
    if (!second) return std::nullopt;
  } else if (first->row == 0 || first->column == 0) {
    return std::nullopt;
  }
  if (!text.empty() || (first->row == 0) != (second->row == 0) || (first->column == 0) != (second->column == 0)) {
    return std::nullopt;
  }
  CellArea area{std::min(first->row, second->row), std::min(first->column, second->column),
                std::max(first->row, second->row), std::max(first->column, second->column)};
  if (area.top == 0) area.top = 1, area.bottom = kLastRow;
  if (area.left == 0) area.left = 1, area.right = kLastColumn;
  return area;
}

void AppendNumber(std::string& text, std::int64_t number) {
  char digits[24];
  text.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

void AppendColumn(std::string& text, std::int32_t column) {
  char letters[4];
  std::size_t length = 0;
  for (; column > 0; column = (column - 1) / 26) letters[length++] = static_cast<char>('A' + (column - 1) % 26);
  while (length > 0) text.push_back(letters[--length]);
}

void AppendCell(std::string& text, std::int32_t row, std::int32_t column) {
  AppendColumn(text, column);
  AppendNumber(text, row);
}

void AppendArea(std::string& text, const CellArea& area) {
  if (area.IsWholeRows()) {
    AppendNumber(text, area.top);
    text.push_back(':');
    AppendNumber(text, area.bottom);
  } else if (area.IsWholeColumns()) {
    AppendColumn(text, area.left);
    text.push_back(':');
    AppendColumn(text, area.right);
  } else {
    AppendCell(text, area.top, area.left);
    if (area.RowCount() == 1 && area.ColumnCount() == 1) return;
    text.push_back(':');
    AppendCell(text, area.bottom, area.right);
  }
}

}  // namespace zorkanca::excel
