// The clock of the computer.
#pragma once

#include "platform/clock.h"

namespace zorkanca::win32 {

class SystemClock final : public Clock {
 public:
  Date Now() override;
  std::int64_t ThreadId() override;
};

}  // namespace zorkanca::win32
