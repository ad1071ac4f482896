#include "qt/text_box_view.h"

#include <QEvent>
#include <QTimer>
#include <limits>

#include "platform/text_edit.h"
#include "qt/qt_text.h"

namespace zorkanca {

namespace {

// A text that is to be replaced by typing stays marked when a click, which would set the cursor, brings the person to
// it.
class FocusWatcher final : public QObject {
 public:
  FocusWatcher(const TextBox& box, QLineEdit& line) : box_(box), line_(line) { line.installEventFilter(this); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::FocusIn && box_.allSelected()) {
      QTimer::singleShot(0, &line_, [&line = line_] { line.selectAll(); });
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  const TextBox& box_;
  QLineEdit& line_;
};

}  // namespace

TextBoxView::TextBoxView(TextBox& box, QWidget& window, const EventRunner& run)
    : TextBoxView(box, *new QLineEdit(&window), run) {}

TextBoxView::TextBoxView(TextBox& box, QLineEdit& line, const EventRunner& run)
    : ControlView(box, line), box_(box), line_(line), run_(run) {
  focusWatcher_ = std::make_unique<FocusWatcher>(box, line);
  line_.setMaxLength(std::numeric_limits<int>::max());
  QObject::connect(&line_, &QLineEdit::textEdited, [this] { PersonEdited(); });
}

void TextBoxView::RefreshContent() {
  // A text that is there already keeps its cursor and what can be undone.
  const QString text = ToQt(box_.text());
  if (line_.text() != text) line_.setText(text);
  if (box_.allSelected() && !selectionShown_) line_.selectAll();
  selectionShown_ = box_.allSelected();
}

void TextBoxView::PersonEdited() {
  const Text after = FromQt(line_.text());
  int cursor = line_.cursorPosition();
  const TextEdit edit = EditBetween(box_.text(), after, static_cast<std::size_t>(cursor));
  Text accepted;
  run_([&] { accepted = box_.Type(edit.inserted, edit.start, edit.removed); });
  Refresh();
  if (accepted.size() != edit.inserted.size()) cursor = static_cast<int>(edit.start + accepted.size());
  if (line_.cursorPosition() != cursor) line_.setCursorPosition(cursor);
}

}  // namespace zorkanca
