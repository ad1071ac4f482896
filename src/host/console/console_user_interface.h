// Messages and questions of a program that runs in a console.
#pragma once

#include "host/console/terminal.h"
#include "platform/user_interface.h"

namespace zorkanca {

/// Shows messages as lines "TITLE: TEXT" and takes answers as typed words.
class ConsoleUserInterface final : public UserInterface {
 public:
  /// Who answers questions: the person at the terminal, or always the same answer (OK and Cancel as yes and no).
  enum class Answers { kAsk, kYes, kNo };

  /// Without a terminal on both sides nobody can be asked; the answer is then no.
  explicit ConsoleUserInterface(Answers answers, const Terminal& terminal = Terminal())
      : answers_(answers), terminal_(terminal) {}

  /// Asks "[a/n] " until the line is one of a, ano, y, yes or n, ne, no, in any case; the end of input is a no.
  MessageAnswer Show(const Message& message) override;
  /// Has no effect: the pointer belongs to the terminal, which shows none for a waiting program.
  void SetMousePointer(MousePointer) override {}
  /// Nothing waits: a console draws by itself.
  void ProcessPendingEvents() override {}
  /// Sounds a terminal's bell; a file gets no bell character.
  void Beep() override;
  /// Errors of the rest: 5, for a console has no windows and no screen.
  Text ChooseFile(const FileDialog& dialog) override;
  Text ChooseFolder(TextView title, TextView startFolder) override;
  WorkingArea GetWorkingArea() override;
  void ShowModal(Form& form, Form* owner) override;

 private:
  bool IsYes();
  bool AskForYes();

  Answers answers_;
  Terminal terminal_;
};

}  // namespace zorkanca
