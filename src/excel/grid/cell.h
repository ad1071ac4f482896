// Cells and rows on their way from where they come from (the file, a pattern, an imported text, an edit) to whoever
// reads or writes them. Views are cheap and short-lived; stored cells own what they show.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "excel/grid/cell_address.h"
#include "excel/grid/formula.h"

namespace zorkanca::excel {

enum class CellKind : std::uint8_t {
  kBlank,        ///< a format without content
  kFile,         ///< a constant as the file has it: `content` is the inside of its element
  kFileFormula,  ///< a formula as the file has it: `content` is its element without the stored result
  kFormula,      ///< `formula`
  kNumber,       ///< `content` is a decimal number with a point
  kText,         ///< `content` is UTF-8
  kBoolean,      ///< `content` is "1" or "0"
  kError,        ///< `content` is "#N/A" and the like
};

/// Rows and columns that an array formula fills from its cell on.
struct ArrayExtent {
  std::int32_t rows = 1;
  std::int32_t columns = 1;
};

/// One cell. The texts live as long as the row that it belongs to.
struct CellView {
  std::int32_t column = 0;
  std::uint32_t style = 0;  ///< index of its cell format
  CellKind kind = CellKind::kBlank;
  bool quotePrefix = false;  ///< the text was put in with an apostrophe in front
  bool hasLines = false;     ///< of kText: it is known to have line breaks
  std::string_view content = {};
  std::string_view type = {};    ///< of kFile and kFileFormula: the attribute t
  std::string_view result = {};  ///< of kFile and kFileFormula: the inside of v or is, raw
  std::string_view extra = {};   ///< its attributes in the file, raw, when there are others than r, s and t
  std::string_view shown = {};   ///< of an import that brought its format: what it shows, where that is known, UTF-8
  const Formula* formula = nullptr;
  const ArrayExtent* array = nullptr;
};

/// One row, cells in the order of their columns.
struct RowView {
  std::int32_t row = 0;
  bool styled = false;  ///< `style` counts for what has no cell
  std::uint32_t style = 0;
  std::string_view attributes = {};  ///< its attributes in the file, raw
  std::vector<CellView> cells = {};

  void Clear(std::int32_t number) {
    row = number;
    styled = false;
    style = 0;
    attributes = {};
    cells.clear();
  }
};

/// A cell that owns its texts.
struct StoredCell {
  explicit StoredCell(const CellView& view, CellAddress at);
  StoredCell() = default;

  CellView View() const;

  std::int32_t column = 0;
  std::uint32_t style = 0;
  CellKind kind = CellKind::kBlank;
  bool quotePrefix = false;
  std::string content = {};
  std::string type = {};
  std::string result = {};
  std::string extra = {};
  std::shared_ptr<const Formula> formula = {};
  std::optional<ArrayExtent> array = {};

 private:
  void KeepResult();
};

/// A row that owns its cells.
struct StoredRow {
  explicit StoredRow(const RowView& view);

  /// Fills a view that lives as long as this row.
  void Show(RowView& view, std::int32_t number) const;

  bool styled = false;
  std::uint32_t style = 0;
  std::string attributes;
  std::vector<StoredCell> cells;
};

}  // namespace zorkanca::excel
