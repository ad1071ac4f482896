// Time as the product sees it, and the thread whose time it is.
#pragma once

#include <cstdint>

#include "runtime/value.h"

namespace zorkanca {

class Clock {
 public:
  virtual ~Clock() = default;
  /// Local date and time, to the second.
  virtual Date Now() = 0;
  /// The system's number of the calling thread.
  virtual std::int64_t ThreadId() = 0;
};

}  // namespace zorkanca
