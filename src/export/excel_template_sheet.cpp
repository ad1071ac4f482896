#include "export/excel_template_sheet.h"

#include <algorithm>
#include <limits>

#include "foundation/ignore_errors.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

// Cells that are transferred at a time: enough for speed, few enough for memory.
constexpr std::int32_t kCellsAtOnce = 65536;

Text AddressOf(std::int32_t row, std::int32_t column) {
  return Text(1, static_cast<char16_t>(u'A' + column)).append(DecimalText(row + 1));
}

// The texts of one row's pattern, counted from 0.
std::vector<Text> ReadRow(ExcelRange& corner, std::int32_t row, std::int32_t columnCount) {
  std::vector<Text> texts;
  for (std::int32_t column = 0; column < columnCount; ++column) {
    Text text(Trim(corner.Offset(row, column)->Text()));
    if (text.empty()) break;
    if (column < kPatternColumnLimit) {
      texts.push_back(std::move(text));
    } else if (text.find(u'{') != Text::npos) {
      Text description = u"A template has at most ten columns with placeholders; in row ";
      AppendDecimal(description, row + 1);
      Raise(RuntimeError::kInvalidCall, description.append(u" there are more, from ").append(text).append(u" on"));
    }
  }
  return texts;
}

// What a cell has to be given so that it holds the same content as another one.
Value ContentOf(const Value& value, const Value& formula) {
  const Text* formulaText = std::get_if<Text>(&formula);
  if (const Text* text = std::get_if<Text>(&value)) {
    const bool isConstant = formulaText && *formulaText == *text;
    return isConstant ? Value(Text(1, u'\'').append(*text)) : formula;
  }
  const bool isFormula = formulaText && formulaText->starts_with(u'=');
  return isFormula && !IsEmptyValue(value) ? formula : value;
}

void TransferStrip(ExcelRange& source, ExcelRange& target) {
  const CellGrid values = source.Value2();
  const CellGrid formulas = source.FormulaR1C1();
  CellGrid contents(values.rows(), values.columns());
  for (std::int32_t row = 0; row < values.rows(); ++row) {
    for (std::int32_t column = 0; column < values.columns(); ++column) {
      contents.At(row, column) = ContentOf(values.At(row, column), formulas.At(row, column));
    }
  }
  target.Resize(values.rows(), values.columns())->FormulaR1C1(contents);
}

}  // namespace

ExcelRowPatterns ReadRowPatterns(ExcelWorksheet& sheet) {
  const std::unique_ptr<ExcelRange> corner = sheet.Range(u"A1");
  const std::unique_ptr<ExcelRange> block = corner->CurrentRegion();
  const std::int32_t rowCount = block->RowCount();
  if (rowCount > std::numeric_limits<std::int16_t>::max()) Raise(RuntimeError::kOverflow);

  ExcelRowPatterns patterns;
  for (std::int32_t row = 0; row < rowCount; ++row) {
    std::vector<ExcelCellPattern>& cells = patterns.rows.emplace_back();
    std::int32_t column = 0;
    for (const Text& text : ReadRow(*corner, row, block->ColumnCount()))
      cells.emplace_back(text, AddressOf(row, column++));
    patterns.width = std::max(patterns.width, column);
  }
  return patterns;
}

ExcelRowPatterns TakeRowPatterns(ExcelWorksheet& sheet) {
  ExcelRowPatterns patterns = ReadRowPatterns(sheet);
  const std::unique_ptr<ExcelRange> corner = sheet.Range(u"A1");
  for (std::int32_t row = 0; row < patterns.RowCount(); ++row) {
    const auto cellCount = static_cast<std::int32_t>(patterns.rows[static_cast<std::size_t>(row)].size());
    for (std::int32_t column = 0; column < cellCount; ++column) corner->Offset(row, column)->Formula({});
  }
  return patterns;
}

std::vector<Text> PlaceholdersBehindPatterns(ExcelWorksheet& sheet, const ExcelRowPatterns& patterns) {
  constexpr std::int32_t kMostRows = 100;
  constexpr std::int32_t kMostColumns = 26;
  const std::unique_ptr<ExcelRange> corner = sheet.Range(u"A1");
  std::vector<Text> addresses;
  for (std::int32_t row = 0; row < std::min(patterns.RowCount(), kMostRows); ++row) {
    const auto end = static_cast<std::int32_t>(patterns.rows[static_cast<std::size_t>(row)].size());
    for (std::int32_t column = end + 1; column < kMostColumns; ++column) {
      const Text text = corner->Offset(row, column)->Text();
      const std::size_t open = text.find(u'{');
      if (open != Text::npos && text.find(u'}', open) != Text::npos) addresses.push_back(AddressOf(row, column));
    }
  }
  return addresses;
}

void RepeatRows(ExcelApplication& excel, ExcelWorksheet& sheet, std::int32_t rowCount, std::int32_t copies) {
  if (copies < 2) return;
  const auto rowsTo = [](std::int32_t first, std::int32_t last) {
    return DecimalText(first).append(u":").append(DecimalText(last));
  };
  sheet.Rows(rowsTo(1, rowCount))->Copy();
  std::int32_t shapes = 0;
  IgnoreErrors([&] { shapes = sheet.ShapeCount(); });
  if (shapes == 0) {
    sheet.Rows(rowsTo(rowCount + 1, rowCount * copies))->Select();
    sheet.Paste();
  } else {  // pictures come along only when the rows are pasted once
    const std::unique_ptr<ExcelRange> corner = sheet.Range(u"A1");
    for (std::int32_t copy = 1; copy < copies; ++copy) {
      corner->Offset(rowCount * copy, 0)->Select();
      sheet.Paste();
    }
  }
  excel.CutCopyMode(false);
}

void TransferContents(ExcelRange& block, ExcelRange& target) {
  const std::int32_t rowCount = block.RowCount();
  const std::int32_t columnCount = block.ColumnCount();
  const std::int32_t rowsAtOnce = std::max(kCellsAtOnce / columnCount, 1);
  for (std::int32_t row = 0; row < rowCount; row += rowsAtOnce) {
    const std::int32_t rows = std::min(rowsAtOnce, rowCount - row);
    TransferStrip(*block.Offset(row, 0)->Resize(rows, columnCount), *target.Offset(row, 0));
  }
}

}  // namespace zorkanca
