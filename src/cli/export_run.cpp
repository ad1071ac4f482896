#include "cli/export_run.h"

#include <cstdio>

#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

void OfficeEvents::ExportState(ExportStateValue state, TextView DefaultMessage) {
  const bool failed = state == ExportStateValue::esStill && !DefaultMessage.starts_with(u"Dokončeno");
  if (failed) failures_.emplace_back(DefaultMessage);
  display_.ExportState(state, DefaultMessage);
}

ExportRun::ExportRun(const CommandContext& context, const Platform& platform, const QueryOptions& options,
                     bool showsStates, bool strict)
    : context_(context), strict_(strict), events_(context, showsStates), office_(platform) {
  office_.Advise(&events_);
  office_.Listen(&events_);
  office_.Prefer(PreferencesOf(options, strict));
  office_.PercentInterval(options.step);
  office_.Multiplier(FromUtf8(options.multiplier));
  office_.BlankRecordsBefore(options.blankRecords);
}

void ExportRun::RequireNoWarnings() const {
  if (!strict_ || !context_.report.HasWarnings()) return;
  Raise(RuntimeError::kInvalidCall, u"Nothing is written: with --strict there must be no warning");
}

int ExportRun::StatusOf(bool done, const char* operation) const {
  if (done) return kDone;
  for (const Text& failure : events_.failures()) {
    context_.report.statusLine().Erase();
    std::fprintf(stderr, "%s: %s\n", operation, ToUtf8(failure).c_str());
  }
  return context_.interrupted ? kInterrupted : kFailed;
}

}  // namespace zorkanca::cli
