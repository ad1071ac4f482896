#include "platform/forms.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "runtime/error.h"

namespace zorkanca {

Control::Control(Form& form, Text name) : form_(form), name_(std::move(name)) {
  form.controls_.push_back(this);
}

void Control::Changed() {
  if (form_.view_ != nullptr) form_.view_->ControlChanged(*this);
}

void Control::SetCaption(TextView caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  Changed();
}

void Control::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Changed();
  FocusMustNotStay();
}

void Control::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  Changed();
  FocusMustNotStay();
}

void Control::SetBounds(const Bounds& bounds) {
  if (bounds_ == bounds) return;
  bounds_ = bounds;
  Changed();
}

void Control::SetBackColor(BackColor backColor) {
  if (backColor_ == backColor) return;
  backColor_ = backColor;
  Changed();
}

void Control::SetFocus() {
  if (!CanTakeFocus()) return;
  form_.activeControl_ = this;
  if (form_.view_ != nullptr) form_.view_->FocusMoved(*this);
}

void Control::FocusByClick() {
  if (form_.activeControl_ != this) SetFocus();
}

void Control::FocusMustNotStay() {
  if (form_.activeControl_ != this || CanTakeFocus()) return;
  form_.activeControl_ = nullptr;
  if (Control* next = form_.NextTabStop(tabIndex_.value_or(-1))) next->SetFocus();
}

void Button::SetImage(ButtonImage image) {
  if (image_ == image) return;
  image_ = image;
  Changed();
}

void Button::Click() {
  if (enabled() && visible()) FocusByClick();
  Press();
}

void Button::Press() {
  if (enabled() && visible() && onClick) onClick();
}

void CheckBox::SetChecked(bool checked) {
  if (checked_ == checked) return;
  checked_ = checked;
  Changed();
  if (onClick) onClick();
}

void CheckBox::Click() {
  if (!enabled() || !visible()) return;
  FocusByClick();
  SetChecked(!checked_);
}

void TextBox::SetText(TextView text) {
  if (text_ == text) return;
  text_ = text;
  allSelected_ = false;
  Changed();
  if (onChange) onChange();
}

void TextBox::SelectAll() {
  allSelected_ = true;
  Changed();
}

Text TextBox::Type(TextView characters, std::size_t start, std::size_t length) {
  if (!enabled() || !visible()) return {};
  start = std::min(start, text_.size());
  if (!acceptsKey || characters.empty()) {
    SetText(Text(text_).replace(start, length, characters));
    return Text(characters);
  }
  Text accepted;
  for (const char16_t character : characters) {
    if (!acceptsKey(character)) continue;
    const std::size_t place = std::min(start + accepted.size(), text_.size());  // onChange may shorten the text
    SetText(Text(text_).replace(place, std::exchange(length, 0), 1, character));
    accepted.push_back(character);
  }
  return accepted;
}

void TextBox::Type(TextView characters) {
  if (allSelected_) {
    Type(characters, 0, text_.size());
  } else {
    Type(characters, text_.size(), 0);
  }
}

void ListBox::SetRows(std::vector<Text> rows) {
  rows_ = std::move(rows);
  const bool hadSelection = std::exchange(selectedRow_, -1) != -1;
  if (form().view_ != nullptr) form().view_->RowsChanged(*this);
  if (hadSelection && onSelect) onSelect();
}

void ListBox::SelectRow(int row) {
  if (row < -1 || row >= static_cast<int>(rows_.size())) Raise(RuntimeError::kInvalidCall);
  if (selectedRow_ == row) return;
  selectedRow_ = row;
  Changed();
  if (onSelect) onSelect();
}

void ListBox::DoubleClick(int row) {
  if (!enabled() || !visible()) return;
  SelectRow(row);
  if (onDoubleClick) onDoubleClick();
}

Form::Form(BorderStyle borderStyle, float innerWidth, float innerHeight)
    : borderStyle_(borderStyle),
      designWidth_(innerWidth),
      designHeight_(innerHeight),
      innerWidth_(innerWidth),
      innerHeight_(innerHeight),
      bounds_{.width = innerWidth, .height = innerHeight} {}

bool Form::sizable() const {
  return borderStyle_ == BorderStyle::kSizable || borderStyle_ == BorderStyle::kSizableToolWindow;
}

void Form::SetCaption(TextView caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  if (view_ != nullptr) view_->FormChanged();
}

void Form::SetBounds(const Bounds& bounds) {
  placed_ = true;
  if (bounds_ == bounds) return;
  bounds_ = bounds;
  if (view_ != nullptr) view_->FormChanged();
  TellResized();
}

void Form::SetWindowState(WindowState state) {
  if (windowState_ == state) return;
  windowState_ = state;
  if (view_ != nullptr) view_->FormChanged();
  TellResized();
}

void Form::Load() {
  if (std::exchange(loaded_, true)) return;
  OnLoad();
}

void Form::Show() {
  Load();
  visible_ = true;
  Control* first = activeControl_ == nullptr ? NextTabStop(-1) : nullptr;
  if (first != nullptr) first->SetFocus();
}

void Form::Hide() {
  if (std::exchange(visible_, false) && view_ != nullptr) view_->Hidden();
}

bool Form::Unload() {
  if (!loaded_) return true;
  if (!OnQueryUnload()) return false;
  loaded_ = false;
  Hide();
  OnUnload();
  activeControl_ = nullptr;
  return true;
}

Control* Form::NextTabStop(int tabIndex) const {
  Control* next = nullptr;
  Control* first = nullptr;
  const auto isEarlier = [](const Control* control, const Control* other) {
    return other == nullptr || *control->tabIndex() < *other->tabIndex();
  };
  for (Control* control : controls_) {
    if (!control->tabStop() || !control->CanTakeFocus()) continue;
    Control*& place = *control->tabIndex() > tabIndex ? next : first;
    if (isEarlier(control, place)) place = control;
  }
  return next != nullptr ? next : first;
}

int Form::AddResizeListener(std::function<void()> listener) {
  resizeListeners_.emplace_back(nextListener_, std::move(listener));
  return nextListener_++;
}

void Form::RemoveResizeListener(int number) {
  std::erase_if(resizeListeners_, [number](const auto& listener) { return listener.first == number; });
}

bool Form::PressKey(const KeyStroke& key) {
  if (!visible_) return false;
  const Control* const focused = activeControl_;
  OnKeyDown(key);
  if (!visible_) return true;
  // Enter that has moved the focus must not press the button where it went.
  if (key.code == KeyCode::kEnter && activeControl_ != focused) return true;
  // Enter on a button presses that button, which the window does by itself.
  const bool onButton = key.code == KeyCode::kEnter && dynamic_cast<Button*>(activeControl_) != nullptr;
  if (key.withModifiers || onButton) return false;
  for (Control* control : controls_) {
    auto* button = dynamic_cast<Button*>(control);
    const bool isMeant = button != nullptr && ((key.code == KeyCode::kEnter && button->isDefault) ||
                                               (key.code == KeyCode::kEscape && button->isCancel));
    if (!isMeant || !button->enabled() || !button->visible()) continue;
    button->Press();
    return true;
  }
  return false;
}

void Form::ReleaseKey(const KeyStroke& key) {
  if (visible_) OnKeyUp(key);
}

void Form::PersonResized(const Bounds& bounds, WindowState state, float innerWidth, float innerHeight) {
  if (state == WindowState::kNormal) {
    bounds_ = bounds;
    placed_ = true;
  }
  windowState_ = state;
  if (state != WindowState::kMinimized) Layout(innerWidth, innerHeight);
  TellResized();
}

void Form::PersonFocused(Control& control) {
  if (control.CanTakeFocus()) activeControl_ = &control;
}

void Form::Layout(float innerWidth, float innerHeight) {
  const float wider = innerWidth - std::exchange(innerWidth_, innerWidth);
  const float higher = innerHeight - std::exchange(innerHeight_, innerHeight);
  for (Control* control : controls_) {
    Bounds bounds = control->bounds();
    const Anchors& anchors = control->anchors();
    if (anchors.right) (anchors.left ? bounds.width : bounds.left) += wider;
    if (anchors.bottom) (anchors.top ? bounds.height : bounds.top) += higher;
    control->SetBounds(bounds);
  }
}

void Form::TellResized() {
  const auto listeners = resizeListeners_;  // a listener may remove itself
  for (const auto& listener : listeners) listener.second();
}

}  // namespace zorkanca
