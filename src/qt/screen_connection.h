// Whether a screen can be reached. The library of windows ends the program when it cannot connect to one, so it must be
// known before it starts.
#pragma once

#include <string>

namespace zorkanca {

/// @return the name of the window system to start the library of windows with; empty when none can be reached
std::string ReachableWindowSystem();

}  // namespace zorkanca
