// Time as the product sees it.
#pragma once

#include "runtime/value.h"

namespace zorkanca {

class Clock {
 public:
  virtual ~Clock() = default;
  /// Local date and time, to the second.
  virtual Date Now() = 0;
};

}  // namespace zorkanca
