// What the desktop does for the product.
#pragma once

#include <vector>

#include "runtime/text.h"

namespace zorkanca {

/// How programs are called on this system, and where they are installed.
struct ProgramPlaces {
  Text extension;             ///< of a program's file, "exe"; empty where programs have none
  std::vector<Text> folders;  ///< first choice first, without a separator at the end; they need not exist
};

class Shell {
 public:
  virtual ~Shell() = default;
  /// Starts the program that the system associates with the file, on that file, and does not wait for its end.
  /// Errors: 53 when the file or the program is missing, 5 when it could not be started; on a system whose own numbers
  /// people know from its messages, that number.
  virtual void OpenDocument(TextView path) = 0;
  /// Starts a program with a normal, focused window and does not wait for its end.
  /// @param commandLine  the program and its arguments, separated by blanks; '"' encloses one that holds blanks, and is
  ///                     itself written twice there
  /// Errors: 53 when the program is missing, 5 when it could not be started.
  virtual void StartCommandLine(TextView commandLine) = 0;
  /// The full path of the first file of that name in the tree below a folder; empty when there is none. Folders that
  /// cannot be read are passed over.
  virtual Text SearchTree(TextView rootFolder, TextView fileName) = 0;
  virtual ProgramPlaces Programs() = 0;
  /// True for the file of a program that this user may start.
  virtual bool IsProgram(TextView path) = 0;
  /// The path with every shortened name in full; as it is where no name was shortened.
  virtual Text LongPathName(TextView path) = 0;
  /// Empties the clipboard; nothing happens without one.
  virtual void ClearClipboard() = 0;
};

}  // namespace zorkanca
