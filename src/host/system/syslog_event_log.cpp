#include "host/system/syslog_event_log.h"

#include <syslog.h>

#include <string>

#include "runtime/utf8.h"

namespace zorkanca {

namespace {

int PriorityOf(std::int32_t eventType) {
  switch (eventType) {
    case kErrorEvent:
      return LOG_ERR;
    case kWarningEvent:
      return LOG_WARNING;
    case kInformationEvent:
      return LOG_INFO;
    default:
      return LOG_NOTICE;
  }
}

}  // namespace

void SyslogEventLog::Write(TextView message, std::int32_t eventType) {
  const std::string text = ToUtf8(Replace(message, kCrLf, u"\n"));
  // Opened for one event only: the connection belongs to the whole process, which may be a client's that logs itself.
  openlog("zorkanca", LOG_PID, LOG_USER);
  syslog(PriorityOf(eventType), "%s", text.c_str());
  closelog();
}

}  // namespace zorkanca
