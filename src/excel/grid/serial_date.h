// Serial numbers of days. They count from 1.1.1900 and believe in a 29th of February of that year, which dates do not
// know: up to it they are one less than the numbers of dates. Workbooks may count from 1904 instead.
#pragma once

#include "runtime/value.h"

namespace zorkanca::excel {

/// Days between the two countings: what is 1462 in one is 0 in the other.
inline constexpr double kDaysTo1904 = 1462;

/// The 29th of February that never was.
inline constexpr double kFalseDay = 60;
constexpr bool IsFalseDay(double serial) {
  return serial >= kFalseDay && serial < kFalseDay + 1;
}

/// The serial number of a date, below 1 for those before 1.1.1900.
constexpr double SerialOf(Date date) {
  return date.serial < kFalseDay + 1 ? date.serial - 1 : date.serial;
}
/// The date of a serial number; of the false day the day before it.
constexpr Date DateOfSerial(double serial) {
  return {serial < kFalseDay ? serial + 1 : serial};
}

}  // namespace zorkanca::excel
