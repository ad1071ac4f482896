// How texts spell dates and times: two or three numbers (or a month's name among them) between separators, a time
// "h:mm[:ss]" with an optional AM/PM marker, or both in any order.
#include <algorithm>
#include <array>

#include "runtime/convert.h"
#include "runtime/date.h"
#include "runtime/parse_number.h"

namespace zorkanca {

namespace {

// The numbers of a date as they stand in the text; a month's name is kept apart, because it leaves no doubt.
struct DateElements {
  std::array<std::int32_t, 3> numbers{};
  std::size_t count = 0;
  std::int32_t namedMonth = 0;

  std::size_t Total() const { return count + (namedMonth != 0 ? 1 : 0); }
};

struct TimeOfDay {
  std::int32_t hour = 0;
  std::int32_t minute = 0;
  std::int32_t second = 0;
};

class DateReader {
 public:
  DateReader(TextView text, const Locale& locale) : rest_(text), locale_(locale) {}

  // Fills elements and time; false for a text that is no date whatever its numbers mean.
  bool Read() {
    SkipBlanks();
    while (!rest_.empty()) {
      if (!ReadTimeOrElement()) return false;
      if (pastDate_) continue;
      SkipBlanks();
      if (!TakeSeparator()) continue;
      SkipBlanks();
      if (rest_.empty()) return false;
    }
    return true;
  }

  const DateElements& elements() const { return elements_; }
  const std::optional<TimeOfDay>& time() const { return time_; }

 private:
  static constexpr std::int32_t kTooLarge = 100000;  // no number of a date gets there

  void SkipBlanks() {
    while (!rest_.empty() && IsBlankUnit(rest_[0])) rest_.remove_prefix(1);
  }

  std::int32_t ReadNumberOfDate() {
    std::int32_t value = 0;
    for (; !rest_.empty() && IsDigit(rest_[0]); rest_.remove_prefix(1)) {
      value = std::min(value * 10 + (rest_[0] - u'0'), kTooLarge);
    }
    return value;
  }

  bool StartsWithDigit(std::size_t position = 0) const { return rest_.size() > position && IsDigit(rest_[position]); }

  bool TakeSeparator() {
    if (rest_.empty() || TextView(u"./-,").find(rest_[0]) == TextView::npos) return false;
    if (rest_[0] == u'.' && locale_.dotSeparatesTimes) return false;
    if (elements_.Total() == 0) return false;
    rest_.remove_prefix(1);
    afterSeparator_ = true;
    return true;
  }

  bool TakeTimeSeparator() {
    const bool separator = !rest_.empty() && (rest_[0] == u':' || (rest_[0] == u'.' && locale_.dotSeparatesTimes));
    if (!separator || !StartsWithDigit(1)) return false;
    rest_.remove_prefix(1);
    return true;
  }

  bool ReadTimeOrElement() {
    if (!StartsWithDigit()) return ReadMonthName();
    const std::int32_t number = ReadNumberOfDate();
    if (TakeTimeSeparator()) return ReadTime(number);
    return AddNumber(number);
  }

  bool AddNumber(std::int32_t number) {
    if (pastDate_ || elements_.Total() == 3) return false;
    afterSeparator_ = false;
    elements_.numbers[elements_.count++] = number;
    return true;
  }

  bool ReadMonthName() {
    const auto isLetter = [](char16_t unit) {
      return !IsBlankUnit(unit) && !IsDigit(unit) && TextView(u"./-,:").find(unit) == TextView::npos;
    };
    const auto end = std::find_if_not(rest_.begin(), rest_.end(), isLetter);
    const TextView word = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
    for (std::size_t month = 0; month < 12; ++month) {
      if (!EqualsIgnoringCase(word, locale_.monthNames[month]) &&
          !EqualsIgnoringCase(word, locale_.monthAbbreviations[month])) {
        continue;
      }
      if (pastDate_ || elements_.namedMonth != 0 || elements_.Total() == 3) return false;
      afterSeparator_ = false;
      elements_.namedMonth = static_cast<std::int32_t>(month) + 1;
      rest_.remove_prefix(word.size());
      return true;
    }
    return false;
  }

  // The rest of a time whose hour was read. A time behind the date ends the text.
  bool ReadTime(std::int32_t hour) {
    if (time_ || afterSeparator_) return false;
    TimeOfDay time{.hour = hour, .minute = ReadNumberOfDate()};
    if (TakeTimeSeparator()) time.second = ReadNumberOfDate();
    SkipBlanks();
    if (!ReadAmPm(time.hour)) return false;
    if (time.hour > 23 || time.minute > 59 || time.second > 59) return false;
    time_ = time;
    SkipBlanks();
    pastDate_ = elements_.Total() > 0;
    return true;
  }

  bool TakeWord(TextView word) {
    const TextView head = rest_.substr(0, word.size());
    if (word.empty() || !EqualsIgnoringCase(head, word)) return false;
    rest_.remove_prefix(word.size());
    return true;
  }

  // Moves the hour to the half of the day that an AM/PM marker names; false where there is no such hour.
  bool ReadAmPm(std::int32_t& hour) {
    if (TakeWord(locale_.morning) || TakeWord(u"AM")) {
      if (hour > 12) return false;
      if (hour == 12) hour = 0;
    } else if (TakeWord(locale_.afternoon) || TakeWord(u"PM")) {
      if (hour < 12) hour += 12;
    }
    return true;
  }

  TextView rest_;
  const Locale& locale_;
  DateElements elements_;
  std::optional<TimeOfDay> time_;
  bool afterSeparator_ = false;
  bool pastDate_ = false;
};

// Finds the first reading of the elements that is a day of the calendar.
class DateInterpreter {
 public:
  DateInterpreter(const Locale& locale, const std::optional<TimeOfDay>& time)
      : locale_(locale), time_(time.value_or(TimeOfDay())) {}

  std::optional<Date> Interpret(const DateElements& elements) {
    const auto [a, b, c] = elements.numbers;
    const std::int32_t thisYear = locale_.currentYear;
    if (elements.namedMonth != 0) {
      const std::int32_t month = elements.namedMonth;
      if (elements.count == 2) return First({{b, month, a}, {a, month, b}});
      if (elements.count == 1) return First({{thisYear, month, a}, {a, month, 1}});
    } else if (elements.count == 3) {
      if (locale_.dateOrder == DateOrder::kDayMonthYear) return First({{c, b, a}, {c, a, b}, {a, b, c}});
      if (locale_.dateOrder == DateOrder::kMonthDayYear) return First({{c, a, b}, {c, b, a}, {a, b, c}});
      return First({{a, b, c}, {c, b, a}, {c, a, b}});
    } else if (elements.count == 2) {
      if (locale_.dateOrder == DateOrder::kDayMonthYear) {
        return First({{thisYear, b, a}, {thisYear, a, b}, {b, a, 1}, {a, b, 1}});
      }
      return First({{thisYear, a, b}, {thisYear, b, a}, {b, a, 1}, {a, b, 1}});
    }
    return std::nullopt;
  }

 private:
  struct Reading {
    std::int32_t year, month, day;
  };

  std::optional<Date> First(std::initializer_list<Reading> readings) const {
    for (const auto& [year, month, day] : readings) {
      const std::optional<Date> date =
          MakeDate(ExpandYear(year, locale_), month, day, time_.hour, time_.minute, time_.second);
      if (date) return date;
    }
    return std::nullopt;
  }

  const Locale& locale_;
  TimeOfDay time_;
};

}  // namespace

std::int32_t ExpandYear(std::int32_t year, const Locale& locale) {
  if (year < 0 || year > 99) return year;
  const std::int32_t century = locale.twoDigitYearMax / 100 * 100;
  const std::int32_t expanded = century + year;
  return expanded > locale.twoDigitYearMax ? expanded - 100 : expanded;
}

std::optional<Date> ParseDate(TextView text, const Locale& locale) {
  DateReader reader(text, locale);
  if (!reader.Read()) return std::nullopt;
  if (reader.elements().Total() == 0 && reader.time()) {
    return MakeDate(1899, 12, 30, reader.time()->hour, reader.time()->minute, reader.time()->second);
  }
  return DateInterpreter(locale, reader.time()).Interpret(reader.elements());
}

}  // namespace zorkanca
