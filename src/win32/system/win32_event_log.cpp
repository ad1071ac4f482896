#include "win32/system/win32_event_log.h"

#include "win32/system.h"
#include "win32/system_error.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

namespace {

constexpr std::size_t kMostUnits = 31839;  // of one text of an event

// The system's numbers are ours; it refuses others.
WORD KindOf(std::int32_t eventType) {
  switch (eventType) {
    case kErrorEvent:
    case kWarningEvent:
    case kInformationEvent:
      return static_cast<WORD>(eventType);
    default:
      return EVENTLOG_SUCCESS;
  }
}

}  // namespace

void Win32EventLog::Write(TextView message, std::int32_t eventType) {
  const HANDLE log = RegisterEventSourceW(nullptr, L"zorKancA");
  if (!log) RaiseSystemError(GetLastError());
  const Text text(message.substr(0, kMostUnits - 1));
  const wchar_t* lines = Wide(text);
  const BOOL written = ReportEventW(log, KindOf(eventType), 0, 0, nullptr, 1, 0, &lines, nullptr);
  const DWORD failure = GetLastError();
  DeregisterEventSource(log);
  if (!written) RaiseSystemError(failure);
}

}  // namespace zorkanca::win32
