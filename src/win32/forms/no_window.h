// What is raised where no window can be made.
#pragma once

namespace zorkanca::win32 {

/// Errors: always 5, with the system's reason for its last failure.
[[noreturn]] void RaiseNoWindow();

}  // namespace zorkanca::win32
