#include "runtime/date_text.h"

#include "runtime/pattern_text.h"
#include "runtime/text_sink.h"

namespace zorkanca {

namespace {

bool StartsWithWord(TextView pattern, TextView lowerWord) {
  if (pattern.size() < lowerWord.size()) return false;
  for (std::size_t index = 0; index < lowerWord.size(); ++index) {
    if (AsciiLower(pattern[index]) != lowerWord[index]) return false;
  }
  return true;
}

// Walks a pattern once and writes. A pattern of the locale is written by a writer of its own, in which the letters that
// stand for such patterns mean nothing: no locale can make them call each other.
class DateWriter {
 public:
  DateWriter(TextSink& sink, const DateParts& date, const Locale& locale, bool twelveHours)
      : sink_(sink), date_(date), locale_(locale), twelveHours_(twelveHours) {}

  void Write(TextView pattern) {
    while (!pattern.empty()) pattern.remove_prefix(WriteNext(pattern));
  }

  // The time alone, the date alone, or both.
  void WriteGeneral() {
    const bool timeAlone = date_.year == 1899 && date_.month == 12 && date_.day == 30;
    const bool midnight = date_.hour == 0 && date_.minute == 0 && date_.second == 0;
    if (!timeAlone) WriteOfLocale(DatePattern(locale_.shortDate), locale_.monthNames);
    if (!timeAlone && !midnight) sink_.Put(u' ');
    if (timeAlone || !midnight) WriteOfLocale(DatePattern(locale_.longTime), locale_.monthNames);
  }

 private:
  void WriteOfLocale(const DatePattern& pattern, const std::array<Text, 12>& monthNames) {
    DateWriter writer(sink_, date_, locale_, pattern.twelveHours);
    writer.ofLocale_ = true;
    writer.monthNames_ = &monthNames;
    writer.Write(pattern.text);
  }

  // Writes the first element of the pattern; returns its length.
  std::size_t WriteNext(TextView pattern) {
    switch (AsciiLower(pattern.front())) {
      case u'd':
        return WriteDay(RunLength(pattern, ofLocale_ ? 4 : 6));
      case u'm':
        return WriteMonthOrMinute(RunLength(pattern, 4));
      case u'y':
        return WriteYear(RunLength(pattern, 4));
      case u'h':
        return WriteHour(RunLength(pattern, 2));
      case u'n':
        return WriteMinute(RunLength(pattern, 2));
      case u's':
        return WriteNumber(date_.second, RunLength(pattern, 2));
      case u'w':
        return WriteWeek(RunLength(pattern, 2));
      case u'q':
        return WriteNumber((date_.month + 2) / 3, 1);
      case u't':
        return WriteLongTime(pattern);
      case u'c':
        return WriteGeneralLetter(pattern);
      case u'a':
        return WriteAmPm(pattern);
      case u'/':
        sink_.Put(locale_.dateSeparator);
        return 1;
      case u':':
        sink_.Put(locale_.timeSeparator);
        return 1;
      case u'"':
      case u'\\':
        return WriteMarkedLiteral(pattern);
      default:
        return WriteLiteral(pattern);
    }
  }

  std::size_t WriteMarkedLiteral(TextView pattern) {
    TextView rest = pattern;
    TextView literal;
    TakeLiteral(rest, literal);
    sink_.Put(literal);
    return pattern.size() - rest.size();
  }

  std::size_t WriteLiteral(TextView pattern) {
    sink_.Put(pattern.front());
    return 1;
  }

  // A number below 1000 without leading zeros, or in two digits at least for two letters.
  std::size_t WriteNumber(std::int32_t number, std::size_t letters) {
    if (number >= 100) sink_.Put(static_cast<char16_t>(u'0' + number / 100));
    sink_.PutBelow100(number % 100, number >= 100 || letters == 2);
    return letters;
  }

  std::size_t WriteDay(std::size_t letters) {
    afterHour_ = false;
    const auto weekday = static_cast<std::size_t>(date_.weekday - 1);
    if (letters <= 2) {
      WriteNumber(date_.day, letters);
    } else if (letters == 3) {
      sink_.Put(locale_.dayAbbreviations[weekday]);
    } else if (letters == 4) {
      sink_.Put(locale_.dayNames[weekday]);
    } else if (letters == 5) {
      WriteOfLocale(DatePattern(locale_.shortDate), locale_.monthNames);
    } else {
      WriteOfLocale(DatePattern(locale_.longDate), locale_.monthNamesGenitive);
    }
    return letters;
  }

  std::size_t WriteMonthOrMinute(std::size_t letters) {
    const auto month = static_cast<std::size_t>(date_.month - 1);
    if (letters == 3) {
      sink_.Put(locale_.monthAbbreviations[month]);
    } else if (letters == 4) {
      sink_.Put((*monthNames_)[month]);
    } else if (afterHour_ && !minuteWritten_) {
      return WriteMinute(letters);
    } else {
      WriteNumber(date_.month, letters);
    }
    return letters;
  }

  // Three letters are two and one.
  std::size_t WriteYear(std::size_t letters) {
    if (letters == 1) return WriteNumber(date_.dayOfYear, 1);
    if (letters == 4) {
      WriteNumber(date_.year / 100, 2);
      WriteNumber(date_.year % 100, 2);
      return 4;
    }
    return WriteNumber(date_.year % 100, 2);
  }

  std::size_t WriteHour(std::size_t letters) {
    afterHour_ = true;
    const std::int32_t twelve = date_.hour % 12 == 0 ? 12 : date_.hour % 12;
    return WriteNumber(twelveHours_ ? twelve : date_.hour, letters);
  }

  std::size_t WriteMinute(std::size_t letters) {
    minuteWritten_ = true;
    return WriteNumber(date_.minute, letters);
  }

  // The week of 1 January is the first, weeks begin on Sunday.
  std::size_t WriteWeek(std::size_t letters) {
    if (letters == 1) return WriteNumber(date_.weekday, 1);
    const std::int32_t saturdayOfWeek = date_.dayOfYear + 7 - date_.weekday;
    WriteNumber((saturdayOfWeek + 6) / 7, 1);
    return letters;
  }

  std::size_t WriteLongTime(TextView pattern) {
    constexpr std::size_t kLetters = 5;
    if (ofLocale_ || RunLength(pattern, kLetters) < kLetters) return WriteLiteral(pattern);
    WriteOfLocale(DatePattern(locale_.longTime), locale_.monthNames);
    return kLetters;
  }

  std::size_t WriteGeneralLetter(TextView pattern) {
    if (ofLocale_) return WriteLiteral(pattern);
    WriteGeneral();
    return 1;
  }

  std::size_t WriteAmPm(TextView pattern) {
    const bool morning = date_.hour < 12;
    const bool lower = pattern.front() == u'a';
    std::size_t length = 0;
    switch (ReadAmPmMarker(pattern, length)) {
      case AmPmMarker::kNone:
        return WriteLiteral(pattern);
      case AmPmMarker::kAmPm:
        sink_.Put(lower ? (morning ? u"am" : u"pm") : (morning ? u"AM" : u"PM"));
        break;
      case AmPmMarker::kShort:
        sink_.Put(lower ? (morning ? u"a" : u"p") : (morning ? u"A" : u"P"));
        break;
      case AmPmMarker::kOfLocale:
        sink_.Put(morning ? locale_.morning : locale_.afternoon);
        break;
    }
    return length;
  }

  TextSink& sink_;
  const DateParts& date_;
  const Locale& locale_;
  const std::array<Text, 12>* monthNames_ = &locale_.monthNames;
  bool twelveHours_;
  bool ofLocale_ = false;
  bool afterHour_ = false;  // an hour was written and no day since: "m" means minutes
  bool minuteWritten_ = false;
};

bool NamesAmPm(TextView pattern) {
  TextView literal;
  std::size_t length = 0;
  while (!pattern.empty()) {
    if (TakeLiteral(pattern, literal)) continue;
    if (ReadAmPmMarker(pattern, length) != AmPmMarker::kNone) return true;
    pattern.remove_prefix(1);
  }
  return false;
}

}  // namespace

AmPmMarker ReadAmPmMarker(TextView pattern, std::size_t& length) {
  struct Word {
    TextView letters;
    AmPmMarker word;
  };
  if (pattern.empty() || AsciiLower(pattern.front()) != u'a') return AmPmMarker::kNone;
  constexpr Word kWords[] = {
      {u"am/pm", AmPmMarker::kAmPm}, {u"a/p", AmPmMarker::kShort}, {u"ampm", AmPmMarker::kOfLocale}};
  for (const Word& candidate : kWords) {
    if (!StartsWithWord(pattern, candidate.letters)) continue;
    length = candidate.letters.size();
    return candidate.word;
  }
  return AmPmMarker::kNone;
}

DatePattern::DatePattern(TextView pattern) : text(pattern), twelveHours(NamesAmPm(pattern)) {}

void AppendDate(Text& text, const DateParts& date, const DatePattern& pattern, const Locale& locale) {
  TextSink sink(text);
  DateWriter(sink, date, locale, pattern.twelveHours).Write(pattern.text);
  sink.Flush();
}

void AppendDate(Text& text, const DateParts& date, const Locale& locale) {
  TextSink sink(text);
  DateWriter(sink, date, locale, false).WriteGeneral();
  sink.Flush();
}

}  // namespace zorkanca
