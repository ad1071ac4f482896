#include "foundation/error_log.h"

#include "foundation/error_log_writer.h"
#include "foundation/ignore_errors.h"

namespace zorkanca {

void LogErrorWithContext(const Platform& platform, const ErrData& error, TextView context) noexcept {
  IgnoreErrors([&] {
    Text text(u"Chyba: ");
    AppendDecimal(text, error.number);
    text.append(u"; Zdroj: ").append(error.source);
    text.append(u"; Popis: ").append(error.description);
    LogMessageWithContext(platform, text, kErrorEvent, context);
  });
}

void LogMessageWithContext(const Platform& platform, TextView message, std::int32_t eventType,
                           TextView context) noexcept {
  IgnoreErrors([&] {
    Text line(context);
    if (!context.empty()) line.push_back(u'\t');
    ErrorLogWriter(platform).WriteMessage(line.append(message), eventType);
  });
}

}  // namespace zorkanca
