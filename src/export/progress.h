// The progress arithmetic that every record loop shares: which thresholds PercentDone reports, and when.
#pragma once

#include <cstdint>

#include "export/export_context.h"

namespace zorkanca {

class Progress {
 public:
  /// @param recordCount  number of records of the loop, at least 1
  Progress(const ExportContext& context, std::int32_t recordCount);

  /// Call after each record was written. Reports the threshold that was reached, at most one event a record; a
  /// threshold equal to the percentage stays and is reported again by the next record.
  /// Errors: stops the export when the handler cancels.
  void RecordDone();

  /// Call once after the last record: reports 100, whose cancel is not looked at.
  void Finish() const;

 private:
  void AdvanceThreshold(float percent);

  const ExportContext& context_;
  std::int32_t recordCount_;
  std::int32_t recordNumber_ = 1;
  float threshold_;
};

}  // namespace zorkanca
