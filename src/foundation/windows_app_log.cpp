#include "foundation/windows_app_log.h"

#include "foundation/argument_details.h"
#include "foundation/guarded.h"

namespace zorkanca {

void WindowsAppLog::WriteEvent(TextView message, std::int32_t eventType) const {
  Guarded(u"WindowsApplicationLog.WriteEvent", ArgumentDetails({{u"message", message}}),
          [&] { eventLog_.Write(message, eventType); });
}

}  // namespace zorkanca
