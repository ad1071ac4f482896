#include "com/error_report.h"

#include "runtime/error.h"
#include "win32/automation/com_pointer.h"
#include "win32/automation/dispatch_error.h"
#include "win32/wide_text.h"

namespace zorkanca::com {

namespace {

void Tell(REFIID interfaceId, const Text& source, const Text& description) {
  win32::ComPointer<ICreateErrorInfo> report;
  if (FAILED(CreateErrorInfo(report.Receive()))) return;
  report->SetGUID(interfaceId);
  report->SetSource(const_cast<wchar_t*>(win32::Wide(source)));
  report->SetDescription(const_cast<wchar_t*>(win32::Wide(description)));
  if (const auto told = report.As<IErrorInfo>()) SetErrorInfo(0, told.get());
}

}  // namespace

HRESULT ReportErrorBeingHandled(REFIID interfaceId, TextView className) noexcept {
  try {
    const std::optional<Error> error = ErrorBeingHandled();
    if (!error) return E_UNEXPECTED;
    const Text source = error->source().empty() ? Text(u"zorKancA.").append(className) : error->source();
    Tell(interfaceId, source, error->description());
    const HRESULT result = win32::ResultOf(error->number());
    return FAILED(result) ? result : E_FAIL;
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace zorkanca::com
