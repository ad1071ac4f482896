// The system's log of events, where the product writes what it can tell nobody else.
#pragma once

#include <cstdint>

#include "runtime/text.h"

namespace zorkanca {

/// Kinds of events, by their numbers in the system's log.
enum EventType : std::int32_t { kErrorEvent = 1, kWarningEvent = 2, kInformationEvent = 4 };

class EventLog {
 public:
  virtual ~EventLog() = default;
  /// Writes one event.
  /// @param message    for people; lines end with CR LF
  /// @param eventType  an `EventType`; another number is written as an event of no particular kind
  /// Errors: whatever the system says, where it says anything.
  virtual void Write(TextView message, std::int32_t eventType) = 0;
};

}  // namespace zorkanca
