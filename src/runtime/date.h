// Calendar arithmetic on date serials (days since 30.12.1899, Gregorian calendar throughout).
#pragma once

#include <cstdint>
#include <optional>

#include "runtime/value.h"

namespace zorkanca {

/// The serial of 1.1.1970, from which computers count their seconds.
inline constexpr std::int32_t kSerialOf1970 = 25569;

/// A date taken apart.
struct DateParts {
  std::int32_t year = 1899;
  std::int32_t month = 12;  ///< 1 to 12
  std::int32_t day = 30;    ///< 1 to 31
  std::int32_t hour = 0;
  std::int32_t minute = 0;
  std::int32_t second = 0;
  std::int32_t weekday = 7;      ///< Sunday 1 to Saturday 7
  std::int32_t dayOfYear = 364;  ///< 1 to 366
};

/// Takes a date apart; seconds are rounded to the nearest. Errors: 6 outside the range of dates.
DateParts Disassemble(Date date);

/// The date of a day and a time.
/// @return nothing when the day or the time does not exist or lies outside 1.1.100 to 31.12.9999
std::optional<Date> MakeDate(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t hour = 0,
                             std::int32_t minute = 0, std::int32_t second = 0);

/// True when the serial lies within the range of dates.
bool IsDateSerial(double serial);

}  // namespace zorkanca
