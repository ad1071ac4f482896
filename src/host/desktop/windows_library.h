// The plug-in that shows windows, found and loaded. It is loaded only when a window is needed, so that programs that
// need none neither link nor start a library of windows.
#pragma once

#include <memory>

#include "platform/user_interface.h"
#include "runtime/text.h"

namespace zorkanca {

/// Path of the plug-in. Errors: 5 when it is not installed.
Text WindowsLibraryPath();

/// Loads the plug-in, which lies beside the program or where the installation has put it, and connects to the screen.
/// Must be called, and the result be used, in one thread.
/// Errors: 5 with the reason when there is no plug-in or no screen.
std::shared_ptr<UserInterface> LoadWindows();

}  // namespace zorkanca
