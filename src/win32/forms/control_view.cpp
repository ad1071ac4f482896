#include "win32/forms/control_view.h"

#include <algorithm>
#include <utility>

#include "platform/forms.h"
#include "platform/tab_order.h"
#include "win32/forms/arrow_icon.h"
#include "win32/forms/list_box_view.h"
#include "win32/forms/no_window.h"
#include "win32/forms/text_box_view.h"
#include "win32/forms/window_text.h"

namespace zorkanca::win32 {

namespace {

class LabelView final : public ControlView {
 public:
  LabelView(Label& label, HWND parent, const Scale& scale)
      : ControlView(label, parent, scale, {.windowClass = L"STATIC", .style = StyleOf(label, scale)}),
        namesOther_(NamedBy(label) != nullptr) {}

 protected:
  void RefreshContent() override {
    ShowText(window(), namesOther_ ? control().caption() : WithoutAccessKey(control().caption()));
  }

 private:
  // Without a control to go to, the mark of the access key would be shown.
  static DWORD StyleOf(const Label& label, const Scale& scale) {
    const RECT place = scale.ToPixels(label.bounds());
    const bool oneLine = place.bottom - place.top < 2 * scale.lineHeight();
    const DWORD style = oneLine ? SS_LEFTNOWORDWRAP : SS_LEFT;
    return NamedBy(label) != nullptr ? style : style | SS_NOPREFIX;
  }

  bool namesOther_;
};

// With BS_NOTIFY, which tells of the focus, the second click of a quick pair is told by a code of its own.
bool IsClick(WORD code) {
  return code == BN_CLICKED || code == BN_DBLCLK;
}

class ButtonView final : public ControlView {
 public:
  ButtonView(Button& button, HWND parent, const Scale& scale)
      : ControlView(
            button, parent, scale,
            {.windowClass = L"BUTTON", .style = StyleOf(button) | WS_TABSTOP | BS_NOTIFY, .focusCode = BN_SETFOCUS}),
        button_(button) {}

  void Notified(WORD code) override {
    if (IsClick(code)) button_.Click();
  }

 protected:
  void RefreshContent() override {
    if (button_.image() == ButtonImage::kNone) return ShowText(window(), button_.caption());
    if (std::exchange(shownImage_, button_.image()) == button_.image()) return;
    ArrowIcon icon(button_.image(), scale().lineHeight());
    Send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.handle()));
    icon_ = std::move(icon);
    const bool up = button_.image() == ButtonImage::kEnabledUp || button_.image() == ButtonImage::kDisabledUp;
    ShowText(window(), up ? u"Nahoru" : u"Dolů");  // for who cannot see the picture
  }

 private:
  static DWORD StyleOf(const Button& button) {
    if (button.image() != ButtonImage::kNone) return BS_PUSHBUTTON | BS_ICON;
    return button.isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
  }

  Button& button_;
  ButtonImage shownImage_ = ButtonImage::kNone;
  ArrowIcon icon_;
};

// The box's state is the control's alone: the window does not tick itself.
class CheckBoxView final : public ControlView {
 public:
  CheckBoxView(CheckBox& box, HWND parent, const Scale& scale)
      : ControlView(
            box, parent, scale,
            {.windowClass = L"BUTTON", .style = BS_CHECKBOX | WS_TABSTOP | BS_NOTIFY, .focusCode = BN_SETFOCUS}),
        box_(box) {}

  void Notified(WORD code) override {
    if (IsClick(code)) box_.Click();
  }

 protected:
  void RefreshContent() override {
    ShowText(window(), box_.caption());
    Send(BM_SETCHECK, box_.checked() ? BST_CHECKED : BST_UNCHECKED);
  }

 private:
  CheckBox& box_;
};

DWORD StyleOf(const Control& control, const WindowKind& kind) {
  const bool stops = control.tabIndex() && control.tabStop();
  return WS_CHILD | (stops ? kind.style : kind.style & ~static_cast<DWORD>(WS_TABSTOP));
}

int NumberOf(const Control& control) {
  const std::vector<Control*>& all = control.form().controls();
  return kFirstControlNumber + static_cast<int>(std::find(all.begin(), all.end(), &control) - all.begin());
}

}  // namespace

ControlView::ControlView(Control& control, HWND parent, const Scale& scale, const WindowKind& kind)
    : control_(control),
      scale_(scale),
      focusCode_(kind.focusCode),
      window_(CreateWindowExW(kind.extendedStyle, kind.windowClass, L"", StyleOf(control, kind), 0, 0, 0, 0, parent,
                              reinterpret_cast<HMENU>(static_cast<INT_PTR>(NumberOf(control))), nullptr, nullptr)) {
  if (window_ == nullptr) RaiseNoWindow();
  Send(WM_SETFONT, reinterpret_cast<WPARAM>(scale.font()), FALSE);
}

void ControlView::Refresh() {
  const RECT place = scale_.ToPixels(control_.bounds());
  SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
  EnableWindow(window_, control_.enabled() ? TRUE : FALSE);
  ShowWindow(window_, control_.visible() ? SW_SHOWNA : SW_HIDE);
  if (std::exchange(shownGround_, control_.backColor()) != control_.backColor()) {
    InvalidateRect(window_, nullptr, TRUE);
  }
  RefreshContent();
}

HBRUSH ControlView::Ground(HDC canvas) const {
  if (control_.backColor() != BackColor::kDisabled) return nullptr;
  SetBkColor(canvas, GetSysColor(COLOR_BTNFACE));
  return GetSysColorBrush(COLOR_BTNFACE);
}

std::unique_ptr<ControlView> MakeControlView(Control& control, HWND parent, const Scale& scale, bool opensGroup) {
  std::unique_ptr<ControlView> view;
  if (auto* button = dynamic_cast<Button*>(&control)) {
    view = std::make_unique<ButtonView>(*button, parent, scale);
  } else if (auto* check = dynamic_cast<CheckBox*>(&control)) {
    view = std::make_unique<CheckBoxView>(*check, parent, scale);
  } else if (auto* text = dynamic_cast<TextBox*>(&control)) {
    view = std::make_unique<TextBoxView>(*text, parent, scale);
  } else if (auto* list = dynamic_cast<ListBox*>(&control)) {
    view = std::make_unique<ListBoxView>(*list, parent, scale);
  } else {
    view = std::make_unique<LabelView>(dynamic_cast<Label&>(control), parent, scale);
  }
  if (opensGroup) {
    const LONG_PTR style = GetWindowLongPtrW(view->window(), GWL_STYLE);
    SetWindowLongPtrW(view->window(), GWL_STYLE, style | WS_GROUP);
  }
  view->RefreshRows();
  view->Refresh();
  return view;
}

}  // namespace zorkanca::win32
