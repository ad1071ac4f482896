#include "files/system_clock.h"

#include <unistd.h>

#include <ctime>

#include "runtime/date.h"

namespace zorkanca {

Date LocalDate(std::int64_t secondsSince1970) {
  const std::time_t moment = secondsSince1970;
  std::tm local{};
  localtime_r(&moment, &local);
  constexpr std::int64_t kSecondsADay = 86400;
  const std::int64_t localSeconds = secondsSince1970 + local.tm_gmtoff;
  return Date{kSerialOf1970 + static_cast<double>(localSeconds) / static_cast<double>(kSecondsADay)};
}

Date SystemClock::Now() {
  return LocalDate(std::time(nullptr));
}

std::int64_t SystemClock::ThreadId() {
  return gettid();
}

}  // namespace zorkanca
