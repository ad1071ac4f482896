// Failures of system calls as the errors that the clients know.
#pragma once

#include <string>

#include "runtime/error.h"

namespace zorkanca {

/// Raises the error that stands for a failed system call: 53 (not found), 58 (exists), 61 (full), 70 (not allowed), 75
/// (a folder), 76 (no folder), 52 (name too long), 7 (memory), else 57, whose description names the system's reason.
/// @param code  errno of the call
[[noreturn]] void RaiseSystemError(int code);
/// The same for a call on a file, whose path ends the description: "Permission denied: /etc/passwd".
[[noreturn]] void RaiseSystemError(int code, const std::string& path);
/// The error with the runtime's description and the path behind it.
[[noreturn]] void RaiseAbout(RuntimeError error, const std::string& path);

/// The same for a call on a path: a missing file in an existing folder is 53, a missing folder 76.
[[noreturn]] void RaisePathError(int code, const std::string& path);

}  // namespace zorkanca
