#include "word/fields/formula_cells.h"

#include <algorithm>
#include <array>

#include "word/fields/formula_numbers.h"

namespace zorkanca::word {

namespace {

// One end of a reference; a whole row or column leaves the other number out.
struct CellName {
  std::optional<std::size_t> row;
  std::optional<std::size_t> column;
};

std::optional<std::size_t> TakeNumber(TextView& text) {
  constexpr std::size_t kMost = 1'000'000;
  std::size_t number = 0;
  std::size_t length = 0;
  while (length < text.size() && IsFormulaDigit(text[length]) && number < kMost) {
    number = number * 10 + (text[length++] - u'0');
  }
  text.remove_prefix(length);
  if (number == 0) return std::nullopt;
  return number - 1;
}

std::optional<std::size_t> TakeColumn(TextView& text) {
  constexpr std::size_t kMostLetters = 2;
  std::size_t column = 0;
  std::size_t length = 0;
  while (length < text.size() && length < kMostLetters && text[length] >= u'A' && text[length] <= u'Z') {
    column = column * 26 + (text[length++] - u'A' + 1);
  }
  text.remove_prefix(length);
  if (column == 0) return std::nullopt;
  return column - 1;
}

std::optional<CellName> ByRowAndColumn(TextView text) {
  CellName name;
  if (!text.starts_with(u'R')) return std::nullopt;
  text.remove_prefix(1);
  name.row = TakeNumber(text);
  if (!name.row || !text.starts_with(u'C')) return std::nullopt;
  text.remove_prefix(1);
  name.column = TakeNumber(text);
  if (!name.column || !text.empty()) return std::nullopt;
  return name;
}

std::optional<CellName> NameOf(TextView text) {
  if (const auto name = ByRowAndColumn(text)) return name;
  CellName name;
  name.column = TakeColumn(text);
  name.row = TakeNumber(text);
  if (!text.empty() || (!name.row && !name.column)) return std::nullopt;
  return name;
}

Text Plain(TextView text) {
  Text plain;
  for (const char16_t unit : text) {
    if (!IsFormulaBlank(unit)) plain += UpperCase(unit);
  }
  return plain;
}

}  // namespace

std::optional<CellRange> ReferenceOf(TextView text, const FormulaTable& table) {
  constexpr std::size_t kLongest = 40;
  text = TrimFormulaBlanks(text);
  if (text.empty() || text.size() > kLongest || table.cells.empty()) return std::nullopt;
  const Text plain = Plain(text);
  const std::size_t colon = plain.find(u':');
  const auto first = NameOf(TextView(plain).substr(0, colon));
  if (!first) return std::nullopt;
  if (colon == plain.npos) {
    const bool there =
        first->row && first->column && *first->row < table.cells.size() && *first->column < table.cells[*first->row];
    if (!there) return std::nullopt;
    return CellRange{&table, *first->row, *first->row, *first->column, *first->column};
  }
  const auto last = NameOf(TextView(plain).substr(colon + 1));
  if (!last || first->row.has_value() != last->row.has_value() ||
      first->column.has_value() != last->column.has_value()) {
    return std::nullopt;
  }
  const auto [top, bottom] = std::minmax({first->row.value_or(0), last->row.value_or(table.cells.size() - 1)});
  const std::size_t widest = *std::max_element(table.cells.begin(), table.cells.end());
  const auto [left, right] = std::minmax({first->column.value_or(0), last->column.value_or(widest)});
  return CellRange{&table, top, std::min(bottom, table.cells.size() - 1), left, right};
}

std::optional<TableSide> SideOf(TextView text) {
  static constexpr std::array<std::pair<TextView, TableSide>, 4> kSides = {{{u"ABOVE", TableSide::kAbove},
                                                                            {u"BELOW", TableSide::kBelow},
                                                                            {u"LEFT", TableSide::kLeft},
                                                                            {u"RIGHT", TableSide::kRight}}};
  for (const auto& [name, side] : kSides) {
    if (EqualsIgnoringCase(TrimFormulaBlanks(text), name)) return side;
  }
  return std::nullopt;
}

void AppendRange(std::vector<double>& list, const CellRange& range, const Locale& locale) {
  for (std::size_t row = range.firstRow; row <= range.lastRow; ++row) {
    const std::size_t end = std::min(range.lastColumn + 1, range.table->cells[row]);
    for (std::size_t column = range.firstColumn; column < end; ++column) {
      if (const auto number = NumberInText(range.table->textOf(row, column), locale)) list.push_back(*number);
    }
  }
}

void AppendSide(std::vector<double>& list, TableSide side, const FormulaContext& context, const Locale& locale) {
  const bool vertical = side == TableSide::kAbove || side == TableSide::kBelow;
  const std::size_t step = side == TableSide::kBelow || side == TableSide::kRight ? 1 : static_cast<std::size_t>(-1);
  std::size_t row = context.row;
  std::size_t column = context.column;
  for (bool nearest = true;; nearest = false) {
    (vertical ? row : column) += step;  // beyond the first row or column it is larger than any
    if (row >= context.table->cells.size() || column >= context.table->cells[row]) return;
    const Text text = context.table->textOf(row, column);
    const std::optional<double> number = NumberInText(text, locale);
    if (!number && !(nearest && TrimFormulaBlanks(text).empty())) return;
    list.push_back(number.value_or(0));
  }
}

}  // namespace zorkanca::word
