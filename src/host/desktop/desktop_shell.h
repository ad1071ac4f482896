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
  void StartCommandLine(TextView commandLine) override;
  Text SearchTree(TextView rootFolder, TextView fileName) override;
  /// The folders of $PATH, then those where the packages of office suites put theirs.
  ProgramPlaces Programs() override;
  bool IsProgram(TextView path) override;
  /// The path itself: names are never shortened here.
  Text LongPathName(TextView path) override { return Text(path); }
  /// Has no effect: our programs put nothing on the clipboard.
  void ClearClipboard() override {}

 private:
  std::chrono::milliseconds patience_;
};

}  // namespace zorkanca
