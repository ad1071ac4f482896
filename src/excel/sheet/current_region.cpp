#include "excel/sheet/current_region.h"

#include "excel/sheet/row_composer.h"

namespace zorkanca::excel {

namespace {

// Grows the area by what touches it, walking down. A walk finds everything below by itself; what it finds at a side may
// touch something above, and then another walk is needed.
bool GrowOnce(RowComposer& composer, CellArea& area, WatchedWork& work) {
  const CellArea before = area;
  composer.Seek(std::max(area.top - 2, 0));
  while (composer.Next() && composer.number() <= area.bottom + 1) {
    const std::int32_t row = composer.number();
    work.Reach(0);
    for (const CellView& cell : composer.Compose().cells) {
      if (cell.kind == CellKind::kBlank || cell.column < area.left - 1) continue;
      if (cell.column > area.right + 1) break;
      area.top = std::min(area.top, row);
      area.bottom = std::max(area.bottom, row);
      area.left = std::min(area.left, cell.column);
      area.right = std::max(area.right, cell.column);
    }
  }
  return area.left != before.left || area.right != before.right || area.top != before.top;
}

}  // namespace

CellArea CurrentRegionOf(const SheetModel& sheet, CellAddress cell, const ExcelWatch& watch) {
  CellArea area{cell.row, cell.column, cell.row, cell.column};
  RowComposer composer(sheet);
  WatchedWork work(watch, ExcelWork::kImporting, 0);
  while (GrowOnce(composer, area, work)) {
  }
  return area;
}

}  // namespace zorkanca::excel
