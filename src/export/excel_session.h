// The Excel of one export: a workbook that the export fills, and what the user gets to see at the end.
#pragma once

#include "export/export_context.h"
#include "platform/excel/excel_application.h"

namespace zorkanca {

/// Title of every message of an export into Excel.
inline constexpr TextView kExcelExportTitle = u"Export dat do aplikace MS Excel";

/// The destructor gives Excel back to the user, after failures too: it draws again and, if the caller wants it, is
/// shown maximised. An export that declares it before its `ExportSession` ends in the usual order.
class ExcelSession {
 public:
  /// @param setAppVisible  whether Excel is shown at the end
  ExcelSession(const ExportContext& context, bool setAppVisible) : context_(context), setAppVisible_(setAppVisible) {}
  ~ExcelSession();
  ExcelSession(const ExcelSession&) = delete;
  ExcelSession& operator=(const ExcelSession&) = delete;

  /// Adds the workbook and lets Excel draw nothing until the end.
  /// @param templatePath  empty for an empty workbook
  /// Errors: stops the export when there is no Excel or no workbook.
  void Open(const Text& templatePath);
  /// Keeps the user's keyboard and mouse away from Excel until the end.
  void KeepUserOut();
  /// Closes the workbook unsaved: the user does not want it any more.
  void Discard();

  ExcelApplication& application() const { return *application_; }
  /// Null before `Open` and after `Discard`.
  const ExcelWorkbookReference& workbook() const { return workbook_; }

 private:
  const ExportContext& context_;
  bool setAppVisible_;
  bool keepsUserOut_ = false;
  ExcelApplicationReference application_;
  ExcelWorkbookReference workbook_;
};

}  // namespace zorkanca
