// Lets a form open the next time where and how it was left.
#pragma once

#include <memory>
#include <optional>

#include "foundation/form_layout.h"
#include "foundation/memento_persistor.h"
#include "platform/forms.h"
#include "platform/user_interface.h"
#include "runtime/text.h"

namespace zorkanca {

/// Watches one form for as long as it lives; the form outlives it. The stored text is in docs/formats/registry.md.
/// Errors of all operations without errors of their own: internal error with the reason.
class FormLayoutMemento {
 public:
  explicit FormLayoutMemento(UserInterface& userInterface) : userInterface_(userInterface) {}
  ~FormLayoutMemento();
  FormLayoutMemento(const FormLayoutMemento&) = delete;
  FormLayoutMemento& operator=(const FormLayoutMemento&) = delete;

  /// Begins to watch the form; before all else.
  /// @param identifier  under which the layout is kept
  /// Errors: `ArgumentErrorCode` for no form, a blank identifier or no persistor.
  void InitNewInstance(Form* givenForm, TextView identifier, std::shared_ptr<IMementoPersistor> persistor);

  /// Keeps the form's layout. That of a form which no screen has shown yet is none worth keeping.
  void Save();
  /// Gives the form the layout that was kept, brought into the screen of today; nothing happens when there is none.
  void Restore() const;
  /// What is kept; nothing when there is none.
  std::optional<FormLayout> GetStoredValues() const;
  /// The form's state, with the place and size that it last had in normal state.
  const FormLayout& CurrentLayout() const { return currentLayout_; }

 private:
  void StopWatching();
  void MustBeInitialized() const;

  UserInterface& userInterface_;
  Form* form_ = nullptr;
  int listener_ = 0;
  Text identifier_;
  std::shared_ptr<IMementoPersistor> persistor_;
  FormLayout currentLayout_;
};

}  // namespace zorkanca
