// The error being handled, told in the way of automation.
#pragma once

#include "runtime/text.h"
#include "win32/system.h"

namespace zorkanca::com {

/// Called in a catch block: hands number, source and description to the client, who gets them with the failed call.
/// @param interfaceId  whose member failed
/// @param className    the source of an error that names none: "zorKancA.<className>"
/// Returns what the member returns: 0x800Annnn for a number of the runtime, a negative number itself.
HRESULT ReportErrorBeingHandled(REFIID interfaceId, TextView className) noexcept;

}  // namespace zorkanca::com
