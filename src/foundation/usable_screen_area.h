// Where on the screen a window can be reached: the primary monitor without its task bars.
#pragma once

#include "foundation/pair.h"
#include "platform/user_interface.h"
#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca {

/// As it was when the object was made.
class UsableScreenArea {
 public:
  /// Errors: `InvalidOperationErrorCode` when there is no screen.
  explicit UsableScreenArea(UserInterface& userInterface);

  /// In twips.
  const Point& Location() const { return location_; }
  const zorkanca::Size& Size() const { return size_; }

  /// "left, top, width, height"
  Text ToString(const Locale& locale) const;

 private:
  Point location_;
  zorkanca::Size size_;
};

}  // namespace zorkanca
