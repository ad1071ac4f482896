#include "qt/windows_user_interface.h"

#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <clocale>
#include <utility>

#include "qt/file_dialogs.h"
#include "qt/qt_text.h"
#include "qt/screen_scale.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kNone:
      return QMessageBox::NoIcon;
    case MessageIcon::kCritical:
      return QMessageBox::Critical;
    case MessageIcon::kQuestion:
      return QMessageBox::Question;
    case MessageIcon::kExclamation:
      return QMessageBox::Warning;
    case MessageIcon::kInformation:
      return QMessageBox::Information;
  }
  return QMessageBox::NoIcon;
}

struct AnswerButton {
  MessageAnswer answer;
  QMessageBox::StandardButton button;
  const char* caption;
};

constexpr AnswerButton kOkButton{MessageAnswer::kOk, QMessageBox::Ok, "&OK"};
constexpr AnswerButton kCancelButton{MessageAnswer::kCancel, QMessageBox::Cancel, "&Storno"};
constexpr AnswerButton kYesButton{MessageAnswer::kYes, QMessageBox::Yes, "&Ano"};
constexpr AnswerButton kNoButton{MessageAnswer::kNo, QMessageBox::No, "&Ne"};

std::vector<AnswerButton> ButtonsOf(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::kOk:
      return {kOkButton};
    case MessageButtons::kOkCancel:
      return {kOkButton, kCancelButton};
    case MessageButtons::kYesNoCancel:
      return {kYesButton, kNoButton, kCancelButton};
    case MessageButtons::kYesNo:
      return {kYesButton, kNoButton};
  }
  return {kOkButton};
}

}  // namespace

WindowsUserInterface::WindowsUserInterface(std::string windowSystem)
    : windowSystem_(std::move(windowSystem)),
      arguments_{program_.data(), option_.data(), windowSystem_.data(), nullptr} {
  if (QCoreApplication::instance() == nullptr) {
    application_ = std::make_unique<QApplication>(argumentCount_, arguments_);
    std::setlocale(LC_NUMERIC, "C");  // the application object has put the user's in its place
    QLocale::setDefault(QLocale(QLocale::Czech, QLocale::Czechia));
  }
  QGuiApplication::setQuitOnLastWindowClosed(false);  // work goes on after a dialog
  // Dialogs of the library itself in Czech: in our words, over which its translations go where they are installed.
  QCoreApplication::installTranslator(&czechTexts_);
  if (translator_.load(QStringLiteral("qtbase_cs"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(&translator_);
  }
}

WindowsUserInterface::~WindowsUserInterface() {
  QCoreApplication::removeTranslator(&translator_);
  QCoreApplication::removeTranslator(&czechTexts_);
}

MessageAnswer WindowsUserInterface::Show(const Message& message) {
  QWidget* owner = TopWindow();
  QMessageBox box(owner);
  const QString ownTitle = owner != nullptr ? owner->windowTitle() : QStringLiteral("zorKancA");
  box.setWindowTitle(message.title.empty() ? ownTitle : ToQt(message.title));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQt(Replace(message.text, kCrLf, u"\n")));
  box.setIcon(IconOf(message.icon));
  const std::vector<AnswerButton> buttons = ButtonsOf(message.buttons);
  for (const AnswerButton& each : buttons) box.addButton(each.button)->setText(QString::fromUtf8(each.caption));
  box.setDefaultButton(buttons.front().button);
  box.setEscapeButton(buttons.back().button);
  const int pressed = box.exec();
  const auto chosen = std::find_if(buttons.begin(), buttons.end(),
                                   [pressed](const AnswerButton& each) { return each.button == pressed; });
  return chosen == buttons.end() ? buttons.back().answer : chosen->answer;
}

void WindowsUserInterface::SetMousePointer(MousePointer pointer) {
  const bool waits = pointer == MousePointer::kHourglass;
  if (std::exchange(waiting_, waits) == waits) return;
  waits ? QGuiApplication::setOverrideCursor(Qt::WaitCursor) : QGuiApplication::restoreOverrideCursor();
}

void WindowsUserInterface::Beep() {
  QApplication::beep();
}

Text WindowsUserInterface::ChooseFile(const FileDialog& dialog) {
  return AskForFile(dialog, TopWindow());
}

Text WindowsUserInterface::ChooseFolder(TextView title, TextView startFolder) {
  return AskForFolder(title, startFolder, TopWindow());
}

WorkingArea WindowsUserInterface::GetWorkingArea() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) Raise(RuntimeError::kInvalidCall, u"the desktop has no screen");
  const QRect area = screen->availableGeometry();
  const float twipsPerPixel = 1 / PixelsPerTwip();
  return {.left = static_cast<float>(area.left()),
          .top = static_cast<float>(area.top()),
          .width = static_cast<float>(area.width()),
          .height = static_cast<float>(area.height()),
          .twipsPerPixelX = twipsPerPixel,
          .twipsPerPixelY = twipsPerPixel};
}

void WindowsUserInterface::ShowModal(Form& form, Form* owner) {
  if (WindowOf(&form) != nullptr) Raise(RuntimeError::kInvalidCall, u"the dialog is shown already");
  form.Show();
  FormWindow* const below = owner != nullptr ? WindowOf(owner) : nullptr;
  FormWindow window(form, below != nullptr ? below : TopWindow());
  windows_.push_back(&window);
  const auto leave = [this] {
    windows_.pop_back();
    if (!windows_.empty() && windows_.back()->form().visible()) windows_.back()->CameToFront();
  };
  try {
    window.Run();
  } catch (...) {
    leave();
    throw;
  }
  leave();
}

QWidget* WindowsUserInterface::TopWindow() const {
  return windows_.empty() ? nullptr : windows_.back();
}

FormWindow* WindowsUserInterface::WindowOf(const Form* form) const {
  const auto window =
      std::find_if(windows_.begin(), windows_.end(), [form](const FormWindow* each) { return &each->form() == form; });
  return window == windows_.end() ? nullptr : *window;
}

}  // namespace zorkanca
