// What a person at a terminal sees of a running export, and what scripts read of it: the events of cZorOffice.
#pragma once

#include <atomic>
#include <chrono>
#include <string>

#include "export/zor_office_events.h"

namespace zorkanca::cli {

class ProgressDisplay final : public ZorOfficeEvents {
 public:
  /// @param eventLines  write every event as a line on standard error
  /// @param bar         draw a bar, when standard error is a terminal
  /// @param states      show there what the export waits for, too
  /// @param interrupted once true, the next event cancels the export
  ProgressDisplay(bool eventLines, bool bar, bool states, const std::atomic<bool>& interrupted);
  ~ProgressDisplay() override;

  void ExportState(ExportStateValue state, TextView DefaultMessage) override;
  void PercentDone(float Percent, bool& Cancel) override;

 private:
  using Clock = std::chrono::steady_clock;

  void DrawBar(float percent);
  void Erase();

  bool eventLines_;
  bool bar_;
  bool states_;
  bool colours_;
  const std::atomic<bool>& interrupted_;
  Clock::time_point start_ = Clock::now();
  Clock::time_point lastDrawn_;
  bool drawn_ = false;
};

}  // namespace zorkanca::cli
