// The event log of Linux: the system's syslog.
#pragma once

#include "platform/event_log.h"

namespace zorkanca {

/// Writes as "zorkanca", facility user: errors as LOG_ERR, warnings as LOG_WARNING, information as LOG_INFO, anything
/// else as LOG_NOTICE. The message is UTF-8, its lines end with LF.
/// Errors: none; syslog does not tell what became of an event.
class SyslogEventLog final : public EventLog {
 public:
  void Write(TextView message, std::int32_t eventType) override;
};

}  // namespace zorkanca
