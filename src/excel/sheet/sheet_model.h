// A sheet as it is now: what its file had, and what was laid over it since, in order. Nothing is carried out before
// somebody reads a row: a pattern repeated a hundred thousand times and an import of a million rows are one layer each.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

#include "excel/grid/cell_source.h"
#include "excel/sheet/column_table.h"
#include "excel/sheet/packed_contents.h"
#include "excel/sheet/sheet_part.h"
#include "excel/tables/style_book.h"

namespace zorkanca::excel {

/// Whole rows as they were when they were copied.
struct RowBlock {
  std::int32_t top = 1;
  std::vector<std::optional<StoredRow>> rows;  ///< nothing for a row that has nothing

  std::int32_t RowCount() const { return static_cast<std::int32_t>(rows.size()); }
};

/// Repetitions of a block, one below the other; they replace the rows that were there.
struct RowsLayer {
  std::shared_ptr<const RowBlock> block;
  std::int32_t first = 1;
  std::int32_t copies = 1;

  CellArea Area() const { return {first, 1, first + copies * block->RowCount() - 1, kLastColumn}; }
};

/// A block of contents; its first cell lies on the first of the area.
struct ContentsLayer {
  CellArea area;
  std::shared_ptr<const CellSource> source;
  std::int32_t sourceRow = 0;  ///< what of the source lies there, from 0
  std::int32_t sourceColumn = 0;
  bool withFormats = false;                     ///< false: contents alone, the formats underneath stay
  std::shared_ptr<PackedContents> packed = {};  ///< the source, when it can still grow
};

/// A change of formats of whole rows or whole columns.
struct CellFormatLayer {
  CellArea area;
  CellFormatChange change;
};

/// Contents put into single cells; formats stay. `kBlank` empties.
struct EditsLayer {
  std::map<std::int32_t, std::map<std::int32_t, StoredCell>> rows;  // by row, by column
};

using Layer = std::variant<RowsLayer, ContentsLayer, CellFormatLayer, EditsLayer>;

class SheetModel {
 public:
  /// @param is1904  dates of the workbook count from 1904
  SheetModel(SheetPart part, StyleBook& styles, bool is1904);

  const SheetPart& part() const { return part_; }
  const std::vector<Layer>& layers() const { return layers_; }
  StyleBook& styles() const { return styles_; }
  bool is1904() const { return is1904_; }
  ColumnTable& columns() { return columns_; }
  const ColumnTable& columns() const { return columns_; }
  /// As the file has them, before any layer.
  const ColumnTable& fileColumns() const { return fileColumns_; }

  std::shared_ptr<const RowBlock> CopyRows(std::int32_t top, std::int32_t bottom) const;
  /// Errors: 1004 when a part of an array formula would be replaced.
  void PasteRows(std::shared_ptr<const RowBlock> block, std::int32_t first, std::int32_t copies);
  void Lay(ContentsLayer layer);
  /// Lays an array of contents; arrays laid one below the other become one layer.
  void Assign(const CellArea& area, const CellGrid& contents);
  void Edit(std::int32_t row, StoredCell cell);
  /// @param area  whole rows or whole columns
  void ChangeFormat(const CellArea& area, const CellFormatChange& change);
  /// Remembers columns to be fitted to the contents of an area; done when the sheet is written, so that formats that
  /// are set after it count too.
  void AutoFit(const CellArea& area) { fits_.push_back(area); }
  const std::vector<CellArea>& fits() const { return fits_; }

  void Select(const CellArea& area) { selection_ = area; }
  const std::optional<CellArea>& selection() const { return selection_; }
  /// Whether the sheet is to be the selected one of its workbook; nothing when that is as in the file.
  std::optional<bool> tabSelected = {};

  /// The sheet of a text that was just imported: all of it hangs together.
  bool isImport = false;

  bool changed() const { return !layers_.empty() || !fits_.empty() || selection_ || tabSelected; }
  /// True when contents changed, so that stored results of formulas may be wrong.
  bool contentsChanged() const;
  /// Covers all cells that there can be; A1 for an empty sheet.
  CellArea Extent() const;

 private:
  void ReadColumns();

  SheetPart part_;
  StyleBook& styles_;
  bool is1904_;
  ColumnTable columns_;
  ColumnTable fileColumns_;
  std::vector<Layer> layers_;
  std::vector<CellArea> fits_;
  std::optional<CellArea> selection_;
};

}  // namespace zorkanca::excel
