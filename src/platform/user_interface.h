// What the product shows to a person and asks of one.
#pragma once

#include "platform/forms.h"
#include "runtime/text.h"

namespace zorkanca {

enum class MessageIcon { kNone = 0, kCritical = 16, kQuestion = 32, kExclamation = 48, kInformation = 64 };
enum class MessageButtons { kOk = 0, kOkCancel = 1, kYesNoCancel = 3, kYesNo = 4 };
enum class MessageAnswer { kOk = 1, kCancel = 2, kYes = 6, kNo = 7 };
enum class MousePointer { kDefault = 0, kHourglass = 11 };

/// A message box.
struct Message {
  Text text{};  ///< lines end with CR LF
  Text title{};
  MessageIcon icon = MessageIcon::kNone;
  MessageButtons buttons = MessageButtons::kOk;
};

/// A dialog that asks for an existing file.
struct FileDialog {
  Text title{};             ///< empty: the dialog's own
  Text filter{};            ///< "name|pattern|name|pattern…", patterns separated by ";"
  Text folder{};            ///< where the dialog starts; empty: the current folder
  Text fileName{};          ///< what it starts with, with or without a folder
  Text defaultExtension{};  ///< ".exe", for a name typed without an extension
  bool fileMustExist = false;
};

/// The part of the primary screen that no task bar covers, in pixels.
struct WorkingArea {
  float left = 0;
  float top = 0;
  float width = 0;
  float height = 0;
  float twipsPerPixelX = 15;
  float twipsPerPixelY = 15;
};

class UserInterface {
 public:
  virtual ~UserInterface() = default;
  /// Shows the message and waits for the answer.
  virtual MessageAnswer Show(const Message& message) = 0;
  virtual void SetMousePointer(MousePointer pointer) = 0;
  virtual void Beep() = 0;
  /// Lets the system do what waits for this program, for example draw its windows, before a long step begins.
  virtual void ProcessPendingEvents() = 0;
  /// @return the full path of the chosen file; empty when the person cancelled
  virtual Text ChooseFile(const FileDialog& dialog) = 0;
  /// @param startFolder  need not exist
  /// @return the chosen folder; empty when the person cancelled
  virtual Text ChooseFolder(TextView title, TextView startFolder) = 0;
  /// Errors: any number, with the system's reason, when there is no screen to ask.
  virtual WorkingArea GetWorkingArea() = 0;
  /// Loads and shows the form, over its owner if there is one, and comes back once it is hidden or unloaded.
  /// Errors: 5 with the reason when no form can be shown here.
  virtual void ShowModal(Form& form, Form* owner) = 0;
};

}  // namespace zorkanca
