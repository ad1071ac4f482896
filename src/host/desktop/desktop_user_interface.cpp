#include "host/desktop/desktop_user_interface.h"

#include <utility>

#include "runtime/error.h"

namespace zorkanca {

namespace {

// Counts a window as open while it lives.
class Opened {
 public:
  explicit Opened(int& count) : count_(count) { ++count_; }
  ~Opened() { --count_; }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;

 private:
  int& count_;
};

}  // namespace

DesktopUserInterface::DesktopUserInterface(Settings settings)
    : settings_(std::move(settings)),
      console_(settings_.answers, settings_.terminal),
      terminalDialogs_(settings_.terminal) {}

MessageAnswer DesktopUserInterface::Show(const Message& message) {
  const bool settled = settings_.answers != Answers::kAsk && message.buttons != MessageButtons::kOk;
  return openWindows_ > 0 && !settled ? windows_->Show(message) : console_.Show(message);
}

void DesktopUserInterface::SetMousePointer(MousePointer pointer) {
  if (windows_) windows_->SetMousePointer(pointer);
}

void DesktopUserInterface::Beep() {
  if (openWindows_ > 0) return windows_->Beep();
  console_.Beep();
}

Text DesktopUserInterface::ChooseFile(const FileDialog& dialog) {
  UserInterface* windows = Windows();
  if (windows == nullptr) return OnTerminal().ChooseFile(dialog);
  const Opened opened(openWindows_);
  return windows->ChooseFile(dialog);
}

Text DesktopUserInterface::ChooseFolder(TextView title, TextView startFolder) {
  UserInterface* windows = Windows();
  if (windows == nullptr) return OnTerminal().ChooseFolder(title, startFolder);
  const Opened opened(openWindows_);
  return windows->ChooseFolder(title, startFolder);
}

WorkingArea DesktopUserInterface::GetWorkingArea() {
  if (UserInterface* windows = Windows()) return windows->GetWorkingArea();
  OnTerminal();
  constexpr float kBeyondScreens = 1e6f;
  return {.left = -kBeyondScreens, .top = -kBeyondScreens, .width = 2 * kBeyondScreens, .height = 2 * kBeyondScreens};
}

void DesktopUserInterface::ShowModal(Form& form, Form* owner) {
  UserInterface* windows = Windows();
  if (windows == nullptr) return OnTerminal().ShowModal(form);
  const Opened opened(openWindows_);
  windows->ShowModal(form, owner);
}

UserInterface* DesktopUserInterface::Windows() {
  if (WindowsOpener open = std::exchange(settings_.openWindows, nullptr)) {
    try {
      windows_ = open();
    } catch (const Error& error) {
      reasonForNone_ = error.description();
    }
  }
  return windows_.get();
}

const TerminalDialogs& DesktopUserInterface::OnTerminal() const {
  if (settings_.terminal.Interactive()) return terminalDialogs_;
  Text text = u"there is neither a screen nor a terminal to ask on";
  if (!settings_.insteadOfDialogs.empty()) text += u"; use " + settings_.insteadOfDialogs + u" instead";
  if (!reasonForNone_.empty()) text += u" (" + reasonForNone_ + u")";
  Raise(RuntimeError::kInvalidCall, text);
}

}  // namespace zorkanca
