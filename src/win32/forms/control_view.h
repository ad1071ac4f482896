// The windows that show the controls of a form. Each draws its control and passes on what the person does with it.
#pragma once

#include <memory>

#include "platform/form_controls.h"
#include "win32/forms/scale.h"
#include "win32/system.h"

namespace zorkanca::win32 {

/// The number of a control's window is this and the control's position in its form, so that none is taken for the
/// system's own answers of a dialog.
inline constexpr int kFirstControlNumber = 100;

/// What a window of a control is made of.
struct WindowKind {
  const wchar_t* windowClass = L"";
  DWORD style = 0;
  DWORD extendedStyle = 0;
  WORD focusCode = 0;  ///< by which the window tells that it has got the focus; 0 for one that never does
};

/// One control in a window. Its own window belongs to that one and ends with it.
class ControlView {
 public:
  /// Errors: 5 with the system's reason when there can be no window.
  ControlView(Control& control, HWND parent, const Scale& scale, const WindowKind& kind);
  virtual ~ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  Control& control() const { return control_; }
  HWND window() const { return window_; }
  WORD focusCode() const { return focusCode_; }

  /// Draws the control's present state.
  void Refresh();
  /// Draws the rows of a list.
  virtual void RefreshRows() {}
  /// The window tells by its code that the person has done something.
  /// Errors: what the form lets out of its handlers.
  virtual void Notified(WORD) {}
  /// The brush, and in `canvas` the colour, for the ground below the control's text. Null: the system's own.
  HBRUSH Ground(HDC canvas) const;

 protected:
  const Scale& scale() const { return scale_; }
  LRESULT Send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
    return SendMessageW(window_, message, first, second);
  }
  /// What is special to this kind of control.
  virtual void RefreshContent() = 0;

 private:
  Control& control_;
  const Scale& scale_;
  WORD focusCode_;
  HWND window_;
  BackColor shownGround_ = BackColor::kDefault;
};

/// The view of a control in its present state.
/// @param opensGroup  the arrow keys do not come here from the control before
std::unique_ptr<ControlView> MakeControlView(Control& control, HWND parent, const Scale& scale, bool opensGroup);

}  // namespace zorkanca::win32
