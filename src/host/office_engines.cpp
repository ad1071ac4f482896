#include "host/office_engines.h"

#include "runtime/error.h"

namespace zorkanca {

OfficeEngines::OfficeEngines(const Locale& locale, LibreOfficeConverter converter, WordEngine::Warn warn)
    : word_(locale, std::move(converter), std::move(warn)) {}

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
