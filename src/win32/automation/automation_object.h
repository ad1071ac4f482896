// What stands in the product's world for an automation object of another program.
#pragma once

#include <utility>

#include "runtime/value.h"
#include "win32/automation/late_object.h"

namespace zorkanca::win32 {

/// Beside each typed interface of the office applications: its own object, called by name.
class Automation {
 public:
  explicit Automation(LateObject object) : object_(std::move(object)) {}
  virtual ~Automation() = default;

  const LateObject& object() const { return object_; }

 protected:
  const LateObject object_;
};

/// An object about which nothing more is known: what a field or an argument held.
class AutomationValue final : public Object, public Automation {
 public:
  using Automation::Automation;
};

/// The object itself that a client gets for one of ours; not counted. Null for objects of other kinds and for none.
IDispatch* AutomationObjectOf(const Object* object);

}  // namespace zorkanca::win32
