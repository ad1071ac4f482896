#include "host/office_engines.h"

#include "runtime/error.h"

namespace zorkanca {

namespace {

LibreOfficeConverter CancelledBy(const std::function<bool()>& cancelled) {
  LibreOfficeConverter::Settings settings;
  settings.cancelled = cancelled;
  return LibreOfficeConverter(std::move(settings));
}

}  // namespace

OfficeEngines::OfficeEngines(const Locale& locale, WordEngine::Warn warn, std::function<bool()> cancelled)
    : word_(locale, CancelledBy(cancelled), std::move(warn), cancelled) {}

ExcelApplicationReference OfficeEngines::AttachExcel() {
  Raise(RuntimeError::kCannotCreateObject);
}

ExcelApplicationReference OfficeEngines::StartExcel() {
  Raise(RuntimeError::kCannotCreateObject);
}

ExcelWorkbookReference OfficeEngines::GetWorkbook(TextView) {
  Raise(RuntimeError::kCannotCreateObject);
}

}  // namespace zorkanca
