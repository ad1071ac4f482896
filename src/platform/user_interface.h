// What the product shows to a person and asks of one.
#pragma once

#include "runtime/text.h"

namespace zorkanca {

enum class MessageIcon { kNone = 0, kCritical = 16, kQuestion = 32, kExclamation = 48, kInformation = 64 };
enum class MessageButtons { kOk = 0, kOkCancel = 1, kYesNo = 4 };
enum class MessageAnswer { kOk = 1, kCancel = 2, kYes = 6, kNo = 7 };
enum class MousePointer { kDefault = 0, kHourglass = 11 };

/// A message box.
struct Message {
  Text text;  ///< lines end with CR LF
  Text title;
  MessageIcon icon = MessageIcon::kNone;
  MessageButtons buttons = MessageButtons::kOk;
};

class UserInterface {
 public:
  virtual ~UserInterface() = default;
  /// Shows the message and waits for the answer.
  virtual MessageAnswer Show(const Message& message) = 0;
  virtual void SetMousePointer(MousePointer pointer) = 0;
  virtual void Beep() = 0;
};

}  // namespace zorkanca
