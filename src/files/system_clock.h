// The computer's own clock.
#pragma once

#include <cstdint>

#include "platform/clock.h"

namespace zorkanca {

class SystemClock final : public Clock {
 public:
  Date Now() override;
  std::int64_t ThreadId() override;
};

/// The serial of a point in time as the local time zone shows it.
/// @param secondsSince1970  seconds since 1.1.1970 0:00 UTC
Date LocalDate(std::int64_t secondsSince1970);

}  // namespace zorkanca
