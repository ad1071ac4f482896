// Logging in one line, for code that has nothing to do with the log but a failure to leave there.
#pragma once

#include <cstdint>

#include "foundation/err_data.h"
#include "platform/platform.h"
#include "runtime/text.h"

namespace zorkanca {

/// Writes "Chyba: number; Zdroj: source; Popis: description" as an error, as `LogMessageWithContext` does. Inside a
/// catch block the error is `ErrData()`.
void LogErrorWithContext(const Platform& platform, const ErrData& error, TextView context) noexcept;

/// Writes a message to the error log; failures of the log are ignored.
/// @param eventType  an `EventType`
/// @param context    where it happened, put before the message with a TAB; empty adds nothing
void LogMessageWithContext(const Platform& platform, TextView message, std::int32_t eventType,
                           TextView context) noexcept;

}  // namespace zorkanca
