// Our own engine in Excel's place: it opens, fills and writes real workbooks without Excel. What it supports and how it
// decided where Excel's behaviour is in doubt stands in docs/formats/excel.md.
#pragma once

#include <memory>

#include "excel/grid/work_watch.h"
#include "libreoffice/libreoffice_converter.h"
#include "platform/excel/excel_application.h"
#include "runtime/locale.h"

namespace zorkanca {

class ExcelEngine final {
 public:
  /// @param locale     of numbers, dates and ANSI files; outlives the engine
  /// @param converter  makes PDF and reads workbooks of other formats
  /// @param watch      asked and told while texts are imported, columns fitted and workbooks saved
  explicit ExcelEngine(const Locale& locale, LibreOfficeConverter converter = {}, ExcelWatch watch = {});
  ~ExcelEngine();

  /// The application that this engine started; it runs until the engine is gone. Errors: 429 before.
  ExcelApplicationReference AttachExcel();
  /// One application runs at a time: a second start gives the running one.
  ExcelApplicationReference StartExcel();
  /// The workbook of a file, opened in the running application or in one that is started for it.
  /// Errors: 1004 when the file is missing, 5 when it cannot be read.
  ExcelWorkbookReference GetWorkbook(TextView path);

 private:
  struct Environment;

  std::shared_ptr<const Environment> environment_;
  std::shared_ptr<class EngineExcel> running_;

  friend class EngineExcel;
};

}  // namespace zorkanca
