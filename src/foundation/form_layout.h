// How a window stands: its state, and where it is and how large while it is in normal state.
#pragma once

#include "foundation/collection_routines.h"
#include "foundation/pair.h"
#include "foundation/usable_screen_area.h"
#include "platform/forms.h"

namespace zorkanca {

struct FormLayout {
  zorkanca::WindowState WindowState = WindowState::kNormal;
  Point Location{};       ///< twips of the screen
  zorkanca::Size Size{};  ///< of the window with its frame, twips

  FormLayout Clone() const { return *this; }

  /// Takes the form's state, and its place and size if the state is normal.
  void Store(const Form& form);
  /// Takes the form's state alone.
  void StoreWindowState(const Form& form) { WindowState = form.windowState(); }

  /// Gives the form size, place and state, in this order; a minimised window comes back as a normal one.
  void Restore(Form& form, const UsableScreenArea& area) const;
  /// Leaves the form as it is when the state is minimised.
  void RestoreWindowState(Form& form) const;
  /// No larger than the area. Leaves a form alone that a person cannot resize.
  void RestoreSize(Form& form, const UsableScreenArea& area) const;
  /// Inside the area, by the form's present size; of a form that is too large the left top corner.
  void RestoreLocation(Form& form, const UsableScreenArea& area) const;

  /// State, left, top, width, height.
  Collection GetValues() const;
  /// Takes what `GetValues` gave, of any numeric types. Errors: internal error for fewer values or others, and nothing
  /// is taken then.
  void FillFromValues(const Collection& values);
};

}  // namespace zorkanca
