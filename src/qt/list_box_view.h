// A list of rows on the screen, of which one may be selected.
#pragma once

#include <QListWidget>

#include "qt/control_view.h"

namespace zorkanca {

class ListBoxView final : public ControlView {
 public:
  ListBoxView(ListBox& box, QWidget& window, const EventRunner& run);

  void RefreshRows() override;

 protected:
  void RefreshContent() override;

 private:
  ListBoxView(ListBox& box, QListWidget& list, const EventRunner& run);
  int SelectedRow() const;

  ListBox& box_;
  QListWidget& list_;
};

}  // namespace zorkanca
