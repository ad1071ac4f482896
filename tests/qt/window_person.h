// A person in front of real windows that no screen shows: looks at widgets, presses keys, clicks.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <functional>

#include "host/desktop/windows_library.h"
#include "platform/forms.h"

namespace zorkanca::testing {

/// The plug-in as programs load it.
class Windows : public ::testing::Test {
 public:
  static void SetUpTestSuite() {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    windows_ = LoadWindows();
  }
  static void TearDownTestSuite() { windows_.reset(); }

 protected:
  static UserInterface& windows() { return *windows_; }

  /// What the person does next, as soon as something waits for a person: a window, a message box, a file dialog.
  static void Later(std::function<void()> person) {
    QTimer::singleShot(0, qApp, [person] {
      EXPECT_TRUE(QTest::qWaitFor([] { return TopWindow() != nullptr && TopWindow()->isActiveWindow(); }, 5000));
      person();
    });
  }
  /// Shows the form to the person; a form that is left open is hidden then.
  static void Show(Form& form, std::function<void()> person) {
    Later([&form, person] {
      person();
      form.Hide();
    });
    windows().ShowModal(form, nullptr);
  }

  static QWidget* TopWindow() { return QApplication::activeModalWidget(); }
  template <typename Widget>
  static Widget* Find(const Control& control) {
    const Text& name = control.name();
    auto* widget =
        TopWindow()->findChild<Widget*>(QString::fromUtf16(name.data(), static_cast<qsizetype>(name.size())));
    EXPECT_NE(widget, nullptr);
    return widget;
  }
  static std::string Focused() {
    return QApplication::focusWidget() ? QApplication::focusWidget()->objectName().toStdString() : "";
  }
  static void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* focused = QApplication::focusWidget();
    QTest::keyClick(focused != nullptr ? focused : TopWindow(), static_cast<Qt::Key>(key), modifiers);
  }
  static bool Until(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 5000); }

 private:
  static inline std::shared_ptr<UserInterface> windows_;
};

}  // namespace zorkanca::testing
