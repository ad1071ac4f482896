// Contents that were assigned to cells as arrays, packed one behind the other: a few bytes a cell beside its text.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "excel/grid/cell_source.h"
#include "platform/excel/cell_grid.h"
#include "runtime/locale.h"

namespace zorkanca::excel {

/// What a text means that is put into a cell as the English program takes it: one that begins with "'" is the rest of
/// it, one that begins with "=" a formula, others may be numbers and the like.
struct Entry {
  CellKind kind = CellKind::kBlank;
  bool quotePrefix = false;
  std::string content = {};  ///< UTF-8; of a formula without the "="
};
/// Errors: 1004 for a text that is longer than a cell holds.
Entry ReadEntry(TextView text);

/// Grows by rows at its end; every array has as many columns as the first.
class PackedContents final : public CellSource {
 public:
  explicit PackedContents(std::int32_t columns) : columns_(columns) {}

  /// Adds rows, contents as `FormulaR1C1` takes them. Nothing is added when it raises.
  /// Errors: 1004 for a text that is longer than a cell holds or has `unsupported` values; 13 for values that no cell
  /// holds.
  void Add(const CellGrid& contents);

  std::int32_t rows() const override { return static_cast<std::int32_t>(rowOffsets_.size()); }
  std::int32_t columns() const override { return columns_; }
  std::unique_ptr<Cursor> Open() const override;

 private:
  class PackedCursor;

  void AddCell(const Value& value);
  void AddText(const Text& text);
  void AddPiece(CellKind kind, bool quotePrefix, std::string_view text);

  std::int32_t columns_;
  std::string bytes_;  // of each cell: kind and flags, length in 7-bit groups, text
  std::vector<std::uint64_t> rowOffsets_;
  std::vector<Formula> formulas_;
};

/// The text of an error: 2042 is "#N/A"; "#N/A" for a number that is none.
std::string_view ErrorTextOf(std::int32_t number);
/// The number of an error's text; 2042 for an unknown one.
std::int32_t ErrorNumberOf(std::string_view text);

}  // namespace zorkanca::excel
