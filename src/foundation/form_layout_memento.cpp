#include "foundation/form_layout_memento.h"

#include <utility>

#include "foundation/argument_details.h"
#include "foundation/argument_error.h"
#include "foundation/collection_to_string_serializer.h"
#include "foundation/guarded.h"
#include "foundation/usable_screen_area.h"
#include "runtime/error.h"

namespace zorkanca {

FormLayoutMemento::~FormLayoutMemento() {
  StopWatching();
}

void FormLayoutMemento::InitNewInstance(Form* givenForm, TextView identifier,
                                        std::shared_ptr<IMementoPersistor> persistor) {
  constexpr TextView kName = u"FormLayoutMemento.InitNewInstance";
  const ArgumentError argumentError;
  argumentError.ObjectArgumentMustNotBeNothing(givenForm, u"givenForm", kName);
  argumentError.StringArgumentMustNotBeBlank(identifier, u"identifier", kName);
  argumentError.ObjectArgumentMustNotBeNothing(persistor.get(), u"persistor", kName);
  StopWatching();
  form_ = givenForm;
  identifier_ = identifier;
  persistor_ = std::move(persistor);
  currentLayout_ = {};
  listener_ = form_->AddResizeListener([this] { currentLayout_.Store(*form_); });
  currentLayout_.Store(*form_);
}

void FormLayoutMemento::Save() {
  Guarded(u"FormLayoutMemento.Save", ArgumentDetails({{u"identifier", identifier_}}), [&] {
    MustBeInitialized();
    if (!form_->placed()) return;
    currentLayout_.Store(*form_);
    persistor_->Save(identifier_, CollectionToStringSerializer().Serialize(currentLayout_.GetValues()));
  });
}

void FormLayoutMemento::Restore() const {
  Guarded(u"FormLayoutMemento.Restore", ArgumentDetails({{u"identifier", identifier_}}), [&] {
    const std::optional<FormLayout> stored = GetStoredValues();
    if (stored) stored->Restore(*form_, UsableScreenArea(userInterface_));
  });
}

std::optional<FormLayout> FormLayoutMemento::GetStoredValues() const {
  return Guarded(u"FormLayoutMemento.GetStoredValues", ArgumentDetails({{u"identifier", identifier_}}), [&] {
    MustBeInitialized();
    const Collection values = CollectionToStringSerializer().Deserialize(persistor_->Read(identifier_, {}));
    std::optional<FormLayout> stored;
    if (!values.empty()) stored.emplace().FillFromValues(values);
    return stored;
  });
}

void FormLayoutMemento::StopWatching() {
  if (form_ != nullptr) form_->RemoveResizeListener(listener_);
}

void FormLayoutMemento::MustBeInitialized() const {
  if (form_ == nullptr) Raise(RuntimeError::kObjectNotSet);
}

}  // namespace zorkanca
