#include "foundation/error_log_writer.h"

#include <utility>

#include "foundation/application_name.h"
#include "foundation/argument_details.h"
#include "foundation/argument_error.h"
#include "foundation/guarded.h"
#include "foundation/ignore_errors.h"
#include "foundation/text_builder.h"
#include "foundation/windows_app_log.h"
#include "runtime/format.h"

namespace zorkanca {

namespace {

std::shared_ptr<ILogWriter>& CustomWriter() {
  static std::shared_ptr<ILogWriter> writer;
  return writer;
}

TextView EventTypeText(std::int32_t eventType) {
  switch (eventType) {
    case kErrorEvent:
      return u"Chyba";
    case kWarningEvent:
      return u"Varování";
    case kInformationEvent:
      return u"Informace";
    default:
      return u"<neurčeno>";
  }
}

// The message as the details of an error in writing it.
Text MessageDetails(TextView message) {
  return Text(u"message události: ").append(kCrLf).append(message);
}

}  // namespace

ErrorLogWriter::ErrorLogWriter(const Platform& platform)
    : platform_(platform), rollFile_(platform, *this, platform.environment.LogFolder()) {
  rollFile_.name(u"ZorixLog");
  rollFile_.Extension(u"txt");
}

bool ErrorLogWriter::IsStartedCustomErrorLogWriter() {
  return CustomWriter() != nullptr;
}

std::shared_ptr<ILogWriter> ErrorLogWriter::CustomErrorLogWriter() {
  return CustomWriter();
}

void ErrorLogWriter::StartLoggingErrorsToCustomLog(std::shared_ptr<ILogWriter> writer) {
  CustomWriter() = std::move(writer);
}

void ErrorLogWriter::StopLoggingErrorsToCustomLog() {
  CustomWriter() = nullptr;
}

void ErrorLogWriter::WriteMessage(TextView message, std::int32_t eventType) {
  Guarded(u"ErrorLogWriter.WriteMessage", ArgumentDetails({{u"message", message}, {u"eventType", eventType}}), [&] {
    WriteMessageOnlyToStandardLog(message, eventType);
    WriteMessageOnlyToCustomLog(message, eventType);
  });
}

void ErrorLogWriter::WriteMessageFromFunction(TextView sourceFunctionName, TextView message, std::int32_t eventType) {
  Guarded(
      u"ErrorLogWriter.WriteMessageFromFunction",
      ArgumentDetails({{u"sourceFunctionName", sourceFunctionName}, {u"message", message}, {u"eventType", eventType}}),
      [&] { WriteMessage(Text(u"[").append(sourceFunctionName).append(u"] ").append(message), eventType); });
}

void ErrorLogWriter::WriteCurrentError(TextView sourceFunctionName, TextView details) {
  const ErrData current;
  if (current.number == 0) return;
  Guarded(u"ErrorLogWriter.WriteCurrentError",
          ArgumentDetails({{u"sourceFunctionName", sourceFunctionName}, {u"details", details}}), [&] {
            TextBuilder text;
            text.AppendLine(u"Detaily:");
            text.AppendLine(details, 1);
            text.AppendLine(u"Zachycená chyba:");
            text.AppendLine(current.ToString(), 1);
            WriteMessageFromFunction(sourceFunctionName, text.ToString(), kInformationEvent);
          });
}

void ErrorLogWriter::WriteError(TextView sourceFunctionName, const ErrData* errorData) {
  WriteErrorAs(kErrorEvent, sourceFunctionName, errorData);
}

void ErrorLogWriter::WriteIgnoredError(TextView sourceFunctionName, const ErrData* errorData) {
  WriteErrorAs(kInformationEvent, sourceFunctionName, errorData);
}

void ErrorLogWriter::WriteErrorAs(std::int32_t eventType, TextView sourceFunctionName, const ErrData* errorData) {
  constexpr TextView kName = u"ErrorLogWriter.WriteError";
  const ArgumentError argumentError;
  argumentError.ObjectArgumentMustNotBeNothing(errorData, u"errorData", kName);
  argumentError.StringArgumentMustNotBeBlank(sourceFunctionName, u"sourceFunctionName", kName);
  Guarded(kName, ArgumentDetails({{u"sourceFunctionName", sourceFunctionName}}),
          [&] { WriteMessageFromFunction(sourceFunctionName, errorData->ToString(), eventType); });
}

void ErrorLogWriter::WriteMessageOnlyToStandardLog(TextView message, std::int32_t eventType) noexcept {
  try {
    Append(BuildLogText(message, eventType));
  } catch (...) {
    IgnoreErrors([&] { ReportUnwritten(message); });
  }
}

void ErrorLogWriter::WriteMessageOnlyToCustomLog(TextView message, std::int32_t eventType) {
  const std::shared_ptr<ILogWriter> writer = CustomErrorLogWriter();  // held: it may stop itself while it writes
  if (!writer) return;
  Guarded(
      u"WriteMessageOnlyToCustomLog", [&] { return MessageDetails(message); },
      [&] { writer->WriteMessage(message, eventType); });
}

Text ErrorLogWriter::BuildLogText(TextView message, std::int32_t eventType) const {
  constexpr TextView kName = u"ErrorLogWriter.buildLogText";
  return Guarded(kName, ArgumentDetails({{u"message", message}, {u"eventType", eventType}}), [&] {
    TextBuilder entry;
    entry.AppendNewLine();  // an empty line between two entries
    entry.Append(BuildHeader(eventType));
    entry.AppendParagraph(message, 1);
    return entry.ToString();
  });
}

Text ErrorLogWriter::BuildHeader(std::int32_t eventType) const {
  const Date now = platform_.clock.Now();
  Text header = Format(now, u"Short Date", platform_.locale);
  header.append(u" ").append(Format(now, u"Long Time", platform_.locale));
  header.append(u" ").append(EventTypeText(eventType));
  header.append(u" ").append(kApplicationName);
  header.append(u" ").append(platform_.environment.VersionText());
  header.append(u" ThreadID = ");
  AppendDecimal(header, platform_.clock.ThreadId());
  return header;
}

void ErrorLogWriter::Append(TextView entry) {
  const Text file = rollFile_.GetCurrentAndRollIfNeeded();
  const auto stream = platform_.files.OpenTextFile(file, IoMode::kForAppending, true, TextFormat::kAnsi);
  stream->WriteLine(entry);
  stream->Close();
}

void ErrorLogWriter::ReportUnwritten(TextView message) const {
  const Text failure = ErrData().BuildErrorMessage(u"WriteMessageOnlyToStandardLog", MessageDetails(message));
  const Text report = Text(u"Chyba zápisu do logu: ").append(kCrLf).append(failure);
  WindowsAppLog(platform_.eventLog).WriteEvent(report, kErrorEvent);
}

}  // namespace zorkanca
