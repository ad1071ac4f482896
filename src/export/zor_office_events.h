// The events of cZorOffice. They are raised on the caller's thread, from inside the running method.
#pragma once

#include "export/export_types.h"
#include "runtime/text.h"

namespace zorkanca {

class ZorOfficeEvents {
 public:
  virtual ~ZorOfficeEvents() = default;
  /// An export begins or ends to wait for an application.
  /// @param DefaultMessage  a Czech text that may be shown to the user
  virtual void ExportState(ExportStateValue state, TextView DefaultMessage) = 0;
  /// A share of the records was written.
  /// @param Percent  0 to 100
  /// @param Cancel   set to true, it stops the export before the next record; not looked at after the last 100
  virtual void PercentDone(float Percent, bool& Cancel) = 0;
};

}  // namespace zorkanca
