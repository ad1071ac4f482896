// Forms, messages and file dialogs in windows of the desktop.
#pragma once

#include <QApplication>
#include <QTranslator>
#include <memory>
#include <string>
#include <vector>

#include "platform/user_interface.h"
#include "qt/czech_texts.h"
#include "qt/form_window.h"

namespace zorkanca {

/// Owns the application object of the library of windows, unless the program has one already.
class WindowsUserInterface final : public UserInterface {
 public:
  /// @param windowSystem  as `ReachableWindowSystem` names it
  explicit WindowsUserInterface(std::string windowSystem);
  ~WindowsUserInterface() override;

  MessageAnswer Show(const Message& message) override;
  void SetMousePointer(MousePointer pointer) override;
  void Beep() override;
  /// Nothing is done: windows that are open while an export works wait for its end.
  void ProcessPendingEvents() override {}
  Text ChooseFile(const FileDialog& dialog) override;
  Text ChooseFolder(TextView title, TextView startFolder) override;
  WorkingArea GetWorkingArea() override;
  /// Errors: 5 for a form that is shown already; what the form let out of an event.
  void ShowModal(Form& form, Form* owner) override;

 private:
  QWidget* TopWindow() const;
  FormWindow* WindowOf(const Form* form) const;

  std::string program_ = "zorkanca";
  std::string option_ = "-platform";
  std::string windowSystem_;
  int argumentCount_ = 3;
  char* arguments_[4];
  std::unique_ptr<QApplication> application_;
  CzechTexts czechTexts_;
  QTranslator translator_;
  std::vector<FormWindow*> windows_;  ///< each over the one before
  bool waiting_ = false;
};

}  // namespace zorkanca
