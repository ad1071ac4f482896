// What a person at a terminal sees of a running export, and what scripts read of it: the events of cZorOffice.
#pragma once

#include "cli/command_line.h"
#include "cli/progress_bar.h"
#include "export/zor_office_events.h"

namespace zorkanca::cli {

class ProgressDisplay final : public ZorOfficeEvents {
 public:
  /// @param states  on a terminal, show what the export waits for, too
  ProgressDisplay(const CommandContext& context, bool states);

  void ExportState(ExportStateValue state, TextView DefaultMessage) override;
  void PercentDone(float Percent, bool& Cancel) override;

 private:
  const CommandContext& context_;
  bool eventLines_;
  ProgressBar bar_;
  bool states_;
};

}  // namespace zorkanca::cli
