// What is raised where no window can be made.
#pragma once

#include "runtime/error.h"
#include "win32/system.h"
#include "win32/system_message.h"

namespace zorkanca::win32 {

/// Errors: always 5, with the system's reason for its last failure.
[[noreturn]] inline void RaiseNoWindow() {
  const DWORD failure = GetLastError();
  Text reason = u"no window can be shown here";
  if (failure != ERROR_SUCCESS) reason.append(u": ").append(SystemMessage(failure));
  Raise(RuntimeError::kInvalidCall, reason);
}

}  // namespace zorkanca::win32
