// The log of errors and messages: one text file a day, a writer of the client that gets every message too, and the
// system's event log for what the file does not take. The form of an entry is in docs/formats/error_log.md.
#pragma once

#include <cstdint>
#include <memory>

#include "foundation/daily_rollover_file.h"
#include "foundation/err_data.h"
#include "foundation/log_writer.h"
#include "platform/platform.h"
#include "runtime/text.h"

namespace zorkanca {

/// Cheap to make; the file is open only while an entry is added to it, so that several processes can share it.
/// Errors of all operations that write: internal error when the client's own writer fails; the entry is in the file
/// then. The file itself never raises anything.
class ErrorLogWriter final : public ILogWriter {
 public:
  explicit ErrorLogWriter(const Platform& platform);
  ErrorLogWriter(const ErrorLogWriter&) = delete;
  ErrorLogWriter& operator=(const ErrorLogWriter&) = delete;

  /// Folder of the log files.
  Text LogFolder() const { return platform_.environment.LogFolder(); }
  /// Path of today's file, which need not exist.
  Text fileName() const { return rollFile_.BuildCurrentName(); }

  /// The client's writer is one for the whole process: all objects of this class, on all threads, write to it.
  static bool IsStartedCustomErrorLogWriter();
  /// The client's writer; null when there is none.
  static std::shared_ptr<ILogWriter> CustomErrorLogWriter();
  /// Sends every message from now on also to this writer, in place of the one before; null is as good as
  /// `StopLoggingErrorsToCustomLog`. The writer must not use `WriteMessage` of this class itself.
  static void StartLoggingErrorsToCustomLog(std::shared_ptr<ILogWriter> writer);
  static void StopLoggingErrorsToCustomLog();

  /// Adds an entry to the file, then tells the client's writer.
  void WriteMessage(TextView message, std::int32_t eventType) override;
  /// The message behind "[function] ".
  void WriteMessageFromFunction(TextView sourceFunctionName, TextView message, std::int32_t eventType);
  /// Called inside a catch block: the error being handled as information, with the details given. Nothing outside one.
  void WriteCurrentError(TextView sourceFunctionName, TextView details);
  /// An error as an error. Errors: also `ArgumentErrorCode` for no error or a blank name.
  void WriteError(TextView sourceFunctionName, const ErrData* errorData);
  /// An error that does no harm, as information. Errors: as `WriteError`.
  void WriteIgnoredError(TextView sourceFunctionName, const ErrData* errorData);

  /// Adds an entry to the file. What it does not take goes to the event log together with the reason.
  void WriteMessageOnlyToStandardLog(TextView message, std::int32_t eventType) noexcept;
  void WriteMessageOnlyToCustomLog(TextView message, std::int32_t eventType);

 private:
  void WriteErrorAs(std::int32_t eventType, TextView sourceFunctionName, const ErrData* errorData);
  Text BuildLogText(TextView message, std::int32_t eventType) const;
  Text BuildHeader(std::int32_t eventType) const;
  void Append(TextView entry);
  void ReportUnwritten(TextView message) const;

  Platform platform_;
  DailyRolloverFile rollFile_;  // reports to this object
};

}  // namespace zorkanca
