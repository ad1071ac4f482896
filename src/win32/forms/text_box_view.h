// A text box on the screen. The window edits; its control decides which of the typed characters stay.
#pragma once

#include "win32/forms/control_view.h"

namespace zorkanca::win32 {

class TextBoxView final : public ControlView {
 public:
  TextBoxView(TextBox& box, HWND parent, const Scale& scale);

  void Notified(WORD code) override;

 protected:
  void RefreshContent() override;

 private:
  void PersonEdited();

  TextBox& box_;
  bool selectionShown_ = false;
  bool showing_ = false;  // the text comes from the control, not from the person
};

}  // namespace zorkanca::win32
