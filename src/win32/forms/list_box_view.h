// A list of rows on the screen, of which one may be selected.
#pragma once

#include "win32/forms/control_view.h"

namespace zorkanca::win32 {

class ListBoxView final : public ControlView {
 public:
  ListBoxView(ListBox& box, HWND parent, const Scale& scale);

  void RefreshRows() override;
  void Notified(WORD code) override;

 protected:
  void RefreshContent() override;

 private:
  int SelectedRow() const { return static_cast<int>(Send(LB_GETCURSEL)); }
  bool PointsAtSelectedRow() const;

  ListBox& box_;
};

}  // namespace zorkanca::win32
