#include "export/export_failure.h"

#include "export/export_session.h"

namespace zorkanca {

namespace {

// Number of the error by which `StopExport` travels to the edge; no client ever sees it.
constexpr std::int32_t kStopNumber = -1;

constexpr TextView kUnexpectedError = u"Neočekávaná chyba: ";

Text MessageOf(const Error& error) {
  if (IsStop(error)) return error.description();
  if (error.number() == static_cast<std::int32_t>(RuntimeError::kUserInterrupt)) return Text(kCancelledByUser);
  Text message(kUnexpectedError);
  message.append(kCrLf);
  AppendDecimal(message, error.number());
  return message.append(u" - ").append(error.description()).append(u".");
}

}  // namespace

void StopExport(TextView message) {
  throw Error(kStopNumber, Text(), Text(message));
}

bool IsStop(const Error& error) {
  return error.number() == kStopNumber;
}

bool RunToEdge(ExportSession& session, TextView title, const std::function<void()>& body) {
  try {
    body();
    return true;
  } catch (...) {
    session.Fail(title, MessageOf(*ErrorBeingHandled()));
    return false;
  }
}

}  // namespace zorkanca
