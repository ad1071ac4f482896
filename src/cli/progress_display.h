// What a person at a terminal sees of a running export, and what scripts read of it: the events of cZorOffice.
#pragma once

#include <chrono>

#include "cli/command_line.h"
#include "export/zor_office_events.h"

namespace zorkanca::cli {

class ProgressDisplay final : public ZorOfficeEvents {
 public:
  /// @param states  on a terminal, show what the export waits for, too
  ProgressDisplay(const CommandContext& context, bool states);

  void ExportState(ExportStateValue state, TextView DefaultMessage) override;
  void PercentDone(float Percent, bool& Cancel) override;

 private:
  using Clock = std::chrono::steady_clock;

  bool DrawsNow(float percent, Clock::time_point now) const;
  void DrawBar(float percent);

  const CommandContext& context_;
  bool eventLines_;
  bool bar_;
  bool states_;
  bool colours_;
  Clock::time_point start_ = Clock::now();
  Clock::time_point lastDrawn_ = start_;
};

}  // namespace zorkanca::cli
