// The desktop's own way to open documents.
#pragma once

#include <chrono>

#include "platform/shell.h"

namespace zorkanca {

/// Opens documents through xdg-open, which knows the program that the desktop associates with a file.
class DesktopShell final : public Shell {
 public:
  /// @param patience  how long an opener may take to report a failure; one that still runs then counts as started
  explicit DesktopShell(std::chrono::milliseconds patience = std::chrono::seconds(3)) : patience_(patience) {}

  /// Errors: 53 when the file or xdg-open is missing, 5 with the opener's reason when it fails.
  void OpenDocument(TextView path) override;

 private:
  std::chrono::milliseconds patience_;
};

}  // namespace zorkanca
