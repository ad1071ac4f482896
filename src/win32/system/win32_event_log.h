// The event log of Windows.
#pragma once

#include "platform/event_log.h"

namespace zorkanca::win32 {

/// Writes as the source "zorKancA". A message longer than the system takes is cut.
class Win32EventLog final : public EventLog {
 public:
  void Write(TextView message, std::int32_t eventType) override;
};

}  // namespace zorkanca::win32
