// What the shell of Windows does for the product.
#pragma once

#include "platform/shell.h"

namespace zorkanca::win32 {

class Win32Shell final : public Shell {
 public:
  /// Errors: the shell's own number, from 0 to 32: 2 for a missing file, 31 when no program opens such files.
  void OpenDocument(TextView path) override;
  void StartCommandLine(TextView commandLine) override;
  Text SearchTree(TextView rootFolder, TextView fileName) override;
  ProgramPlaces Programs() override;
  /// By its extension: .exe, .com, .bat, .cmd.
  bool IsProgram(TextView path) override;
  Text LongPathName(TextView path) override;
  void ClearClipboard() override;
};

}  // namespace zorkanca::win32
