#include "win32/forms/disabled_windows.h"

#include <algorithm>

namespace zorkanca::win32 {

DisabledWindows::DisabledWindows(HWND dialog, HWND owner) {
  EnumThreadWindows(GetCurrentThreadId(), Collect, reinterpret_cast<LPARAM>(&windows_));
  if (HWND top = GetAncestor(owner, GA_ROOT)) {
    if (std::find(windows_.begin(), windows_.end(), top) == windows_.end()) windows_.push_back(top);
  }
  std::erase_if(windows_, [dialog](HWND window) { return window == dialog || IsWindowEnabled(window) == 0; });
  for (HWND window : windows_) EnableWindow(window, FALSE);
}

DisabledWindows::~DisabledWindows() {
  for (HWND window : windows_) EnableWindow(window, TRUE);
}

BOOL CALLBACK DisabledWindows::Collect(HWND window, LPARAM windows) {
  if (IsWindowVisible(window) != 0) reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
  return TRUE;
}

}  // namespace zorkanca::win32
