// What a program of the command line shows to a person and asks of one: messages on the terminal, dialogs in windows
// where there is a screen, else on the terminal.
#pragma once

#include <functional>
#include <memory>

#include "host/console/console_user_interface.h"
#include "host/console/terminal_dialogs.h"

namespace zorkanca {

class DesktopUserInterface final : public UserInterface {
 public:
  using Answers = ConsoleUserInterface::Answers;
  /// Opens the windows of the screen. Errors: 5 with the reason when there are none.
  using WindowsOpener = std::function<std::shared_ptr<UserInterface>()>;

  struct Settings {
    Answers answers = Answers::kAsk;
    /// Called when the first window is needed; null where there is no screen.
    WindowsOpener openWindows{};
    /// What takes a choice in place of a dialog, named where no dialog can be shown: "--template".
    Text insteadOfDialogs{};
    Terminal terminal{};
  };
  explicit DesktopUserInterface(Settings settings);

  /// On the terminal as `ConsoleUserInterface` does; while a window of ours is open, a message box over it. Questions
  /// with a settled answer never open a box.
  MessageAnswer Show(const Message& message) override;
  void SetMousePointer(MousePointer pointer) override;
  void Beep() override;
  /// Nothing waits: while an export works, no window of ours is open.
  void ProcessPendingEvents() override {}
  /// Errors of the dialogs: 5 when there is neither a screen nor a terminal; the description names what to use instead.
  Text ChooseFile(const FileDialog& dialog) override;
  Text ChooseFolder(TextView title, TextView startFolder) override;
  /// On a terminal without bounds, so that what is kept of a screen's windows stays as it is.
  WorkingArea GetWorkingArea() override;
  void ShowModal(Form& form, Form* owner) override;

 private:
  UserInterface* Windows();
  const TerminalDialogs& OnTerminal() const;

  Settings settings_;
  ConsoleUserInterface console_;
  TerminalDialogs terminalDialogs_;
  std::shared_ptr<UserInterface> windows_;
  Text reasonForNone_;
  int openWindows_ = 0;
};

}  // namespace zorkanca
