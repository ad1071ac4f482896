#include "word/fields/number_picture.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "runtime/ascii.h"
#include "runtime/convert.h"
#include "word/fields/number_text.h"

namespace zorkanca::word {

namespace {

bool IsSpace(char16_t unit) {
  return unit == u' ' || unit == u'\u00A0' || unit == u'\u202F';
}

// Decimal digits of a number: whole part and decimals, rounded half up.
struct Digits {
  std::string whole;
  std::string decimals;
};

Digits DigitsOf(double number, std::size_t decimals) {
  constexpr int kSignificant = 14;
  char buffer[64];
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, std::fabs(number), std::chars_format::scientific, kSignificant - 1);
  const std::string text(buffer, end.ptr);
  const std::size_t mark = text.find('e');
  int exponent = 0;
  const char* digitsOfExponent = text.data() + mark + (text[mark + 1] == '+' ? 2 : 1);
  std::from_chars(digitsOfExponent, text.data() + text.size(), exponent);
  std::string all = text.substr(0, 1) + text.substr(2, mark - 2);  // d.ddd
  // Lay the digits out as a plain number with room for a carry.
  std::string plain = "0";
  std::size_t point = 1;
  if (exponent >= 0) {
    plain += all;
    point += static_cast<std::size_t>(exponent) + 1;
  } else {
    plain += std::string(static_cast<std::size_t>(-exponent), '0') + all;
    point += 1;
  }
  const std::size_t wanted = point + decimals;
  if (plain.size() < wanted + 1) plain.append(wanted + 1 - plain.size(), '0');
  if (plain[wanted] >= '5') {
    std::size_t i = wanted;
    while (plain[--i] == '9') plain[i] = '0';
    ++plain[i];
  }
  std::string whole = plain.substr(0, point);
  whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
  return {whole, plain.substr(point, decimals)};
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
  Digits digits = DigitsOf(number, section.decimals);
  const std::size_t places = section.wholeDigits;
  if ((section.cut || places == 0) && digits.whole.size() > places) {
    digits.whole.erase(0, digits.whole.size() - places);
  }
  Text result;
  if (ownSign && number < 0 && !section.showsSign && places > 0) result += u'-';
  std::size_t place = places;  // digit items of the whole part still to come
  std::size_t decimal = 0;
  bool behind = false;
  const auto appendDigit = [&](std::size_t fromRight) {
    result += static_cast<char16_t>(digits.whole[digits.whole.size() - 1 - fromRight]);
    if (section.grouped && fromRight > 0 && fromRight % 3 == 0) result += locale.groupSeparator;
  };
  for (const Item& item : section.items) {
    switch (item.kind) {
      case Kind::kPlus:
        result += number < 0 ? u'-' : number > 0 ? u'+' : u' ';
        break;
      case Kind::kMinus:
        result += number < 0 ? u'-' : u' ';
        break;
      case Kind::kGroup:
        break;
      case Kind::kPoint:
        result += locale.decimalSeparator;
        behind = true;
        break;
      case Kind::kLiteral:
        result += item.unit;
        break;
      default:
        if (behind) {
          const bool zeros = digits.decimals.find_first_not_of('0', decimal) == std::string::npos;
          const char digit = digits.decimals[decimal++];
          result += item.kind == Kind::kBlankDigit && zeros ? u' ' : static_cast<char16_t>(digit);
          break;
        }
        if (place == places) {  // the first item takes all digits that have no item of their own
          for (std::size_t i = digits.whole.size(); i > places; --i) appendDigit(i - 1);
        }
        --place;
        if (place < digits.whole.size()) {
          appendDigit(place);
        } else if (item.kind == Kind::kBlankDigit) {
          result += u' ';
        } else {
          result += u'0';
          if (section.grouped && place > 0 && place % 3 == 0) result += locale.groupSeparator;
        }
    }
  }
  return result;
}

}  // namespace zorkanca::word
