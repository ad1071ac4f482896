// One open workbook and its sheets.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/excel/excel_range.h"
#include "runtime/text.h"
#include "runtime/value.h"

namespace zorkanca {

class ExcelApplication;

/// File formats of `SaveAs` (`XlFileFormat`).
enum class ExcelSaveFormat : std::int32_t { kWorkbookXml = 51 };

/// Arguments of `ExportAsFixedFormat`; the defaults are the object model's.
struct ExportWorkbookArguments {
  std::int32_t Type = 0;  ///< PDF
  Text fileName = {};
  std::int32_t Quality = 0;  ///< standard
  bool IncludeDocProperties = true;
  bool IgnorePrintAreas = false;
  bool OpenAfterPublish = false;
};

class ExcelWorksheet : public Object {
 public:
  /// Cells by an address: "A1", "$B$2:D9". Errors: 1004 for what is no address within the sheet.
  virtual std::unique_ptr<ExcelRange> Range(TextView address) = 0;
  /// `Rows(address)`: whole rows, "1:1", "2:7". Errors: 1004.
  virtual std::unique_ptr<ExcelRange> Rows(TextView address) = 0;
  /// `Columns(index)`: a whole column, from 1. Errors: 1004.
  virtual std::unique_ptr<ExcelRange> Columns(std::int32_t index) = 0;
  /// `Shapes.Count`: pictures, drawings, charts and controls; comments too.
  virtual std::int32_t ShapeCount() = 0;
  /// Pastes what was copied over the selection, which it fills with repetitions when it is a multiple of the copied
  /// block. Whole rows bring everything of theirs: heights, formats, merged cells, conditional formats, validations,
  /// pictures. Errors: 1004 when nothing was copied or it does not fit.
  virtual void Paste() = 0;
  virtual void Activate() = 0;
};
using ExcelWorksheetReference = std::shared_ptr<ExcelWorksheet>;

class ExcelWorkbook : public Object {
 public:
  /// `Application`, which is its `Parent` too.
  virtual std::shared_ptr<ExcelApplication> Application() = 0;
  /// File name without folder, "Sešit1" (or "Book1") while it was never saved. Opened texts have the name of their
  /// file.
  virtual Text Name() const = 0;
  /// Full path of its file; the name while it was never saved.
  virtual Text FullName() const = 0;
  /// `Sheets(index)`, from 1. Errors: 9 outside the sheets, 438 for a sheet that holds no cells.
  virtual ExcelWorksheetReference Sheets(std::int32_t index) = 0;
  /// Errors: 438 when the active sheet holds no cells.
  virtual ExcelWorksheetReference ActiveSheet() = 0;
  virtual void Activate() = 0;
  /// Writes the workbook to a file, whole or not at all; it then has that name. A file named ".xlsm" keeps macros.
  /// Errors: those of files; 438 for another format.
  virtual void SaveAs(TextView fileName, ExcelSaveFormat format) = 0;
  virtual void ExportAsFixedFormat(const ExportWorkbookArguments& arguments) = 0;
  /// Closes the workbook; every other member of it and of its sheets and ranges then raises 424. Errors: 438 when
  /// changes are to be saved.
  virtual void Close(bool SaveChanges) = 0;
};
using ExcelWorkbookReference = std::shared_ptr<ExcelWorkbook>;

}  // namespace zorkanca
