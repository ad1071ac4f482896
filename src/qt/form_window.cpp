#include "qt/form_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>
#include <algorithm>
#include <optional>

#include "platform/tab_order.h"
#include "qt/qt_text.h"
#include "qt/screen_scale.h"

namespace zorkanca {

namespace {

std::optional<KeyCode> CodeOf(int key) {
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return KeyCode::kEnter;
    case Qt::Key_Escape:
      return KeyCode::kEscape;
    case Qt::Key_F5:
      return KeyCode::kF5;
    default:
      return std::nullopt;
  }
}

Qt::WindowStates StatesOf(WindowState state) {
  if (state == WindowState::kMaximized) return Qt::WindowMaximized;
  return state == WindowState::kMinimized ? Qt::WindowMinimized : Qt::WindowNoState;
}

WindowState StateOf(Qt::WindowStates states) {
  if (states.testFlag(Qt::WindowMinimized)) return WindowState::kMinimized;
  return states.testFlag(Qt::WindowMaximized) ? WindowState::kMaximized : WindowState::kNormal;
}

// On some desktops windows neither know nor choose where they are.
bool PlacesAreKnown() {
  return !QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
}

}  // namespace

FormWindow::FormWindow(Form& form, QWidget* owner) : QDialog(owner), form_(form) {
  setObjectName(QStringLiteral("form"));
  setWindowModality(Qt::ApplicationModal);
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  setWindowFlag(Qt::WindowMaximizeButtonHint, form.sizable());
  MakeViews();
  const Bounds design{.width = form.designWidth(), .height = form.designHeight()};
  if (form.sizable()) {
    setMinimumSize(ToPixels(design).size());
  } else {
    setFixedSize(ToPixels(design).size());
  }
  Place();
  form_.SetView(this);
}

FormWindow::~FormWindow() {
  form_.SetView(nullptr);
}

void FormWindow::MakeViews() {
  const EventRunner run = [this](const std::function<void()>& body) { RunEvent(body); };
  for (Control* control : form_.controls()) {
    views_.push_back(MakeControlView(*control, *this, run));
    views_.back()->widget().installEventFilter(this);
  }
  installEventFilter(this);
  QWidget* before = nullptr;
  for (const Control* control : InTabOrder(form_)) {
    ControlView& view = *ViewOf(*control);
    if (const auto* label = dynamic_cast<const Label*>(control)) {
      const Control* named = NamedBy(*label);
      view.SetNamed(named == nullptr ? nullptr : &ViewOf(*named)->widget());
      continue;
    }
    if (before != nullptr) setTabOrder(before, &view.widget());
    before = &view.widget();
  }
}

// Takes caption, place and window state over from the form. The frame is the desktop's and counts nowhere.
void FormWindow::Place() {
  setWindowTitle(form_.caption().empty() ? QStringLiteral("zorKancA") : ToQt(form_.caption()));
  const QRect place = ToPixels(form_.bounds());
  if (form_.sizable()) resize(place.size());
  if (form_.placed()) {
    move(place.topLeft());
  } else if (!isVisible()) {
    const QWidget* owner = parentWidget();
    const QRect area =
        owner != nullptr ? owner->frameGeometry() : QGuiApplication::primaryScreen()->availableGeometry();
    move(area.center() - rect().center());
  }
  const Qt::WindowStates states = windowState() & ~(Qt::WindowMaximized | Qt::WindowMinimized);
  setWindowState(states | StatesOf(form_.windowState()));
}

void FormWindow::Run() {
  reporting_ = true;
  show();
  ReportPlace();
  RunEvent([this] { form_.Activate(); });
  if (Control* first = form_.activeControl()) FocusMoved(*first);
  if (form_.visible() && !failure_) loop_.exec();
  reporting_ = false;
  form_.Hide();
  hide();
  QCoreApplication::processEvents();  // nobody may look at the screen's events for long after this
  if (failure_) std::rethrow_exception(failure_);
}

void FormWindow::CameToFront() {
  activateWindow();
  RunEvent([this] { form_.Activate(); });
}

void FormWindow::RunEvent(const std::function<void()>& body) {
  try {
    body();
  } catch (...) {
    if (!failure_) failure_ = std::current_exception();
    loop_.quit();
  }
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  const QWidget* focus = focusWidget();
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      // A key that the focused widget leaves comes by a second time, at the window.
      if (watched != (focus != nullptr ? focus : this)) break;
      return PassKey(static_cast<QKeyEvent&>(*event), event->type() == QEvent::KeyPress);
    case QEvent::FocusIn: {
      const auto view = std::find_if(views_.begin(), views_.end(),
                                     [watched](const auto& each) { return &each->widget() == watched; });
      if (view != views_.end()) form_.PersonFocused((*view)->control());
      break;
    }
    default:
      break;
  }
  return false;
}

// The form hears of a released key only when it was pressed here: Enter that closed another window ends there.
bool FormWindow::PassKey(const QKeyEvent& event, bool pressed) {
  const std::optional<KeyCode> code = CodeOf(event.key());
  if (!code) return false;
  if (event.isAutoRepeat()) return true;
  const bool modified = (event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier)) != 0;
  const KeyStroke key{.code = *code, .withModifiers = modified};
  if (pressed) {
    bool used = false;
    pressed_.insert(*code);
    RunEvent([&] { used = form_.PressKey(key) || PressFocusedButton(key); });
    return used || !form_.visible();
  }
  if (pressed_.erase(*code) > 0 && form_.visible()) RunEvent([&] { form_.ReleaseKey(key); });
  return false;
}

bool FormWindow::PressFocusedButton(const KeyStroke& key) {
  auto* button = dynamic_cast<Button*>(form_.activeControl());
  if (button == nullptr || key.code != KeyCode::kEnter || key.withModifiers || !form_.visible()) return false;
  button->Click();
  return true;
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  event->ignore();
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  RunEvent([this] { form_.Close(); });
}

bool FormWindow::event(QEvent* event) {
  const bool used = QDialog::event(event);
  switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowStateChange:
      ReportPlace();
      break;
    case QEvent::WindowDeactivate:
      pressed_.clear();
      break;
    default:
      break;
  }
  return used;
}

void FormWindow::ReportPlace() {
  if (!reporting_) return;
  Bounds bounds = ToTwips(QRect(pos(), size()));
  if (!PlacesAreKnown()) {
    bounds.left = form_.bounds().left;
    bounds.top = form_.bounds().top;
  }
  RunEvent([&] { form_.PersonResized(bounds, StateOf(windowState()), bounds.width, bounds.height); });
}

ControlView* FormWindow::ViewOf(const Control& control) const {
  const auto view =
      std::find_if(views_.begin(), views_.end(), [&control](const auto& each) { return &each->control() == &control; });
  return view == views_.end() ? nullptr : view->get();
}

void FormWindow::ControlChanged(Control& control) {
  if (ControlView* view = ViewOf(control)) view->Refresh();
}

void FormWindow::RowsChanged(ListBox& list) {
  if (ControlView* view = ViewOf(list)) view->RefreshRows();
}

void FormWindow::FocusMoved(Control& control) {
  if (ControlView* view = ViewOf(control)) view->widget().setFocus();
}

void FormWindow::FormChanged() {
  Place();
}

void FormWindow::Hidden() {
  loop_.quit();
}

}  // namespace zorkanca
