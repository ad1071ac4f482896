#include "win32/automation/automation_object.h"

namespace zorkanca::win32 {

IDispatch* AutomationObjectOf(const Object* object) {
  const auto* automation = dynamic_cast<const Automation*>(object);
  return automation ? automation->object().dispatch() : nullptr;
}

}  // namespace zorkanca::win32
