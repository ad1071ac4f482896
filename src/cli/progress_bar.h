// A bar with rate and time left, kept on the one line of a terminal that a command draws anew.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "cli/command_line.h"
#include "cli/status_line.h"

namespace zorkanca::cli {

/// True when standard error is a terminal that knows colours and they are wanted; the other: when a bar is.
bool ShowsColours();
bool ShowsProgress(const GlobalOptions& options);

class ProgressBar {
 public:
  /// @param line  outlives the bar
  ProgressBar(const GlobalOptions& options, StatusLine& line);

  /// Draws, when it is time to. A job that is done before anybody looks shows nothing.
  /// @param label  what is being done, where it is not the export itself; another label starts another count
  void Draw(double percent, std::string_view label = {});

 private:
  using Clock = std::chrono::steady_clock;

  bool DrawsNow(double percent, Clock::time_point now) const;

  StatusLine& line_;
  bool shown_;
  bool always_;
  bool colours_;
  std::string label_;
  Clock::time_point created_ = Clock::now();
  Clock::time_point start_ = created_;  // of what the label says
  Clock::time_point lastDrawn_ = created_;
};

}  // namespace zorkanca::cli
