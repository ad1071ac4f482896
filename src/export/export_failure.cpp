#include "export/export_failure.h"

#include "export/export_session.h"
#include "foundation/ignore_errors.h"

namespace zorkanca {

namespace {

// The error by which `StopExport` travels to the edge; no client ever sees it. The source tells it from an error of a
// client's own database or handler that has the same number.
constexpr std::int32_t kStopNumber = -1;
constexpr TextView kStopSource = u"zorkanca::StopExport";

constexpr TextView kUnexpectedError = u"Neočekávaná chyba: ";

// Stops an export for a reason that its message does not give.
class StopForCause final : public Error {
 public:
  StopForCause(TextView message, const Error& cause)
      : Error(kStopNumber, Text(kStopSource), Text(message)), cause_(cause) {}

  const Error& cause() const { return cause_; }

 private:
  Error cause_;
};

Text MessageOf(const Error& error, const UnforeseenFailure& unforeseen) {
  if (const std::optional<Text> stop = StopMessage(error)) return *stop;
  Text message(kUnexpectedError);
  message.append(kCrLf);
  AppendDecimal(message, error.number());
  message.append(u" - ").append(error.description()).append(u".");
  return unforeseen.details ? message.append(unforeseen.details(error)) : message;
}

// What is told after the message box. An error that none of the messages foresees is its own cause, unless somebody
// knew a better one.
void NoteCauseOf(const ExportContext& context, const Error& error) {
  if (const std::optional<Error> cause = HiddenCause()) return context.NoteCause(*cause);
  const bool unknown = !StopMessage(error) && context.report && !context.report->HasCauses();
  if (unknown) context.NoteCause(error);
}

}  // namespace

void StopExport(TextView message) {
  throw Error(kStopNumber, Text(kStopSource), Text(message));
}

void StopExport(TextView message, const Error& cause) {
  throw StopForCause(message, cause);
}

std::optional<Error> HiddenCause() {
  try {
    throw;
  } catch (const StopForCause& stop) {
    return stop.cause();
  } catch (...) {
    return std::nullopt;
  }
}

std::optional<Text> StopMessage(const Error& error) {
  if (error.number() == kStopNumber && error.source() == kStopSource) return error.description();
  if (error.number() == static_cast<std::int32_t>(RuntimeError::kUserInterrupt)) return Text(kCancelledByUser);
  return std::nullopt;
}

bool RunToEdge(ExportSession& session, TextView title, const std::function<bool()>& body,
               const UnforeseenFailure& unforeseen) {
  try {
    return body();
  } catch (...) {
    const Error error = *ErrorBeingHandled();
    NoteCauseOf(session.context(), error);
    session.Fail(title, MessageOf(error, unforeseen));
    if (unforeseen.afterwards && !StopMessage(error)) IgnoreErrors(unforeseen.afterwards);
    return false;
  }
}

}  // namespace zorkanca
