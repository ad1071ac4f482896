#include "cli/progress_display.h"

#include <unistd.h>

#include <charconv>
#include <cstdio>

#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

std::string ShortestDecimal(float number) {
  char digits[32];
  const auto end = std::to_chars(digits, digits + sizeof digits, number);
  return std::string(digits, end.ptr);
}

}  // namespace

ProgressDisplay::ProgressDisplay(const CommandContext& context, bool states)
    : context_(context),
      eventLines_(context.options.events),
      bar_(context.options, context.report.statusLine()),
      states_(states && ShowsProgress(context.options) && isatty(STDERR_FILENO) == 1) {}

void ProgressDisplay::ExportState(ExportStateValue state, TextView DefaultMessage) {
  const std::string message = ToUtf8(DefaultMessage);
  if (eventLines_) std::fprintf(stderr, "ExportState %d %s\n", static_cast<int>(state), message.c_str());
  if (!states_) return;
  context_.report.statusLine().Erase();
  std::fprintf(stderr, "%s\n", message.c_str());
}

void ProgressDisplay::PercentDone(float Percent, bool& Cancel) {
  if (context_.interrupted) Cancel = true;
  if (context_.report.leavesOutPercent()) return;
  if (eventLines_) std::fprintf(stderr, "PercentDone %s\n", ShortestDecimal(Percent).c_str());
  bar_.Draw(static_cast<double>(Percent));
}

}  // namespace zorkanca::cli
