#include "runtime/iso_date.h"

#include <cstdint>

#include "runtime/ascii.h"
#include "runtime/date.h"

namespace zorkanca {

namespace {

// Takes digits and marks from the front of a text.
class Reader {
 public:
  explicit Reader(std::string_view text) : next_(text.data()), end_(text.data() + text.size()) {}

  bool AtEnd() const { return next_ == end_; }

  bool Take(char mark) {
    if (AtEnd() || *next_ != mark) return false;
    ++next_;
    return true;
  }

  // Exactly so many digits.
  bool TakeNumber(int digits, std::int32_t& number) {
    if (end_ - next_ < digits) return false;
    number = 0;
    for (const char* const stop = next_ + digits; next_ != stop; ++next_) {
      if (!IsDigit(*next_)) return false;
      number = number * 10 + (*next_ - '0');
    }
    return true;
  }

  bool SkipDigits() {
    const char* const first = next_;
    while (!AtEnd() && IsDigit(*next_)) ++next_;
    return next_ != first;
  }

 private:
  const char* next_;
  const char* end_;
};

struct Day {
  std::int32_t year = 1899;
  std::int32_t month = 12;
  std::int32_t day = 30;  // the day of times without one
};

bool TakeDay(Reader& reader, Day& day) {
  return reader.TakeNumber(4, day.year) && reader.Take('-') && reader.TakeNumber(2, day.month) && reader.Take('-') &&
         reader.TakeNumber(2, day.day);
}

void AppendNumber(std::string& text, std::int32_t number, std::size_t width) {
  const std::string digits = std::to_string(number);
  if (digits.size() < width) text.append(width - digits.size(), '0');
  text += digits;
}

}  // namespace

std::optional<Date> ParseIsoDate(std::string_view text) {
  Reader reader(text);
  Day day;
  constexpr std::size_t kPlaceOfColon = 2;
  if (text.size() <= kPlaceOfColon || text[kPlaceOfColon] != ':') {
    if (!TakeDay(reader, day)) return std::nullopt;
    if (reader.AtEnd()) return MakeDate(day.year, day.month, day.day);
    if (!reader.Take(' ') && !reader.Take('T')) return std::nullopt;
  }
  std::int32_t hour = 0;
  std::int32_t minute = 0;
  std::int32_t second = 0;
  if (!reader.TakeNumber(2, hour) || !reader.Take(':') || !reader.TakeNumber(2, minute)) return std::nullopt;
  if (reader.Take(':')) {
    if (!reader.TakeNumber(2, second)) return std::nullopt;
    if (reader.Take('.') && !reader.SkipDigits()) return std::nullopt;
  }
  reader.Take('Z');
  return reader.AtEnd() ? MakeDate(day.year, day.month, day.day, hour, minute, second) : std::nullopt;
}

std::string IsoDateText(Date date) {
  const DateParts parts = Disassemble(date);
  const bool hasTime = parts.hour != 0 || parts.minute != 0 || parts.second != 0;
  const Day none;
  const bool hasDay = !hasTime || parts.year != none.year || parts.month != none.month || parts.day != none.day;
  std::string text;
  if (hasDay) {
    AppendNumber(text, parts.year, 4);
    AppendNumber(text += '-', parts.month, 2);
    AppendNumber(text += '-', parts.day, 2);
  }
  if (hasTime) {
    if (hasDay) text += ' ';
    AppendNumber(text, parts.hour, 2);
    AppendNumber(text += ':', parts.minute, 2);
    AppendNumber(text += ':', parts.second, 2);
  }
  return text;
}

}  // namespace zorkanca
