#include "cli/progress_bar.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

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

bool ShowsColours() {
  return isatty(STDERR_FILENO) == 1 && !IsSet("NO_COLOR") && !IsDumbTerminal();
}

bool ShowsProgress(const GlobalOptions& options) {
  if (options.events || options.quiet || options.progress == "never") return false;
  return options.progress == "always" || (isatty(STDERR_FILENO) == 1 && !IsDumbTerminal());
}

ProgressBar::ProgressBar(const GlobalOptions& options, StatusLine& line)
    : line_(line), shown_(ShowsProgress(options)), always_(options.progress == "always"), colours_(ShowsColours()) {}

bool ProgressBar::DrawsNow(double percent, Clock::time_point now) const {
  if (!always_ && now - created_ < kQuietTime) return false;
  return lastDrawn_ == created_ || percent >= 100 || now - lastDrawn_ >= kRedrawInterval;
}

void ProgressBar::Draw(double percent, std::string_view label) {
  if (!shown_) return;
  const Clock::time_point now = Clock::now();
  if (label != label_) {
    label_ = label;
    start_ = now;
    lastDrawn_ = created_;  // is shown at once
  }
  if (!DrawsNow(percent, now)) return;
  lastDrawn_ = now;
  const double seconds = std::chrono::duration<double>(now - start_).count();
  const double rate = seconds > 0 ? percent / seconds : 0;
  const int filled = std::clamp(static_cast<int>(percent / 100 * kBarWidth), 0, kBarWidth);
  std::string text = colours_ ? "\x1b[32m" : "";
  text.append(static_cast<std::size_t>(filled), '#');
  if (colours_) text += "\x1b[0m";
  text.append(static_cast<std::size_t>(kBarWidth - filled), '.');
  char figures[64];
  std::snprintf(figures, sizeof figures, " %5.1f %%  %.1f %%/s", percent, rate);
  text += figures;
  if (rate > 0) text += "  " + TimeLeft((100 - percent) / rate) + " left";
  if (!label_.empty()) text += "  " + label_;
  line_.Draw(text);
}

}  // namespace zorkanca::cli
