// GetOpenXls: the one way in which the exports get Excel and a workbook in it.
#pragma once

#include "export/export_context.h"
#include "export/export_types.h"
#include "platform/excel/excel_application.h"

namespace zorkanca {

/// Arguments of GetOpenXls under their published names.
struct GetOpenXlsArguments {
  Text rsTemplate{};                  ///< file that the new workbook is based on; blank for an empty workbook
  ExcelWorkbookReference roRetXls{};  ///< receives the workbook; null after a failure
  AppVisible rVisible = AppVisible::avTrue;
  bool rbScreenUpdating = true;
};

/// Attaches to the running Excel, or starts it, and adds the workbook. Failures are told by ExportState.
/// @return true when the workbook is there
bool OpenExcelWorkbook(const ExportContext& context, GetOpenXlsArguments& arguments);

}  // namespace zorkanca
