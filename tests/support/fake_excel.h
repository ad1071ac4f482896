// An Excel for tests: plain grids of texts, every call that matters written into a journal.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/excel/excel_application.h"
#include "support/fake_word.h"
#include "support/memory_file_system.h"

namespace zorkanca::testing {

/// The rows of a sheet, each as long as its last cell that was written; texts that begin with "=" are formulas.
using FakeCells = std::vector<std::vector<Text>>;

/// Imported files are read from the file system; templates are what a test says they are.
class FakeExcel final {
 public:
  FakeExcel(Journal& lines, MemoryFileSystem& fileSystem) : journal(lines), files(fileSystem) {}

  bool running = false;
  std::int32_t attachError = 0;                     ///< raised instead of 429 when Excel does not run
  FakeCells templateCells;                          ///< of every workbook that is based on a template
  std::int32_t shapes = 0;                          ///< on each sheet; negative: counting them raises 438
  bool refusesToAdd = false;                        ///< adding a workbook raises 1004
  bool knowsSeparators = true;                      ///< `OpenText` takes them; else it raises 449
  bool refusesImports = false;                      ///< `OpenText` raises 1004
  bool refusesToExport = false;                     ///< ExportAsFixedFormat raises 5
  std::optional<ExportWorkbookArguments> exported;  ///< those of the last export
  ExcelWindowState windowState = ExcelWindowState::kNormal;
  ExcelWindowState activeWindowState = ExcelWindowState::kNormal;
  Journal& journal;
  MemoryFileSystem& files;
  std::shared_ptr<ExcelApplication> application;  ///< once started

  ExcelApplicationReference AttachExcel();
  ExcelApplicationReference StartExcel();
  ExcelWorkbookReference GetWorkbook(TextView path);
};

/// All cells of the first sheet as they are, for comparisons.
FakeCells CellsOf(ExcelWorkbook& workbook);

}  // namespace zorkanca::testing
