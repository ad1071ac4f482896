// The widgets that show the controls of a form. Each draws its control and passes on what the person does with it.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "platform/form_controls.h"

namespace zorkanca {

/// Runs what a person set off; nothing that it raises may pass through the library of windows.
using EventRunner = std::function<void(const std::function<void()>& body)>;

/// One control in a window. The widget belongs to the window.
class ControlView {
 public:
  ControlView(Control& control, QWidget& widget);
  virtual ~ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  Control& control() const { return control_; }
  QWidget& widget() const { return widget_; }

  /// Draws the control's present state.
  void Refresh();
  /// Draws the rows of a list.
  virtual void RefreshRows() {}
  /// After the window has made all its views: `named` is the widget that a label's access key goes to, or null.
  virtual void SetNamed(QWidget*) {}

 protected:
  /// What is special to this kind of control.
  virtual void RefreshContent() = 0;

 private:
  void RefreshBackground();

  Control& control_;
  QWidget& widget_;
};

/// The view of a control, hidden until its window is shown.
std::unique_ptr<ControlView> MakeControlView(Control& control, QWidget& window, const EventRunner& run);

}  // namespace zorkanca
