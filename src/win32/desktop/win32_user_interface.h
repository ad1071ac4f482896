// Messages, file dialogs and forms in windows of the system.
#pragma once

#include <vector>

#include "platform/user_interface.h"

struct HWND__;  // a window of the system, as its headers call it

namespace zorkanca::win32 {

class FormWindow;

/// Lies over the client's windows: over the innermost form that is shown, else over the owner, else over the window
/// that is active. All of it happens in the thread that calls.
class Win32UserInterface final : public UserInterface {
 public:
  /// @param owner  a window of the client; null, and one that is gone, stand for none
  explicit Win32UserInterface(HWND__* owner = nullptr) : owner_(owner) {}

  /// A message without a title is titled "zorKancA". Where no box can be shown the answer is that of its last button.
  MessageAnswer Show(const Message& message) override;
  /// The hourglass lasts until the thread looks at its messages again.
  void SetMousePointer(MousePointer pointer) override;
  void Beep() override;
  void ProcessPendingEvents() override;
  /// Both: errors: 5 when the dialog cannot be shown.
  Text ChooseFile(const FileDialog& dialog) override;
  Text ChooseFolder(TextView title, TextView startFolder) override;
  WorkingArea GetWorkingArea() override;
  /// Errors: 5 for a form that is shown already, and where no window can be made; what the form let out of an event.
  void ShowModal(Form& form, Form* owner) override;

 private:
  HWND__* TopWindow() const;
  FormWindow* WindowOf(const Form* form) const;

  HWND__* owner_;
  std::vector<FormWindow*> windows_;  ///< each over the one before
};

}  // namespace zorkanca::win32
