// What a cell holds, taken out of its file form.
#pragma once

#include <string>
#include <variant>

#include "excel/grid/cell.h"
#include "excel/tables/shared_strings.h"

namespace zorkanca::excel {

/// The text of an error value.
struct ErrorValue {
  std::string text;
};

/// Nothing, a number, a truth value, a text in UTF-8, an error. Of a formula its last result.
using CellValue = std::variant<std::monostate, double, bool, std::string, ErrorValue>;

/// @param prefix  of the sheet's element names
/// @param is1904  of the workbook, for dates that a file writes as dates
CellValue ValueOf(const CellView& cell, const SharedStrings& texts, std::string_view prefix, bool is1904);

/// True when a cell has a content, were it only an empty text.
inline bool HasContent(const CellView& cell) {
  return cell.kind != CellKind::kBlank;
}

}  // namespace zorkanca::excel
