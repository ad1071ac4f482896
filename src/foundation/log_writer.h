// Who takes messages for a log: our own ErrorLogWriter, or a writer of the client.
#pragma once

#include <cstdint>

#include "runtime/text.h"

namespace zorkanca {

class ILogWriter {
 public:
  virtual ~ILogWriter() = default;
  /// @param message    lines are separated by CR LF
  /// @param eventType  an `EventType` (platform/event_log.h); any other number is a message of no known type
  virtual void WriteMessage(TextView message, std::int32_t eventType) = 0;
};

}  // namespace zorkanca
