#include "export/excel_session.h"

#include <utility>

#include "export/excel_opening.h"
#include "export/export_failure.h"
#include "foundation/ignore_errors.h"

namespace zorkanca {

namespace {

constexpr TextView kExcelNotOpened = u"Nepodařilo se otevřít aplikaci MS Excel !";

}  // namespace

ExcelSession::~ExcelSession() {
  if (!application_) return;
  IgnoreErrors([&] { application_->ScreenUpdating(true); });
  if (keepsUserOut_) IgnoreErrors([&] { application_->Interactive(true); });
  if (!setAppVisible_) return;
  IgnoreErrors([&] { application_->Visible(true); });
  IgnoreErrors([&] { application_->WindowState(ExcelWindowState::kMaximized); });
}

void ExcelSession::Open(const Text& templatePath) {
  GetOpenXlsArguments arguments{.rsTemplate = templatePath, .rVisible = AppVisible::avLeave, .rbScreenUpdating = false};
  if (!OpenExcelWorkbook(context_, arguments)) StopExport(kExcelNotOpened);
  workbook_ = std::move(arguments.roRetXls);
  application_ = workbook_->Application();
}

void ExcelSession::KeepUserOut() {
  keepsUserOut_ = true;
  application_->Interactive(false);
}

void ExcelSession::Discard() {
  if (const ExcelWorkbookReference workbook = std::exchange(workbook_, nullptr)) workbook->Close(/*SaveChanges=*/false);
}

}  // namespace zorkanca
