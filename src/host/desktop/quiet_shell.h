// The desktop of a user who wants to see nothing, or has no display.
#pragma once

#include "platform/shell.h"

namespace zorkanca {

/// Opens nothing: the user said so with --no-open, or there is no display to open anything on.
class QuietShell final : public Shell {
 public:
  /// @param shell  does everything else; outlives this object
  explicit QuietShell(Shell& shell) : shell_(shell) {}

  void OpenDocument(TextView) override {}
  void StartCommandLine(TextView commandLine) override { shell_.StartCommandLine(commandLine); }
  Text SearchTree(TextView rootFolder, TextView fileName) override { return shell_.SearchTree(rootFolder, fileName); }
  ProgramPlaces Programs() override { return shell_.Programs(); }
  bool IsProgram(TextView path) override { return shell_.IsProgram(path); }
  Text LongPathName(TextView path) override { return shell_.LongPathName(path); }
  void ClearClipboard() override { shell_.ClearClipboard(); }

 private:
  Shell& shell_;
};

}  // namespace zorkanca
