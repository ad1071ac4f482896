// The way into the system's event log for the library's operations.
#pragma once

#include <cstdint>

#include "platform/event_log.h"
#include "runtime/text.h"

namespace zorkanca {

class WindowsAppLog {
 public:
  explicit WindowsAppLog(EventLog& eventLog) : eventLog_(eventLog) {}

  /// Errors: internal error when the system refuses the event.
  void WriteEvent(TextView message, std::int32_t eventType) const;

 private:
  EventLog& eventLog_;
};

}  // namespace zorkanca
