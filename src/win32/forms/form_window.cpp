// The window is one of the system's class for dialogs, which brings the look, the ground and the way in which helping
// programs see it, but none of the system's resources and none of its modal loops: Enter, Esc and the end of the dialog
// are the form's. The loop looks after each message whether the form is still to be seen; what hides the form from
// inside a message that the loop never gets to see (one sent by another thread) therefore posts one more.
#include "win32/forms/form_window.h"

#include <algorithm>

#include "platform/tab_order.h"
#include "win32/forms/disabled_windows.h"
#include "win32/forms/no_window.h"
#include "win32/forms/window_text.h"

namespace zorkanca::win32 {

namespace {

std::optional<KeyCode> CodeOf(WPARAM key) {
  switch (key) {
    case VK_RETURN:
      return KeyCode::kEnter;
    case VK_ESCAPE:
      return KeyCode::kEscape;
    case VK_F5:
      return KeyCode::kF5;
    default:
      return std::nullopt;
  }
}

bool IsDown(int key) {
  return GetKeyState(key) < 0;
}

DWORD StyleOf(const Form& form) {
  const DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
  return form.sizable() ? style | WS_THICKFRAME | WS_MAXIMIZEBOX : style;
}

DWORD ExtendedStyleOf(const Form& form) {
  switch (form.borderStyle()) {
    case BorderStyle::kFixedDialog:
      return WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME;
    case BorderStyle::kFixedToolWindow:
    case BorderStyle::kSizableToolWindow:
      return WS_EX_CONTROLPARENT | WS_EX_TOOLWINDOW;
    case BorderStyle::kFixedSingle:
    case BorderStyle::kSizable:
      return WS_EX_CONTROLPARENT;
  }
  return WS_EX_CONTROLPARENT;
}

// Where a form that was never placed comes into the middle of.
RECT AreaAround(HWND owner) {
  RECT area{};
  if (owner != nullptr && IsWindowVisible(owner) != 0 && IsIconic(owner) == 0 && GetWindowRect(owner, &area) != 0) {
    return area;
  }
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
  return area;
}

WindowState StateOf(HWND window) {
  if (IsIconic(window) != 0) return WindowState::kMinimized;
  return IsZoomed(window) != 0 ? WindowState::kMaximized : WindowState::kNormal;
}

int CommandFor(WindowState state) {
  switch (state) {
    case WindowState::kNormal:
      return SW_RESTORE;
    case WindowState::kMinimized:
      return SW_MINIMIZE;
    case WindowState::kMaximized:
      return SW_MAXIMIZE;
  }
  return SW_RESTORE;
}

}  // namespace

FormWindow::FormWindow(Form& form, HWND owner) : form_(form), owner_(owner) {
  window_ = CreateWindowExW(ExtendedStyleOf(form), reinterpret_cast<const wchar_t*>(WC_DIALOG), L"", StyleOf(form), 0,
                            0, 0, 0, owner, nullptr, nullptr, nullptr);
  if (window_ == nullptr) RaiseNoWindow();
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
  form_.SetView(this);
}

FormWindow::~FormWindow() {
  form_.SetView(nullptr);
  if (window_ == nullptr) return;
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  DestroyWindow(window_);
}

// In the tab order, by which the system walks, and by which a label's access key goes to the control after it.
void FormWindow::MakeViews() {
  std::vector<Control*> order = InTabOrder(form_);
  for (Control* control : form_.controls()) {
    if (!control->tabIndex()) order.push_back(control);
  }
  const Control* before = nullptr;
  for (Control* control : order) {
    // The arrow keys walk between buttons that follow each other, and nowhere else.
    const bool follows =
        dynamic_cast<const Button*>(control) != nullptr && dynamic_cast<const Button*>(before) != nullptr;
    views_.push_back(MakeControlView(*control, window_, scale_, !follows));
    SetWindowPos(views_.back()->window(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    before = control;
  }
}

// Takes caption, place and window state over from the form.
void FormWindow::Place() {
  ShowText(window_, form_.caption().empty() ? Text(u"zorKancA") : form_.caption());
  const bool changesState = reporting_ && StateOf(window_) != form_.windowState();
  if (changesState) ShowWindow(window_, CommandFor(form_.windowState()));
  if (StateOf(window_) != WindowState::kNormal) return;
  const RECT place = OuterPlace();
  SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

// The form's bounds are those of the window with its frame; one that a person cannot resize has always its own size.
RECT FormWindow::OuterPlace() const {
  RECT place = scale_.ToPixels(form_.bounds());
  if (!form_.placed() || !form_.sizable()) {
    const SIZE size = DesignSize();
    place.right = place.left + size.cx;
    place.bottom = place.top + size.cy;
  }
  if (!form_.placed()) {
    const RECT area = AreaAround(owner_);
    OffsetRect(&place, (area.left + area.right - place.right - place.left) / 2 - place.left,
               (area.top + area.bottom - place.bottom - place.top) / 2 - place.top);
    OffsetRect(&place, 0, std::max(0L, -place.top));  // the caption can be reached
  }
  return place;
}

SIZE FormWindow::DesignSize() const {
  RECT frame = scale_.ToPixels({.width = form_.designWidth(), .height = form_.designHeight()});
  AdjustWindowRectEx(&frame, StyleOf(form_), FALSE, ExtendedStyleOf(form_));
  return {.cx = frame.right - frame.left, .cy = frame.bottom - frame.top};
}

void FormWindow::Run() {
  RunEvent([this] { MakeViews(); });
  if (!failure_ && window_ != nullptr) {
    const DisabledWindows others(window_, owner_);
    Appear();
    RunEvent([this] { form_.Activate(); });
    FocusActiveControl();
    while (form_.visible() && !failure_ && TakeMessage()) {
    }
    reporting_ = false;
  }
  form_.Hide();
  if (window_ != nullptr) ShowWindow(window_, SW_HIDE);
  if (failure_) std::rethrow_exception(failure_);
}

void FormWindow::Appear() {
  Place();
  if (form_.windowState() == WindowState::kNormal) {
    // By this way the window is shown even where the client was started hidden.
    SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW);
  } else {
    ShowWindow(window_, CommandFor(form_.windowState()));
  }
  SetForegroundWindow(window_);
  reporting_ = true;
  ReportPlace();
}

// @return false when the program is to end
bool FormWindow::TakeMessage() {
  MSG message{};
  const BOOL got = GetMessageW(&message, nullptr, 0, 0);
  if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));  // for the client's own loop
  if (got == 0 || got == -1) return false;
  if (!PassKey(message) && IsDialogMessageW(window_, &message) == 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return true;
}

void FormWindow::CameToFront() {
  SetActiveWindow(window_);
  RunEvent([this] { form_.Activate(); });
}

void FormWindow::RunEvent(const std::function<void()>& body) {
  try {
    body();
  } catch (...) {
    if (!failure_) failure_ = std::current_exception();
    Hidden();
  }
}

// The form hears of a released key only when it was pressed here: Enter that closed another window ends there. Enter
// and Esc go no further: the system would take them for its own answers of a dialog.
bool FormWindow::PassKey(const MSG& message) {
  const bool pressed = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
  const bool released = message.message == WM_KEYUP || message.message == WM_SYSKEYUP;
  const std::optional<KeyCode> code = pressed || released ? CodeOf(message.wParam) : std::nullopt;
  if (!code || (message.hwnd != window_ && IsChild(window_, message.hwnd) == 0)) return false;
  const bool modified = IsDown(VK_SHIFT) || IsDown(VK_CONTROL) || IsDown(VK_MENU);
  const KeyStroke key{.code = *code, .withModifiers = modified};
  if (released) {
    if (pressed_.erase(*code) > 0 && form_.visible()) RunEvent([&] { form_.ReleaseKey(key); });
    return false;
  }
  constexpr LPARAM kRepeated = LPARAM{1} << 30;
  if ((message.lParam & kRepeated) != 0) return true;
  pressed_.insert(*code);
  return PressKey(key) || *code != KeyCode::kF5;
}

// @return whether the key was used up
bool FormWindow::PressKey(const KeyStroke& key) {
  bool used = false;
  RunEvent([&] {
    used = form_.PressKey(key);
    auto* button = dynamic_cast<Button*>(form_.activeControl());
    if (used || button == nullptr || key.code != KeyCode::kEnter || key.withModifiers || !form_.visible()) return;
    button->Click();
  });
  return used || !form_.visible();
}

LRESULT CALLBACK FormWindow::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  auto* self = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  const std::optional<LRESULT> answer = self == nullptr ? std::nullopt : self->Answer(message, first, second);
  return answer ? *answer : DefDlgProcW(window, message, first, second);
}

std::optional<LRESULT> FormWindow::Answer(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_COMMAND:
      Notified(reinterpret_cast<HWND>(second), HIWORD(first));
      return 0;
    case WM_CLOSE:
      RunEvent([this] { form_.Close(); });
      return 0;
    case WM_ACTIVATE:
      // The system would bring the focus back to where it was, while the form may have moved it meanwhile.
      LOWORD(first) == WA_INACTIVE ? pressed_.clear() : FocusActiveControl();
      return 0;
    case WM_SETFOCUS:
      FocusActiveControl();
      return 0;
    case WM_MOVE:
    case WM_SIZE:
      ReportPlace();
      return std::nullopt;
    case WM_GETMINMAXINFO: {
      const SIZE design = DesignSize();
      POINT& least = reinterpret_cast<MINMAXINFO*>(second)->ptMinTrackSize;
      least = {.x = std::max(least.x, design.cx), .y = std::max(least.y, design.cy)};
      return 0;
    }
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORSTATIC: {
      const ControlView* view = ViewOf(reinterpret_cast<HWND>(second));
      HBRUSH ground = view == nullptr ? nullptr : view->Ground(reinterpret_cast<HDC>(first));
      return ground == nullptr ? std::nullopt : std::optional(reinterpret_cast<LRESULT>(ground));
    }
    case WM_NCDESTROY:
      Lost();
      return std::nullopt;
    default:
      return std::nullopt;
  }
}

void FormWindow::Notified(HWND window, WORD code) {
  ControlView* view = ViewOf(window);
  if (view == nullptr) return;
  if (code == view->focusCode()) form_.PersonFocused(view->control());
  RunEvent([&] { view->Notified(code); });
}

// Somebody else has ended the window.
void FormWindow::Lost() {
  window_ = nullptr;
  form_.SetView(nullptr);
  form_.Hide();
  Hidden();
}

void FormWindow::ReportPlace() {
  if (!reporting_) return;
  RECT outer{};
  RECT inner{};
  GetWindowRect(window_, &outer);
  GetClientRect(window_, &inner);
  const Bounds area = scale_.ToTwips(inner);
  RunEvent([&] { form_.PersonResized(scale_.ToTwips(outer), StateOf(window_), area.width, area.height); });
}

void FormWindow::FocusActiveControl() {
  const Control* active = form_.activeControl();
  const ControlView* view = active == nullptr ? nullptr : ViewOf(*active);
  if (view != nullptr && GetFocus() != view->window()) SetFocus(view->window());
}

ControlView* FormWindow::ViewOf(const Control& control) const {
  const auto view =
      std::find_if(views_.begin(), views_.end(), [&control](const auto& each) { return &each->control() == &control; });
  return view == views_.end() ? nullptr : view->get();
}

ControlView* FormWindow::ViewOf(HWND window) const {
  const auto view =
      std::find_if(views_.begin(), views_.end(), [window](const auto& each) { return each->window() == window; });
  return view == views_.end() ? nullptr : view->get();
}

void FormWindow::ControlChanged(Control& control) {
  if (ControlView* view = ViewOf(control)) view->Refresh();
}

void FormWindow::RowsChanged(ListBox& list) {
  if (ControlView* view = ViewOf(list)) view->RefreshRows();
}

void FormWindow::FocusMoved(Control&) {
  if (GetActiveWindow() == window_) FocusActiveControl();
}

void FormWindow::FormChanged() {
  Place();
}

void FormWindow::Hidden() {
  PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

}  // namespace zorkanca::win32
