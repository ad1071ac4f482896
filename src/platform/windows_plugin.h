// How the plug-in that shows windows is entered: what it and whoever loads it agree on.
#pragma once

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

}  // namespace zorkanca
