#include "word/fields/number_picture.h"

#include <algorithm>
#include <cmath>

#include "runtime/ascii.h"
#include "runtime/convert.h"
#include "runtime/decimal_digits.h"
#include "runtime/digit_writer.h"
#include "runtime/text_sink.h"
#include "word/fields/number_text.h"

namespace zorkanca::word {

namespace {

bool IsSpace(char16_t unit) {
  return unit == u' ' || unit == u'\u00A0' || unit == u'\u202F';
}

}  // namespace

std::optional<double> NumberOf(TextView text, const Locale& locale) {
  Text digits;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool between = i > 0 && i + 1 < text.size() && IsDigit(text[i - 1]) && IsDigit(text[i + 1]);
    if (!(between && IsSpace(text[i]))) digits += text[i];
  }
  const std::optional<double> number = ParseNumber(digits, locale);
  return number && std::isfinite(*number) ? number : std::nullopt;
}

NumberPicture::NumberPicture(TextView picture, const Locale& locale) {
  std::size_t start = 0;
  bool quoted = false;
  for (std::size_t i = 0; i <= picture.size(); ++i) {
    if (i < picture.size() && picture[i] == u'\'') quoted = !quoted;
    if (i < picture.size() && (picture[i] != u';' || quoted)) continue;
    sections_.push_back(Compile(picture.substr(start, i - start), locale));
    start = i + 1;
  }
}

NumberPicture::Section NumberPicture::Compile(TextView text, const Locale& locale) {
  const std::size_t lastDot = text.rfind(u'.');
  const std::size_t lastComma = text.rfind(u',');
  const bool both = lastDot != text.npos && lastComma != text.npos;
  const char16_t decimal = locale.decimalSeparator.empty() ? u'.' : locale.decimalSeparator.front();
  const char16_t group = locale.groupSeparator.empty() ? u',' : locale.groupSeparator.front();
  std::size_t point = both ? std::max(lastDot, lastComma) : text.find(decimal);
  if (!both && point == text.npos && group != u'.') point = lastDot;
  Section section;
  const auto isItem = [](char16_t unit) { return unit == u'0' || unit == u'#' || unit == u'x'; };
  const auto isGroup = [&](std::size_t i) {
    const char16_t unit = text[i];
    const bool separates = unit == group || (IsSpace(unit) && IsSpace(group)) || unit == u',' || unit == u'.';
    return separates && i > 0 && isItem(text[i - 1]) && i + 1 < text.size() && isItem(text[i + 1]);
  };
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    const bool behind = point != text.npos && i > point;
    Kind kind = Kind::kLiteral;
    if (unit == u'\'') {
      quoted = !quoted;
      continue;
    }
    if (quoted) {
      kind = Kind::kLiteral;
    } else if (i == point) {
      kind = Kind::kPoint;
    } else if (unit == u'x' && !behind) {
      kind = Kind::kCut;
      section.cut = true;
      ++section.wholeDigits;
    } else if (isItem(unit)) {
      kind = unit == u'#' ? Kind::kBlankDigit : Kind::kZeroDigit;
      ++(behind ? section.decimals : section.wholeDigits);
    } else if (unit == u'+' || unit == u'-') {
      kind = unit == u'+' ? Kind::kPlus : Kind::kMinus;
      section.showsSign = true;
    } else if (!behind && isGroup(i)) {
      kind = Kind::kGroup;
      section.grouped = true;
    }
    section.items.push_back({kind, unit});
  }
  return section;
}

Text NumberPicture::Apply(double number, const Locale& locale) const {
  if (number < 0 && sections_.size() > 1) return Show(sections_[1], number, false, locale);
  if (number == 0 && sections_.size() > 2) return Show(sections_[2], number, false, locale);
  return Show(sections_[0], number, true, locale);
}

Text NumberPicture::Show(const Section& section, double number, bool ownSign, const Locale& locale) {
  constexpr int kSignificant = 14;
  DecimalDigits digits = DigitsOf(number, kSignificant);
  RoundToDecimals(digits, section.decimals, RoundingMode::kHalfAwayFromZero);
  const std::int64_t places = section.wholeDigits;
  // Digits of the whole part that show; the first item takes those that have no item of their own.
  const std::int64_t whole = section.cut || places == 0 ? std::min(digits.point, places) : digits.point;
  Text result;
  TextSink sink(result);
  DigitWriter writer(sink, digits, section.grouped ? TextView(locale.groupSeparator) : TextView());
  if (ownSign && number < 0 && !section.showsSign && places > 0) sink.Put(u'-');
  std::int64_t place = places;  // digit items of the whole part still to come
  std::int64_t decimal = 0;
  bool behind = false;
  for (const Item& item : section.items) {
    const bool mayBeBlank = item.kind == Kind::kBlankDigit;
    switch (item.kind) {
      case Kind::kPlus:
        sink.Put(number < 0 ? u'-' : number > 0 ? u'+' : u' ');
        break;
      case Kind::kMinus:
        sink.Put(number < 0 ? u'-' : u' ');
        break;
      case Kind::kGroup:
        break;
      case Kind::kPoint:
        sink.Put(locale.decimalSeparator);
        behind = true;
        break;
      case Kind::kLiteral:
        sink.Put(item.unit);
        break;
      default:
        if (behind) {
          if (mayBeBlank && decimal >= writer.Decimals()) {
            sink.Put(u' ');
          } else {
            writer.PutFraction(decimal, decimal + 1);
          }
          ++decimal;
          break;
        }
        if (place == places) writer.PutInteger(whole - 1, places);
        --place;
        if (mayBeBlank && place >= whole) {
          sink.Put(u' ');
        } else {
          writer.PutInteger(place, place);
        }
    }
  }
  sink.Flush();
  return result;
}

}  // namespace zorkanca::word
