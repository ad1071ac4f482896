#include "qt/control_view.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include "platform/tab_order.h"
#include "qt/arrow_icon.h"
#include "qt/list_box_view.h"
#include "qt/qt_text.h"
#include "qt/screen_scale.h"
#include "qt/text_box_view.h"

namespace zorkanca {

namespace {

class LabelView final : public ControlView {
 public:
  LabelView(Label& label, QLabel& widget) : ControlView(label, widget), widget_(widget) {
    widget_.setTextFormat(Qt::PlainText);
  }

  void SetNamed(QWidget* named) override {
    widget_.setBuddy(named);
    Refresh();
  }

 protected:
  void RefreshContent() override {
    // Without a widget to go to, the mark of the access key would be shown.
    const Text& caption = control().caption();
    widget_.setText(ToQt(widget_.buddy() != nullptr ? caption : WithoutAccessKey(caption)));
    widget_.setWordWrap(widget_.height() >= 2 * widget_.fontMetrics().lineSpacing());
  }

 private:
  QLabel& widget_;
};

class ButtonView final : public ControlView {
 public:
  ButtonView(Button& button, QPushButton& widget, const EventRunner& run)
      : ControlView(button, widget), button_(button), widget_(widget) {
    widget_.setAutoDefault(false);  // the form alone knows which button Enter presses
    QObject::connect(&widget, &QPushButton::clicked, [&button, run] { run([&button] { button.Click(); }); });
  }

 protected:
  void RefreshContent() override {
    widget_.setText(ToQt(button_.caption()));
    widget_.setDefault(button_.isDefault);
    widget_.setIcon(ArrowIcon(button_.image(), widget_));
    if (button_.image() == ButtonImage::kNone) return;
    const bool up = button_.image() == ButtonImage::kEnabledUp || button_.image() == ButtonImage::kDisabledUp;
    const QString meaning = up ? QStringLiteral("Nahoru") : QStringLiteral("Dolů");
    widget_.setAccessibleName(meaning);
    widget_.setToolTip(meaning);
  }

 private:
  Button& button_;
  QPushButton& widget_;
};

class CheckBoxView final : public ControlView {
 public:
  CheckBoxView(CheckBox& box, QCheckBox& widget, const EventRunner& run)
      : ControlView(box, widget), box_(box), widget_(widget) {
    QObject::connect(&widget, &QCheckBox::clicked, [this, run] {
      run([this] { box_.Click(); });
      Refresh();
    });
  }

 protected:
  void RefreshContent() override {
    widget_.setText(ToQt(box_.caption()));
    widget_.setChecked(box_.checked());
  }

 private:
  CheckBox& box_;
  QCheckBox& widget_;
};

// Widgets need some height to show their text at all; they grow around their middle, where labels are beside them.
QRect HighEnough(const QRect& place, const QWidget& widget) {
  const int missing = widget.sizeHint().height() - place.height();
  return missing <= 0 ? place : place.adjusted(0, -(missing / 2), 0, missing - missing / 2);
}

Qt::FocusPolicy FocusPolicyOf(const Control& control) {
  if (!control.tabIndex() || dynamic_cast<const Label*>(&control) != nullptr) return Qt::NoFocus;
  return control.tabStop() ? Qt::StrongFocus : Qt::ClickFocus;
}

}  // namespace

ControlView::ControlView(Control& control, QWidget& widget) : control_(control), widget_(widget) {
  widget_.setObjectName(ToQt(control.name()));
  widget_.setFocusPolicy(FocusPolicyOf(control));
}

void ControlView::Refresh() {
  const QRect place = ToPixels(control_.bounds());
  widget_.setGeometry(dynamic_cast<ListBox*>(&control_) != nullptr ? place : HighEnough(place, widget_));
  widget_.setEnabled(control_.enabled());
  widget_.setVisible(control_.visible());
  RefreshBackground();
  RefreshContent();
}

void ControlView::RefreshBackground() {
  if (control_.backColor() == BackColor::kDefault) return;
  QPalette palette = QApplication::palette(&widget_);
  if (control_.backColor() == BackColor::kDisabled) {
    palette.setColor(QPalette::Base, palette.color(QPalette::Disabled, QPalette::Window));
  }
  widget_.setPalette(palette);
}

std::unique_ptr<ControlView> MakeControlView(Control& control, QWidget& window, const EventRunner& run) {
  std::unique_ptr<ControlView> view;
  if (auto* button = dynamic_cast<Button*>(&control)) {
    view = std::make_unique<ButtonView>(*button, *new QPushButton(&window), run);
  } else if (auto* check = dynamic_cast<CheckBox*>(&control)) {
    view = std::make_unique<CheckBoxView>(*check, *new QCheckBox(&window), run);
  } else if (auto* text = dynamic_cast<TextBox*>(&control)) {
    view = std::make_unique<TextBoxView>(*text, window, run);
  } else if (auto* list = dynamic_cast<ListBox*>(&control)) {
    view = std::make_unique<ListBoxView>(*list, window, run);
  } else {
    view = std::make_unique<LabelView>(dynamic_cast<Label&>(control), *new QLabel(&window));
  }
  view->RefreshRows();
  view->Refresh();
  return view;
}

}  // namespace zorkanca
