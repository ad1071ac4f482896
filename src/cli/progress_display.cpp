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

ProgressDisplay::ProgressDisplay(bool eventLines, bool bar, bool states, const std::atomic<bool>& interrupted)
    : eventLines_(eventLines),
      bar_(bar && !eventLines && isatty(STDERR_FILENO) == 1),
      states_(states),
      interrupted_(interrupted) {
  const char* noColour = std::getenv("NO_COLOR");
  colours_ = !noColour || !*noColour;
}

ProgressDisplay::~ProgressDisplay() {
  Erase();
}

void ProgressDisplay::ExportState(ExportStateValue state, TextView DefaultMessage) {
  const std::string message = ToUtf8(DefaultMessage);
  if (eventLines_) std::fprintf(stderr, "ExportState %d %s\n", static_cast<int>(state), message.c_str());
  if (!bar_ || !states_) return;
  Erase();
  std::fprintf(stderr, "%s\n", message.c_str());
}

void ProgressDisplay::PercentDone(float Percent, bool& Cancel) {
  if (interrupted_) Cancel = true;
  if (eventLines_) std::fprintf(stderr, "PercentDone %s\n", ShortestDecimal(Percent).c_str());
  if (bar_) DrawBar(Percent);
}

void ProgressDisplay::DrawBar(float percent) {
  const Clock::time_point now = Clock::now();
  if (drawn_ && percent < 100 && now - lastDrawn_ < kRedrawInterval) return;
  lastDrawn_ = now;
  drawn_ = true;

  const double seconds = std::chrono::duration<double>(now - start_).count();
  const double rate = seconds > 0 ? percent / seconds : 0;
  const int filled = std::clamp(static_cast<int>(percent / 100 * kBarWidth), 0, kBarWidth);
  std::string line = colours_ ? "\r\x1b[32m" : "\r";
  line.append(static_cast<std::size_t>(filled), '#');
  if (colours_) line += "\x1b[0m";
  line.append(static_cast<std::size_t>(kBarWidth - filled), '.');
  char figures[64];
  std::snprintf(figures, sizeof figures, " %5.1f %%  %.1f %%/s", static_cast<double>(percent), rate);
  line += figures;
  if (rate > 0) line += "  " + TimeLeft((100 - percent) / rate) + " left";
  // The cursor goes back to the start, so that a message covers the bar.
  std::fprintf(stderr, "%s\x1b[K\r", line.c_str());
}

void ProgressDisplay::Erase() {
  if (!drawn_) return;
  drawn_ = false;
  std::fputs("\r\x1b[K", stderr);
}

}  // namespace zorkanca::cli
