// A text box on the screen. The widget edits; its control decides which of the typed characters stay.
#pragma once

#include <QLineEdit>

#include "qt/control_view.h"

namespace zorkanca {

class TextBoxView final : public ControlView {
 public:
  TextBoxView(TextBox& box, QWidget& window, const EventRunner& run);

 protected:
  void RefreshContent() override;

 private:
  TextBoxView(TextBox& box, QLineEdit& line, const EventRunner& run);
  void PersonEdited();

  TextBox& box_;
  QLineEdit& line_;
  EventRunner run_;
  bool selectionShown_ = false;
  std::unique_ptr<QObject> focusWatcher_;
};

}  // namespace zorkanca
