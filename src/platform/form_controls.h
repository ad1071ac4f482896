// The controls that a dialog is made of, as plain state with events. A dialog's logic and whoever shows it (real
// windows, a terminal, a script without any) see the same objects: the logic sets properties and hears events, the
// view draws the properties and passes on what the person does.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "runtime/text.h"

namespace zorkanca {

class Form;

/// Twips, 1440 to the inch. Coordinates of a control are those of its form's inner area.
struct Bounds {
  float left = 0;
  float top = 0;
  float width = 0;
  float height = 0;
  friend bool operator==(const Bounds&, const Bounds&) = default;
};

/// Which edges of the form a control keeps its distance to while the form is resized. An edge that is kept on both
/// sides stretches the control.
struct Anchors {
  bool left = true;
  bool top = true;
  bool right = false;
  bool bottom = false;
};

/// The colours that dialogs use; the view picks the desktop's own.
enum class BackColor { kDefault, kWindow, kDisabled };

/// A control of one form. Every setter that changes something tells whoever shows the form.
class Control {
 public:
  /// Joins the form, which must outlive the control; controls are members of their form.
  /// @param name  the control's own name, for scripts and accessibility
  Control(Form& form, Text name);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const Text& name() const { return name_; }
  Form& form() const { return form_; }

  /// "&" marks the access key, "&&" is the character itself. Empty for controls without a text of their own.
  const Text& caption() const { return caption_; }
  void SetCaption(TextView caption);
  bool enabled() const { return enabled_; }
  /// A control that can no longer have the focus passes it to the next tab stop; so does one that is hidden.
  void SetEnabled(bool enabled);
  bool visible() const { return visible_; }
  void SetVisible(bool visible);
  /// The place in the tab order; nothing for a control that never gets the focus. A label has one, so that its access
  /// key goes to the next control, but is never a tab stop.
  std::optional<int> tabIndex() const { return tabIndex_; }
  void SetTabIndex(int tabIndex) { tabIndex_ = tabIndex; }
  bool tabStop() const { return tabStop_; }
  void SetTabStop(bool tabStop) { tabStop_ = tabStop; }
  const Bounds& bounds() const { return bounds_; }
  void SetBounds(const Bounds& bounds);
  const Anchors& anchors() const { return anchors_; }
  void SetAnchors(const Anchors& anchors) { anchors_ = anchors; }
  BackColor backColor() const { return backColor_; }
  void SetBackColor(BackColor backColor);

  /// Moves the focus here; nothing happens when the control cannot take it.
  void SetFocus();
  /// Visible, enabled and in the tab order of the form; a tab stop or not.
  virtual bool CanTakeFocus() const { return visible_ && enabled_ && tabIndex_.has_value(); }

 protected:
  /// Tells the view that this control looks different.
  void Changed();
  /// For a person's click: takes the focus unless it is here already.
  void FocusByClick();

 private:
  void FocusMustNotStay();

  Form& form_;
  Text name_;
  Text caption_;
  bool enabled_ = true;
  bool visible_ = true;
  std::optional<int> tabIndex_;
  bool tabStop_ = true;
  Bounds bounds_;
  Anchors anchors_;
  BackColor backColor_ = BackColor::kDefault;
};

/// A text that names the control after it in the tab order.
class Label final : public Control {
 public:
  Label(Form& form, Text name) : Control(form, std::move(name)) { SetTabStop(false); }
  bool CanTakeFocus() const override { return false; }
};

/// What a button shows in place of a caption.
enum class ButtonImage { kNone, kEnabledUp, kDisabledUp, kEnabledDown, kDisabledDown };

class Button final : public Control {
 public:
  using Control::Control;

  std::function<void()> onClick;

  ButtonImage image() const { return image_; }
  void SetImage(ButtonImage image);

  /// The button that Enter presses wherever the focus is, unless it is on another button.
  bool isDefault = false;
  /// The button that Esc presses.
  bool isCancel = false;

  /// The person presses the button. Nothing happens while it is disabled or invisible.
  void Click();
  /// The same, but the focus stays where it is: Enter and Esc press buttons from elsewhere.
  void Press();

 private:
  ButtonImage image_ = ButtonImage::kNone;
};

class CheckBox final : public Control {
 public:
  using Control::Control;

  /// Runs on every change of `checked`, by a person or by the logic.
  std::function<void()> onClick;

  bool checked() const { return checked_; }
  void SetChecked(bool checked);

  /// The person clicks on the box. Nothing happens while it is disabled or invisible.
  void Click();

 private:
  bool checked_ = false;
};

class TextBox final : public Control {
 public:
  using Control::Control;

  /// Runs on every change of `text`, by a person or by the logic.
  std::function<void()> onChange;
  /// Decides whether a typed character enters the text, which holds all that was typed before it; all do without it.
  std::function<bool(char16_t)> acceptsKey;

  const Text& text() const { return text_; }
  void SetText(TextView text);
  /// Marks the whole text, so that typing replaces it; the mark is gone with the next change of the text.
  void SelectAll();
  bool allSelected() const { return allSelected_; }

  /// The person types or pastes characters in place of the part of the text from `start` on, `length` characters long
  /// (both are brought into the text). The first accepted character takes the part's place, so that the part stays when
  /// none is; no characters at all delete it. Nothing happens while the box is disabled or invisible.
  /// @return the characters that were accepted
  Text Type(TextView characters, std::size_t start, std::size_t length);
  /// The same at the end of the text, or over all of it when all is selected.
  void Type(TextView characters);

 private:
  Text text_;
  bool allSelected_ = false;
};

class ListBox final : public Control {
 public:
  using Control::Control;

  /// Runs whenever the selected row changes, by a person or by the logic.
  std::function<void()> onSelect;
  /// Runs after a person's double click on a row, which is selected then.
  std::function<void()> onDoubleClick;

  const std::vector<Text>& rows() const { return rows_; }
  /// Replaces the rows; nothing is selected then.
  void SetRows(std::vector<Text> rows);
  /// From 0; -1 when no row is selected.
  int selectedRow() const { return selectedRow_; }
  /// Errors: 5 for a row that is not there; -1 selects nothing.
  void SelectRow(int row);

  /// The person clicks twice on a row. Nothing happens while the list is disabled or invisible.
  void DoubleClick(int row);

 private:
  std::vector<Text> rows_;
  int selectedRow_ = -1;
};

}  // namespace zorkanca
