#include "win32/desktop/win32_user_interface.h"

#include <algorithm>
#include <initializer_list>

#include "runtime/error.h"
#include "win32/desktop/file_dialogs.h"
#include "win32/forms/form_window.h"
#include "win32/forms/scale.h"
#include "win32/system.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

namespace {

// The numbers of icons, buttons and answers are the system's.
static_assert(static_cast<int>(MessageIcon::kCritical) == MB_ICONHAND);
static_assert(static_cast<int>(MessageIcon::kQuestion) == MB_ICONQUESTION);
static_assert(static_cast<int>(MessageIcon::kExclamation) == MB_ICONEXCLAMATION);
static_assert(static_cast<int>(MessageIcon::kInformation) == MB_ICONASTERISK);
static_assert(static_cast<int>(MessageButtons::kOkCancel) == MB_OKCANCEL);
static_assert(static_cast<int>(MessageButtons::kYesNoCancel) == MB_YESNOCANCEL);
static_assert(static_cast<int>(MessageButtons::kYesNo) == MB_YESNO);
static_assert(static_cast<int>(MessageAnswer::kOk) == IDOK && static_cast<int>(MessageAnswer::kCancel) == IDCANCEL);
static_assert(static_cast<int>(MessageAnswer::kYes) == IDYES && static_cast<int>(MessageAnswer::kNo) == IDNO);

// An answer that none of the buttons gives is that of the last one: where no box can be shown, and where Esc or the
// close button end one that only tells.
MessageAnswer AnswerOf(int pressed, MessageButtons buttons) {
  const auto among = [pressed](std::initializer_list<MessageAnswer> answers) {
    for (const MessageAnswer answer : answers) {
      if (pressed == static_cast<int>(answer)) return answer;
    }
    return *(answers.end() - 1);
  };
  switch (buttons) {
    case MessageButtons::kOk:
      return MessageAnswer::kOk;
    case MessageButtons::kOkCancel:
      return among({MessageAnswer::kOk, MessageAnswer::kCancel});
    case MessageButtons::kYesNo:
      return among({MessageAnswer::kYes, MessageAnswer::kNo});
    case MessageButtons::kYesNoCancel:
      return among({MessageAnswer::kYes, MessageAnswer::kNo, MessageAnswer::kCancel});
  }
  return MessageAnswer::kCancel;
}

}  // namespace

MessageAnswer Win32UserInterface::Show(const Message& message) {
  const Text title = message.title.empty() ? Text(u"zorKancA") : message.title;
  const auto kind = static_cast<UINT>(message.icon) | static_cast<UINT>(message.buttons);
  return AnswerOf(MessageBoxW(TopWindow(), Wide(message.text), Wide(title), kind), message.buttons);
}

void Win32UserInterface::SetMousePointer(MousePointer pointer) {
  SetCursor(LoadCursorW(nullptr, pointer == MousePointer::kHourglass ? IDC_WAIT : IDC_ARROW));
}

void Win32UserInterface::Beep() {
  MessageBeep(MB_OK);
}

// A window that always asks to be drawn again must not keep an export from going on.
void Win32UserInterface::ProcessPendingEvents() {
  constexpr int kMost = 1000;
  MSG message{};
  for (int count = 0; count < kMost && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0; ++count) {
    if (message.message == WM_QUIT) return PostQuitMessage(static_cast<int>(message.wParam));
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

Text Win32UserInterface::ChooseFile(const FileDialog& dialog) {
  return AskForFile(dialog, TopWindow());
}

Text Win32UserInterface::ChooseFolder(TextView title, TextView startFolder) {
  return AskForFolder(title, startFolder, TopWindow());
}

WorkingArea Win32UserInterface::GetWorkingArea() {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  if (GetMonitorInfoW(MonitorFromPoint({.x = 0, .y = 0}, MONITOR_DEFAULTTOPRIMARY), &monitor) == 0) {
    throw Error(static_cast<std::int32_t>(GetLastError()), {}, u"the system tells of no screen");
  }
  const RECT& area = monitor.rcWork;
  const float twipsPerPixel = Scale().twipsPerPixel();
  return {.left = static_cast<float>(area.left),
          .top = static_cast<float>(area.top),
          .width = static_cast<float>(area.right - area.left),
          .height = static_cast<float>(area.bottom - area.top),
          .twipsPerPixelX = twipsPerPixel,
          .twipsPerPixelY = twipsPerPixel};
}

void Win32UserInterface::ShowModal(Form& form, Form* owner) {
  if (WindowOf(&form) != nullptr) Raise(RuntimeError::kInvalidCall, u"the dialog is shown already");
  const FormWindow* below = owner != nullptr ? WindowOf(owner) : nullptr;
  FormWindow window(form, below != nullptr ? below->window() : TopWindow());
  form.Show();
  windows_.push_back(&window);
  const auto leave = [this] {
    windows_.pop_back();
    if (!windows_.empty() && windows_.back()->form().visible()) windows_.back()->CameToFront();
  };
  try {
    window.Run();
  } catch (...) {
    leave();
    throw;
  }
  leave();
}

HWND Win32UserInterface::TopWindow() const {
  if (!windows_.empty() && windows_.back()->window() != nullptr) return windows_.back()->window();
  return owner_ != nullptr && IsWindow(owner_) != 0 ? owner_ : GetActiveWindow();
}

FormWindow* Win32UserInterface::WindowOf(const Form* form) const {
  const auto window =
      std::find_if(windows_.begin(), windows_.end(), [form](const FormWindow* each) { return &each->form() == form; });
  return window == windows_.end() ? nullptr : *window;
}

}  // namespace zorkanca::win32
