// Failures of the system's calls as the errors that the clients know.
#pragma once

#include <cstdint>

#include "runtime/error.h"

namespace zorkanca::win32 {

/// Raises the error that stands for a failed call: 53 (not found), 58 (exists), 61 (full), 70 (not allowed, or in use),
/// 76 (no folder), 52 (no such name can be), 7 (memory), else 57, whose description names the system's reason.
/// @param code  `GetLastError` of the call
/// @param path  ends the description: "Permission denied: C:\a.txt"; may be empty
[[noreturn]] void RaiseSystemError(std::uint32_t code, TextView path = {});
/// The error with the runtime's description and the path behind it.
[[noreturn]] void RaiseAbout(RuntimeError error, TextView path);

}  // namespace zorkanca::win32
