#include "export/progress.h"

#include "export/export_failure.h"

namespace zorkanca {

namespace {

// A step that is no positive number would never reach the next percentage: such a client gets the default step.
float UsableInterval(float interval) {
  return interval > 0 ? interval : 1.0f;
}

}  // namespace

Progress::Progress(const ExportContext& context, std::int32_t recordCount)
    : context_(context), recordCount_(recordCount), threshold_(UsableInterval(context.percentInterval)) {}

void Progress::RecordDone() {
  const auto percent = static_cast<float>(static_cast<double>(recordNumber_) / recordCount_ * 100);
  ++recordNumber_;
  if (!(percent >= threshold_)) return;
  if (context_.RaisePercentDone(threshold_)) StopExport(kCancelledByUser);
  AdvanceThreshold(percent);
}

void Progress::Finish() const {
  context_.RaisePercentDone(100);
}

void Progress::AdvanceThreshold(float percent) {
  const float interval = UsableInterval(context_.percentInterval);  // the client's handler may have changed it
  while (threshold_ < percent) {
    const float next = threshold_ + interval;
    // A step too small for the precision of the threshold would add nothing, for ever.
    threshold_ = next > threshold_ ? next : percent;
  }
  if (threshold_ > 100) threshold_ = 100;
}

}  // namespace zorkanca
