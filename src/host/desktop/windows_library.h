// The plug-in that shows windows: how it is entered, and how it is found and loaded. It is loaded only when a window is
// needed, so that programs that need none neither link nor start a library of windows.
#pragma once

#include <memory>
#include <string>

#include "platform/user_interface.h"

namespace zorkanca {

/// The plug-in's entry. Classes cross it, so both sides must come from one build.
/// @param version  the caller's version
/// @param reason   gets why there are no windows
/// @return null when there are none
extern "C" using CreateWindowsFunction = UserInterface * (const char* version, std::string& reason);
extern "C" using DestroyWindowsFunction = void(UserInterface * windows);
inline constexpr const char* kCreateWindows = "zorkanca_create_windows";
inline constexpr const char* kDestroyWindows = "zorkanca_destroy_windows";

/// Loads the plug-in, which lies beside the program or where the installation has put it, and connects to the screen.
/// Must be called, and the result be used, in one thread.
/// Errors: 5 with the reason when there is no plug-in or no screen.
std::shared_ptr<UserInterface> LoadWindows();

}  // namespace zorkanca
