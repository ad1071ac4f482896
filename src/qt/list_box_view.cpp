#include "qt/list_box_view.h"

#include <QSignalBlocker>

#include "qt/qt_text.h"

namespace zorkanca {

ListBoxView::ListBoxView(ListBox& box, QWidget& window, const EventRunner& run)
    : ListBoxView(box, *new QListWidget(&window), run) {}

ListBoxView::ListBoxView(ListBox& box, QListWidget& list, const EventRunner& run)
    : ControlView(box, list), box_(box), list_(list) {
  list_.setUniformItemSizes(true);
  QObject::connect(&list_, &QListWidget::itemSelectionChanged,
                   [this, run] { run([this] { box_.SelectRow(SelectedRow()); }); });
  QObject::connect(&list_, &QListWidget::itemDoubleClicked,
                   [this, run](QListWidgetItem* item) { run([&] { box_.DoubleClick(list_.row(item)); }); });
}

void ListBoxView::RefreshRows() {
  const QSignalBlocker quiet(list_);
  list_.clear();
  const QSize roomy(0, list_.fontMetrics().lineSpacing() * 3 / 2);  // no width: long rows end in an ellipsis
  for (const Text& row : box_.rows()) {
    auto* item = new QListWidgetItem(ToQt(row), &list_);
    item->setSizeHint(roomy);
  }
  RefreshContent();
}

void ListBoxView::RefreshContent() {
  const int row = box_.selectedRow();
  if (row == SelectedRow() || row >= list_.count()) return;
  const QSignalBlocker quiet(list_);
  list_.setCurrentRow(row);
  if (row < 0) return list_.clearSelection();
  list_.scrollToItem(list_.item(row));
}

// The row with the cursor need not be selected: a list that gets the focus puts its cursor on the first one.
int ListBoxView::SelectedRow() const {
  const QList<QListWidgetItem*> selected = list_.selectedItems();
  return selected.isEmpty() ? -1 : list_.row(selected.first());
}

}  // namespace zorkanca
