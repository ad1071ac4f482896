// Makes the package that a workbook is saved as.
#pragma once

#include "excel/book/workbook_content.h"
#include "excel/grid/table_references.h"

namespace zorkanca::excel {

class WorkbookSaver {
 public:
  explicit WorkbookSaver(WorkbookContent& workbook)
      : workbook_(workbook), package_(workbook.package_), texts_(workbook.texts_) {}

  Package Run();

 private:
  using SheetEntry = WorkbookContent::SheetEntry;

  void WriteSheet(const SheetEntry& entry);
  void WriteDrawing(const SheetEntry& entry);
  void KeepSheet(const SheetEntry& entry);
  void WriteTexts();
  void WriteWorkbook();
  void RemoveCalculationChain();

  WorkbookContent& workbook_;
  Package package_;
  TextTable texts_;
  TableRenames renames_;
  std::uint64_t references_ = 0;  // of cells to shared texts, in all sheets
  bool changed_ = false;          // some sheet; results of formulas may be stale then
};

}  // namespace zorkanca::excel
