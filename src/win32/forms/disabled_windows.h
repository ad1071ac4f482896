// While a dialog is shown, nothing else of its thread may be used.
#pragma once

#include <vector>

#include "win32/system.h"

namespace zorkanca::win32 {

/// Disables the other windows of this thread, and the owner even if it is another thread's, for its own life.
class DisabledWindows {
 public:
  DisabledWindows(HWND dialog, HWND owner);
  ~DisabledWindows();
  DisabledWindows(const DisabledWindows&) = delete;
  DisabledWindows& operator=(const DisabledWindows&) = delete;

 private:
  static BOOL CALLBACK Collect(HWND window, LPARAM windows);

  std::vector<HWND> windows_;  // that were enabled
};

}  // namespace zorkanca::win32
