// The programs that the desktop associates with files.
#pragma once

#include "platform/platform.h"
#include "runtime/text.h"

namespace zorkanca {

/// Stateless.
class WindowsShellApi {
 public:
  /// Opens a file or a folder with its associated program and does not wait for its end. A failure is shown to the user
  /// with the number of the desktop's error; nothing is raised.
  /// @return true when it was opened
  static bool OpenInApplication(const Platform& platform, TextView fileName);
};

}  // namespace zorkanca
