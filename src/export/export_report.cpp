#include "export/export_report.h"

#include <utility>

#include "foundation/error_log_writer.h"
#include "foundation/ignore_errors.h"

namespace zorkanca {

void ExportReport::Warn(const Text& text) {
  if (told_.insert(text).second && listener_) listener_->Warning(text);
}

void ExportReport::EndOperation(TextView operation, bool done) {
  told_.clear();
  const std::int64_t records = std::exchange(records_, 0);
  if (done && listener_) listener_->Written(records);
  for (const Error& cause : std::exchange(causes_, {})) {
    Log(operation, cause);
    if (listener_) listener_->Cause(cause);
  }
}

void ExportReport::Log(TextView operation, const Error& cause) const {
  ErrData data;
  data.number = cause.number();
  data.description = cause.description();
  data.source = cause.source();
  // A log that cannot be written is no reason to fail what has ended already.
  IgnoreErrors([&] { ErrorLogWriter(platform_).WriteError(Text(u"cZorOffice.").append(operation), &data); });
}

}  // namespace zorkanca
