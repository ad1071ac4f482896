// A form in a window of the desktop: the form lays out and behaves, the window draws and reports.
#pragma once

#include <QDialog>
#include <QEventLoop>
#include <exception>
#include <memory>
#include <set>
#include <vector>

#include "platform/forms.h"
#include "qt/control_view.h"

namespace zorkanca {

/// Shows one form from its making to its end. Neither the form nor its controls may go away meanwhile.
class FormWindow final : public QDialog, private FormView {
 public:
  /// @param owner  the window that it lies over, or null
  FormWindow(Form& form, QWidget* owner);
  ~FormWindow() override;

  Form& form() const { return form_; }

  /// Shows the window and comes back when its form is hidden.
  /// Errors: what the form let out of an event; the form is hidden then.
  void Run();
  /// A form that lay over this one is gone.
  void CameToFront();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool event(QEvent* event) override;
  /// Enter and Esc belong to the form.
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  /// Esc and the like must not hide the window behind the form's back.
  void reject() override {}

 private:
  void ControlChanged(Control& control) override;
  void RowsChanged(ListBox& list) override;
  void FocusMoved(Control& control) override;
  void FormChanged() override;
  void Hidden() override;

  void MakeViews();
  void Place();
  void RunEvent(const std::function<void()>& body);
  bool PassKey(const QKeyEvent& event, bool pressed);
  bool PressFocusedButton(const KeyStroke& key);
  void ReportPlace();
  ControlView* ViewOf(const Control& control) const;

  Form& form_;
  std::vector<std::unique_ptr<ControlView>> views_;
  std::set<KeyCode> pressed_;
  QEventLoop loop_;
  std::exception_ptr failure_;
  bool reporting_ = false;
};

}  // namespace zorkanca
