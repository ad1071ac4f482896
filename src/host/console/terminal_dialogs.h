// Dialogs for a person who has a terminal but no screen: forms and file choices as numbered lines and typed answers.
#pragma once

#include "host/console/terminal.h"
#include "platform/user_interface.h"

namespace zorkanca {

class TerminalDialogs {
 public:
  explicit TerminalDialogs(const Terminal& terminal) : terminal_(terminal) {}

  /// A form with a list is a choice of one row, which stands for selecting it and pressing Enter. Any other form is a
  /// menu of its text boxes, check boxes and buttons. An empty line, and the end of input, cancel the form.
  void ShowModal(Form& form) const;
  /// Asks for a path until it is one that the dialog takes. @return the full path; empty for an empty line
  Text ChooseFile(const FileDialog& dialog) const;
  Text ChooseFolder(TextView title, TextView startFolder) const;

 private:
  bool ChooseRow(Form& form, ListBox& list) const;
  bool ChooseEntry(Form& form) const;
  void Use(Control& control) const;

  Terminal terminal_;
};

}  // namespace zorkanca
