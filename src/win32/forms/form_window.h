// A form in a window of the system: the form lays out and behaves, the window draws and reports.
#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "platform/forms.h"
#include "win32/forms/control_view.h"
#include "win32/forms/scale.h"
#include "win32/system.h"

namespace zorkanca::win32 {

/// Shows one form from its making to its end. Neither the form nor its controls may go away meanwhile.
class FormWindow final : private FormView {
 public:
  /// Makes the window, out of sight. The form need not be loaded yet.
  /// @param owner  the window that it lies over, or null
  /// Errors: 5 with the system's reason when there can be no window.
  FormWindow(Form& form, HWND owner);
  ~FormWindow() override;
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  Form& form() const { return form_; }
  /// Null once the system has taken the window away, for example with its owner.
  HWND window() const { return window_; }

  /// Shows the window and comes back when its form, which is shown already, is hidden.
  /// Errors: what the form let out of an event, and those of the making; the form is hidden then.
  void Run();
  /// A form that lay over this one is gone.
  void CameToFront();

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
  /// Nothing for a message that a dialog of the system answers.
  std::optional<LRESULT> Answer(UINT message, WPARAM first, LPARAM second);

  void ControlChanged(Control& control) override;
  void RowsChanged(ListBox& list) override;
  void FocusMoved(Control& control) override;
  void FormChanged() override;
  void Hidden() override;

  void MakeViews();
  void Place();
  RECT OuterPlace() const;
  SIZE DesignSize() const;
  void Appear();
  bool TakeMessage();
  void RunEvent(const std::function<void()>& body);
  bool PassKey(const MSG& message);
  bool PressKey(const KeyStroke& key);
  void Notified(HWND window, WORD code);
  void FocusActiveControl();
  void ReportPlace();
  void Lost();
  ControlView* ViewOf(const Control& control) const;
  ControlView* ViewOf(HWND window) const;

  Form& form_;
  HWND owner_;
  Scale scale_;
  std::vector<std::unique_ptr<ControlView>> views_;
  std::set<KeyCode> pressed_;
  std::exception_ptr failure_;
  bool reporting_ = false;
  HWND window_ = nullptr;
};

}  // namespace zorkanca::win32
