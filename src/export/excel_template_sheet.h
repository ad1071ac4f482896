// The sheet of a template: rows with a pattern at its top, which are repeated for each record and then filled.
//
// The pattern is the block of cells round A1. In each of its rows the cells are read from A to J and up to the first
// empty one, as they are shown; the cells behind it belong to the template alone.
#pragma once

#include <cstdint>
#include <vector>

#include "export/excel_cell_pattern.h"
#include "platform/excel/excel_application.h"

namespace zorkanca {

/// A row of a pattern has at most so many cells.
inline constexpr std::int32_t kPatternColumnLimit = 10;

/// The patterns of the rows that one record takes.
struct ExcelRowPatterns {
  std::vector<std::vector<ExcelCellPattern>> rows{};
  std::int32_t width = 1;  ///< cells of the longest row, at least 1

  std::int32_t RowCount() const { return static_cast<std::int32_t>(rows.size()); }
};

/// Reads the patterns. Errors: as `TakeRowPatterns`.
ExcelRowPatterns ReadRowPatterns(ExcelWorksheet& sheet);

/// Reads the patterns and empties their cells, which keep their formats.
/// Errors: 5 for a brace that nothing closes, and for a placeholder beyond J that no record could fill; 6 for more than
/// 32767 rows. Nothing is changed then.
ExcelRowPatterns TakeRowPatterns(ExcelWorksheet& sheet);

/// Addresses of cells with placeholders that no record will fill, because their row's pattern ends at an empty cell
/// before them. Looks at the first hundred rows and as far as column Z.
/// @param patterns  of the sheet; to be asked for before or after they were taken
std::vector<Text> PlaceholdersBehindPatterns(ExcelWorksheet& sheet, const ExcelRowPatterns& patterns);

/// Repeats the first rows downwards, with all that belongs to them, over what stands there.
/// @param copies  so many times the rows are there in the end
void RepeatRows(ExcelApplication& excel, ExcelWorksheet& sheet, std::int32_t rowCount, std::int32_t copies);

/// Puts the contents of a block, texts and formulas, into the cells of another one, which keep their formats, without
/// the clipboard. Texts stay texts, whatever they look like.
/// @param target  first cell of the other block
void TransferContents(ExcelRange& block, ExcelRange& target);

}  // namespace zorkanca
