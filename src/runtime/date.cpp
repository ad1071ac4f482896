#include "runtime/date.h"

#include <cmath>

#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr std::int32_t kFirstDay = -657434;  // 1.1.100
constexpr std::int32_t kLastDay = 2958465;   // 31.12.9999
constexpr std::int32_t kSecondsOfDay = 24 * 60 * 60;
constexpr std::int32_t kDaysOfYear = 365;
constexpr std::int32_t kDaysOfCentury = 36524;  // 24 leap years
constexpr std::int32_t kDaysOfFourCenturies = 146097;
constexpr std::int32_t kDayZero = 693899;  // 30.12.1899 counted from 1.3.0000

// Years are counted from 1 March, so that the leap day is their last: then the months' lengths from March are a
// straight line of (153 * month + 2) / 5 days.
constexpr std::int32_t DaysBeforeMonth(std::int32_t monthFromMarch) {
  return (153 * monthFromMarch + 2) / 5;
}

constexpr std::int32_t DayNumber(std::int32_t year, std::int32_t month, std::int32_t day) {
  const std::int32_t marchYear = month > 2 ? year : year - 1;
  const std::int32_t leapDays = marchYear / 4 - marchYear / 100 + marchYear / 400;
  return marchYear * kDaysOfYear + leapDays + DaysBeforeMonth((month + 9) % 12) + day - 1 - kDayZero;
}

constexpr bool IsLeapYear(std::int32_t year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr std::int32_t DaysOfMonth(std::int32_t year, std::int32_t month) {
  if (month == 2) return IsLeapYear(year) ? 29 : 28;
  return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

void SetDay(DateParts& parts, std::int32_t day) {
  const std::int32_t sinceZero = day + kDayZero;
  const std::int32_t cycle = sinceZero / kDaysOfFourCenturies;
  const std::int32_t ofCycle = sinceZero % kDaysOfFourCenturies;
  // The year from the day: the leap days before it are taken out first, so that the division by 365 is exact.
  const std::int32_t leapDays =
      ofCycle / (4 * kDaysOfYear) - ofCycle / kDaysOfCentury + ofCycle / (kDaysOfFourCenturies - 1);
  const std::int32_t ofCycleYear = (ofCycle - leapDays) / kDaysOfYear;
  const std::int32_t ofYear = ofCycle - (ofCycleYear * kDaysOfYear + ofCycleYear / 4 - ofCycleYear / 100);
  const std::int32_t monthFromMarch = (5 * ofYear + 2) / 153;
  parts.day = ofYear - DaysBeforeMonth(monthFromMarch) + 1;
  parts.month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
  parts.year = cycle * 400 + ofCycleYear + (parts.month <= 2 ? 1 : 0);
  constexpr std::int32_t kDaysFromMarchToYearEnd = 306;
  parts.dayOfYear =
      parts.month <= 2 ? ofYear - kDaysFromMarchToYearEnd + 1 : ofYear + 1 + 59 + (IsLeapYear(parts.year) ? 1 : 0);
  parts.weekday = (sinceZero + 3) % 7 + 1;  // 1.3.0000 was a Wednesday
}

}  // namespace

bool IsDateSerial(double serial) {
  return serial > kFirstDay - 1 && serial < kLastDay + 1;
}

DateParts Disassemble(Date date) {
  if (!IsDateSerial(date.serial)) Raise(RuntimeError::kOverflow);
  auto day = static_cast<std::int32_t>(date.serial);
  const double time = std::fabs(date.serial - day);
  auto seconds = static_cast<std::int32_t>(time * kSecondsOfDay + 0.5);
  if (seconds == kSecondsOfDay) {
    const bool calendarEnds = day == kLastDay;
    day += calendarEnds ? 0 : 1;
    seconds = calendarEnds ? seconds - 1 : 0;
  }
  DateParts parts;
  SetDay(parts, day);
  if (seconds == 0) return parts;
  parts.hour = seconds / 3600;
  parts.minute = seconds / 60 % 60;
  parts.second = seconds % 60;
  return parts;
}

std::optional<Date> MakeDate(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t hour,
                             std::int32_t minute, std::int32_t second) {
  const auto within = [](std::int32_t value, std::int32_t low, std::int32_t high) {
    return value >= low && value <= high;
  };
  if (!within(year, 100, 9999) || !within(month, 1, 12) || !within(day, 1, DaysOfMonth(year, month)) ||
      !within(hour, 0, 23) || !within(minute, 0, 59) || !within(second, 0, 59)) {
    return std::nullopt;
  }
  const std::int32_t days = DayNumber(year, month, day);
  const double time = static_cast<double>(hour * 3600 + minute * 60 + second) / kSecondsOfDay;
  return Date{days < 0 ? days - time : days + time};
}

}  // namespace zorkanca
