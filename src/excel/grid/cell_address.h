// Places in a sheet, counted from 1, and how they are written: "B7", "A1:C3", "2:5", "D:D".
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zorkanca::excel {

inline constexpr std::int32_t kLastRow = 1048576;
inline constexpr std::int32_t kLastColumn = 16384;
/// UTF-16 units of the longest text in a cell.
inline constexpr std::size_t kLongestText = 32767;

struct CellAddress {
  std::int32_t row = 1;
  std::int32_t column = 1;
  friend bool operator==(const CellAddress&, const CellAddress&) = default;
};

/// A rectangle, both corners within it.
struct CellArea {
  std::int32_t top = 1;
  std::int32_t left = 1;
  std::int32_t bottom = 1;
  std::int32_t right = 1;
  friend bool operator==(const CellArea&, const CellArea&) = default;

  std::int32_t RowCount() const { return bottom - top + 1; }
  std::int32_t ColumnCount() const { return right - left + 1; }
  bool IsWholeRows() const { return left == 1 && right == kLastColumn; }
  bool IsWholeColumns() const { return top == 1 && bottom == kLastRow; }
  bool HasRow(std::int32_t row) const { return row >= top && row <= bottom; }
  bool HasColumn(std::int32_t column) const { return column >= left && column <= right; }
  bool Holds(const CellArea& other) const {
    return other.top >= top && other.bottom <= bottom && other.left >= left && other.right <= right;
  }
  CellArea Moved(std::int32_t rows, std::int32_t columns) const {
    return {top + rows, left + columns, bottom + rows, right + columns};
  }
};

/// What two areas share; nothing when they do not meet.
inline std::optional<CellArea> Common(const CellArea& a, const CellArea& b) {
  const CellArea common{std::max(a.top, b.top), std::max(a.left, b.left), std::min(a.bottom, b.bottom),
                        std::min(a.right, b.right)};
  if (common.top > common.bottom || common.left > common.right) return std::nullopt;
  return common;
}

inline bool IsInSheet(std::int32_t row, std::int32_t column) {
  return row >= 1 && row <= kLastRow && column >= 1 && column <= kLastColumn;
}
inline bool IsInSheet(const CellArea& area) {
  return area.top <= area.bottom && area.left <= area.right && IsInSheet(area.top, area.left) &&
         IsInSheet(area.bottom, area.right);
}

/// Takes the letters of a column off the front of a text, case ignored, "$" not accepted.
/// @return 0 when there are none or they are no column
std::int32_t TakeColumn(std::string_view& text);
/// Takes a row number off the front. @return 0 when there is none
std::int32_t TakeRow(std::string_view& text);

/// "B7", "$B$7"; nothing for any other text and outside of the sheet.
std::optional<CellAddress> ParseCell(std::string_view text);
/// A cell, two corners in any order, whole columns "A:C", whole rows "2:5".
std::optional<CellArea> ParseArea(std::string_view text);

void AppendNumber(std::string& text, std::int64_t number);
void AppendColumn(std::string& text, std::int32_t column);
void AppendCell(std::string& text, std::int32_t row, std::int32_t column);
/// The shortest form: "B7", "A1:C3", "2:5", "D:D".
void AppendArea(std::string& text, const CellArea& area);

}  // namespace zorkanca::excel
