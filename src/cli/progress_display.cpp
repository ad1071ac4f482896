#include "cli/progress_display.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>

#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

constexpr int kBarWidth = 30;
constexpr std::chrono::milliseconds kRedrawInterval(100);
constexpr std::chrono::milliseconds kQuietTime(500);

bool IsSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value && *value;
}

bool IsDumbTerminal() {
  const char* terminal = std::getenv("TERM");
  return terminal && std::string_view(terminal) == "dumb";
}

bool ShowsProgress(const GlobalOptions& options) {
  if (options.quiet || options.progress == "never") return false;
  return options.progress == "always" || (isatty(STDERR_FILENO) == 1 && !IsDumbTerminal());
}

std::string ShortestDecimal(float number) {
  char digits[32];
  const auto end = std::to_chars(digits, digits + sizeof digits, number);
  return std::string(digits, end.ptr);
}

std::string TimeLeft(double seconds) {
  const auto whole = static_cast<long>(std::min(seconds, 359999.0));
  char text[32];
  if (whole >= 3600) {
    std::snprintf(text, sizeof text, "%ld:%02ld:%02ld", whole / 3600, whole / 60 % 60, whole % 60);
  } else {
    std::snprintf(text, sizeof text, "%ld:%02ld", whole / 60, whole % 60);
  }
  return text;
}

}  // namespace

ProgressDisplay::ProgressDisplay(const CommandContext& context, bool states)
    : context_(context),
      eventLines_(context.options.events),
      bar_(!eventLines_ && ShowsProgress(context.options)),
      states_(states && bar_ && isatty(STDERR_FILENO) == 1),
      colours_(isatty(STDERR_FILENO) == 1 && !IsSet("NO_COLOR") && !IsDumbTerminal()) {}

void ProgressDisplay::ExportState(ExportStateValue state, TextView DefaultMessage) {
  const std::string message = ToUtf8(DefaultMessage);
  if (eventLines_) std::fprintf(stderr, "ExportState %d %s\n", static_cast<int>(state), message.c_str());
  if (!states_) return;
  context_.report.statusLine().Erase();
  std::fprintf(stderr, "%s\n", message.c_str());
}

void ProgressDisplay::PercentDone(float Percent, bool& Cancel) {
  if (context_.interrupted) Cancel = true;
  if (eventLines_) std::fprintf(stderr, "PercentDone %s\n", ShortestDecimal(Percent).c_str());
  if (bar_ && DrawsNow(Percent, Clock::now())) DrawBar(Percent);
}

// A job that is done before anybody looks shows nothing.
bool ProgressDisplay::DrawsNow(float percent, Clock::time_point now) const {
  const bool always = context_.options.progress == "always";
  if (!always && now - start_ < kQuietTime) return false;
  return lastDrawn_ == start_ || percent >= 100 || now - lastDrawn_ >= kRedrawInterval;
}

void ProgressDisplay::DrawBar(float percent) {
  lastDrawn_ = Clock::now();
  const double seconds = std::chrono::duration<double>(lastDrawn_ - start_).count();
  const double rate = seconds > 0 ? percent / seconds : 0;
  const int filled = std::clamp(static_cast<int>(percent / 100 * kBarWidth), 0, kBarWidth);
  std::string line = colours_ ? "\x1b[32m" : "";
  line.append(static_cast<std::size_t>(filled), '#');
  if (colours_) line += "\x1b[0m";
  line.append(static_cast<std::size_t>(kBarWidth - filled), '.');
  char figures[64];
  std::snprintf(figures, sizeof figures, " %5.1f %%  %.1f %%/s", static_cast<double>(percent), rate);
  line += figures;
  if (rate > 0) line += "  " + TimeLeft((100 - percent) / rate) + " left";
  context_.report.statusLine().Draw(line);
}

}  // namespace zorkanca::cli
