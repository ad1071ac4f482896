#include "foundation/usable_screen_area.h"

#include "foundation/invalid_operation_err.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

WorkingArea GetWorkingArea(UserInterface& userInterface) {
  try {
    return userInterface.GetWorkingArea();
  } catch (const Error& error) {
    Text description(u"Chyba při volání API GetMonitorInfo. (LastDLLError = ");
    AppendDecimal(description, error.number());
    InvalidOperationErr::RaiseError(description.append(u")"), u"WindowsLayoutAPI.getMonitorInfoStruc", {});
  }
}

}  // namespace

UsableScreenArea::UsableScreenArea(UserInterface& userInterface) {
  const WorkingArea area = GetWorkingArea(userInterface);
  location_ = Point(area.left * area.twipsPerPixelX, area.top * area.twipsPerPixelY);
  size_ = zorkanca::Size(area.width * area.twipsPerPixelX, area.height * area.twipsPerPixelY);
}

Text UsableScreenArea::ToString(const Locale& locale) const {
  return location_.ToString(locale).append(u", ").append(size_.ToString(locale));
}

}  // namespace zorkanca
