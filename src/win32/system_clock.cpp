#include "win32/system_clock.h"

#include "win32/system.h"

namespace zorkanca::win32 {

Date SystemClock::Now() {
  SYSTEMTIME local{};
  GetLocalTime(&local);
  local.wMilliseconds = 0;
  double serial = 0;
  SystemTimeToVariantTime(&local, &serial);
  return Date{serial};
}

std::int64_t SystemClock::ThreadId() {
  return GetCurrentThreadId();
}

}  // namespace zorkanca::win32
