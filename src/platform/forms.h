// A dialog without its window: a form with controls, its life from loading to unloading, and what a person does to it.
#pragma once

#include <functional>
#include <vector>

#include "platform/form_controls.h"
#include "runtime/text.h"

namespace zorkanca {

enum class WindowState { kNormal = 0, kMinimized = 1, kMaximized = 2 };
/// By the published numbers; only the sizable ones can be resized by a person.
enum class BorderStyle {
  kFixedSingle = 1,
  kSizable = 2,
  kFixedDialog = 3,
  kFixedToolWindow = 4,
  kSizableToolWindow = 5
};

/// Codes of the keys that dialogs listen to.
enum class KeyCode { kEnter = 13, kEscape = 27, kF5 = 116 };
struct KeyStroke {
  KeyCode code = KeyCode::kEnter;
  bool withModifiers = false;  ///< Shift, Ctrl or Alt is down as well
};

/// Who shows a form hears here what the logic changed meanwhile.
class FormView {
 public:
  virtual ~FormView() = default;
  virtual void ControlChanged(Control& control) = 0;
  /// The rows of a list, which `ControlChanged` leaves as they are.
  virtual void RowsChanged(ListBox& list) = 0;
  virtual void FocusMoved(Control& control) = 0;
  /// Caption, bounds or window state.
  virtual void FormChanged() = 0;
  /// The form was hidden or unloaded: `ShowModal` has to come to its end.
  virtual void Hidden() = 0;
};

/// A dialog's base class. Its life: loaded on the first use, shown, hidden by itself, unloaded; a form that is used
/// again after that is loaded anew.
class Form {
 public:
  /// @param innerWidth, innerHeight  the design size of the inner area, twips
  Form(BorderStyle borderStyle, float innerWidth, float innerHeight);
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const Text& caption() const { return caption_; }
  void SetCaption(TextView caption);
  BorderStyle borderStyle() const { return borderStyle_; }
  bool sizable() const;
  /// The design size of the inner area, twips: a window need not become smaller.
  float designWidth() const { return designWidth_; }
  float designHeight() const { return designHeight_; }
  /// The window's place and outer size while it is in normal state, twips of the screen. Left and top count only once
  /// they were set; until then the view centres the form.
  const Bounds& bounds() const { return bounds_; }
  bool placed() const { return placed_; }
  void SetBounds(const Bounds& bounds);
  WindowState windowState() const { return windowState_; }
  void SetWindowState(WindowState state);
  /// In the order of their creation.
  const std::vector<Control*>& controls() const { return controls_; }
  /// Null until a control has the focus.
  Control* activeControl() const { return activeControl_; }
  /// The tab stop that can take the focus and has the smallest tab index greater than the one given; behind the last
  /// one it goes on from the first. Null when the form has none.
  Control* NextTabStop(int tabIndex) const;
  bool loaded() const { return loaded_; }
  bool visible() const { return visible_; }

  /// Loads the form if it is not loaded.
  void Load();
  /// Marks the form as shown, loads it if need be, and gives the focus to the first tab stop unless a control has it;
  /// for `UserInterface::ShowModal` implementations, which call it first.
  void Show();
  void Hide();
  /// Asks the form first, which may refuse; then hides and unloads it. Nothing happens to a form that is not loaded.
  /// @return whether the form is unloaded now
  bool Unload();

  /// Called after every change of place, size or window state, until the listener is removed.
  /// @return a number for `RemoveResizeListener`
  int AddResizeListener(std::function<void()> listener);
  void RemoveResizeListener(int number);

  /// What a person does; the view calls these. Keys count only while the form is visible: the release of the key that
  /// closed it finds nobody.
  void Activate() { OnActivate(); }
  /// A key was pressed, or released; the form sees it before its controls. Enter by which the form moves the focus does
  /// nothing else.
  /// @return true when the key was used up and the focused control must not get it
  bool PressKey(const KeyStroke& key);
  void ReleaseKey(const KeyStroke& key);
  /// The window's frame was moved, resized, minimised or maximised.
  /// @param innerWidth, innerHeight  what the controls are laid out in, twips
  void PersonResized(const Bounds& bounds, WindowState state, float innerWidth, float innerHeight);
  /// The window's close button.
  void Close() { Unload(); }
  /// The focus went to a control.
  void PersonFocused(Control& control);

  /// At most one; null when nobody shows the form.
  void SetView(FormView* view) { view_ = view; }

 protected:
  /// Once per life, before the form is first used.
  virtual void OnLoad() {}
  /// Each time the window comes to the front.
  virtual void OnActivate() {}
  virtual void OnKeyDown(const KeyStroke&) {}
  virtual void OnKeyUp(const KeyStroke&) {}
  /// Before unloading. @return false when the form must stay
  virtual bool OnQueryUnload() { return true; }
  /// The form is out of sight already. Raises nothing: nobody could answer it.
  virtual void OnUnload() {}

 private:
  friend class Control;
  friend class ListBox;

  void Layout(float innerWidth, float innerHeight);
  void TellResized();

  BorderStyle borderStyle_;
  float designWidth_;
  float designHeight_;
  float innerWidth_;
  float innerHeight_;
  Text caption_;
  Bounds bounds_;
  bool placed_ = false;
  WindowState windowState_ = WindowState::kNormal;
  std::vector<Control*> controls_;
  Control* activeControl_ = nullptr;
  bool loaded_ = false;
  bool visible_ = false;
  std::vector<std::pair<int, std::function<void()>>> resizeListeners_;
  int nextListener_ = 1;
  FormView* view_ = nullptr;
};

}  // namespace zorkanca
