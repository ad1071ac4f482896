#include "runtime/date.h"

#include <cmath>

#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr std::int32_t kFirstDay = -657434;  // 1.1.100
constexpr std::int32_t kLastDay = 2958465;   // 31.12.9999
constexpr std::int32_t kSecondsOfDay = 24 * 60 * 60;
constexpr std::uint32_t kDaysOfYear = 365;
constexpr std::uint32_t kDaysOfCentury = 36524;  // 24 leap years
constexpr std::uint32_t kDaysOfFourCenturies = 146097;
constexpr std::int32_t kDayZero = 693899;  // 30.12.1899 counted from 1.3.0000

// Years are counted from 1 March, so that the leap day is their last: then the months' lengths from March are a
// straight line of (153 * month + 2) / 5 days.
constexpr std::uint32_t DaysBeforeMonth(std::uint32_t monthFromMarch) {
  return (153 * monthFromMarch + 2) / 5;
}

constexpr std::int32_t DayNumber(std::uint32_t year, std::uint32_t month, std::uint32_t day) {
  const std::uint32_t marchYear = month > 2 ? year : year - 1;
  const std::uint32_t leapDays = marchYear / 4 - marchYear / 100 + marchYear / 400;
  const std::uint32_t sinceZero = marchYear * kDaysOfYear + leapDays + DaysBeforeMonth((month + 9) % 12) + day - 1;
  return static_cast<std::int32_t>(sinceZero) - kDayZero;
}

constexpr bool IsLeapYear(std::uint32_t year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr std::uint32_t DaysOfMonth(std::uint32_t year, std::uint32_t month) {
  if (month == 2) return IsLeapYear(year) ? 29 : 28;
  return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

void SetDay(DateParts& parts, std::int32_t day) {
  const auto sinceZero = static_cast<std::uint32_t>(day + kDayZero);  // unsigned: the divisions below cost less
  const std::uint32_t cycle = sinceZero / kDaysOfFourCenturies;
  const std::uint32_t ofCycle = sinceZero % kDaysOfFourCenturies;
  // The year from the day: the leap days before it are taken out first, so that the division by 365 is exact.
  const std::uint32_t leapDays =
      ofCycle / (4 * kDaysOfYear) - ofCycle / kDaysOfCentury + ofCycle / (kDaysOfFourCenturies - 1);
  const std::uint32_t ofCycleYear = (ofCycle - leapDays) / kDaysOfYear;
  const std::uint32_t ofYear = ofCycle - (ofCycleYear * kDaysOfYear + ofCycleYear / 4 - ofCycleYear / 100);
  const std::uint32_t monthFromMarch = (5 * ofYear + 2) / 153;
  const bool nextYear = monthFromMarch >= 10;
  const std::uint32_t year = cycle * 400 + ofCycleYear + (nextYear ? 1 : 0);
  constexpr std::uint32_t kDaysFromMarchToYearEnd = 306;
  constexpr std::uint32_t kDaysBeforeMarch = 59;
  const std::uint32_t dayOfYear =
      nextYear ? ofYear - kDaysFromMarchToYearEnd : ofYear + kDaysBeforeMarch + (IsLeapYear(year) ? 1 : 0);
  parts.year = static_cast<std::int32_t>(year);
  parts.month = static_cast<std::int32_t>(nextYear ? monthFromMarch - 9 : monthFromMarch + 3);
  parts.day = static_cast<std::int32_t>(ofYear - DaysBeforeMonth(monthFromMarch) + 1);
  parts.dayOfYear = static_cast<std::int32_t>(dayOfYear + 1);
  parts.weekday = static_cast<std::int32_t>((sinceZero + 3) % 7 + 1);  // 1.3.0000 was a Wednesday
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
  if (!within(year, 100, 9999) || !within(month, 1, 12) || !within(day, 1, 31) || !within(hour, 0, 23) ||
      !within(minute, 0, 59) || !within(second, 0, 59)) {
    return std::nullopt;
  }
  const auto y = static_cast<std::uint32_t>(year);
  const auto m = static_cast<std::uint32_t>(month);
  const auto d = static_cast<std::uint32_t>(day);
  if (d > DaysOfMonth(y, m)) return std::nullopt;
  const std::int32_t days = DayNumber(y, m, d);
  const double time = static_cast<double>(hour * 3600 + minute * 60 + second) / kSecondsOfDay;
  return Date{days < 0 ? days - time : days + time};
}

}  // namespace zorkanca
