#include "word/fields/date_picture.h"

#include <algorithm>

#include "runtime/date.h"

namespace zorkanca::word {

namespace {

// How many letters of an item count; "MMMMM" is four and one more.
std::size_t LongestOf(char16_t letter) {
  switch (letter) {
    case u'd':
    case u'M':
    case u'y':
      return 4;
    case u'h':
    case u'H':
    case u'm':
    case u's':
      return 2;
    default:
      return 0;
  }
}

}  // namespace

DatePicture::DatePicture(TextView picture) {
  const auto literal = [this](TextView text) {
    if (items_.empty() || items_.back().letter != 0) items_.emplace_back();
    items_.back().literal += text;
  };
  for (std::size_t i = 0; i < picture.size();) {
    const char16_t letter = picture[i] == u'D' ? u'd' : picture[i] == u'Y' ? u'y' : picture[i];
    const std::size_t longest = LongestOf(letter);
    if (letter == u'\'') {
      const std::size_t end = std::min(picture.find(u'\'', i + 1), picture.size());
      literal(picture.substr(i + 1, end - i - 1));
      i = end + 1;
    } else if (EqualsIgnoringCase(picture.substr(i, 5), u"am/pm")) {
      items_.push_back({u'p', 1, Text()});
      i += 5;
    } else if (longest > 0) {
      std::size_t count = 1;
      while (count < longest && i + count < picture.size() && picture[i + count] == picture[i]) ++count;
      hasDay_ = hasDay_ || (letter == u'd' && count <= 2);
      items_.push_back({letter, count, Text()});
      i += count;
    } else {
      literal(picture.substr(i++, 1));
    }
  }
}

Text DatePicture::Apply(Date date, const Locale& language) const {
  const DateParts parts = Disassemble(date);
  const auto day = static_cast<std::size_t>(parts.weekday - 1);
  const auto month = static_cast<std::size_t>(parts.month - 1);
  const std::int32_t hourOfTwelve = (parts.hour + 11) % 12 + 1;
  Text result;
  for (const Item& item : items_) {
    switch (item.letter) {
      case u'd':
        if (item.count <= 2) AppendPadded(result, parts.day, item.count);
        if (item.count == 3) result += language.dayAbbreviations[day];
        if (item.count == 4) result += language.dayNames[day];
        break;
      case u'M':
        if (item.count <= 2) AppendPadded(result, parts.month, item.count);
        if (item.count == 3) result += language.monthAbbreviations[month];
        if (item.count == 4) result += (hasDay_ ? language.monthNamesGenitive : language.monthNames)[month];
        break;
      case u'y':
        AppendPadded(result, item.count <= 2 ? parts.year % 100 : parts.year, item.count <= 2 ? 2 : 4);
        break;
      case u'h':
        AppendPadded(result, hourOfTwelve, item.count);
        break;
      case u'H':
        AppendPadded(result, parts.hour, item.count);
        break;
      case u'm':
        AppendPadded(result, parts.minute, item.count);
        break;
      case u's':
        AppendPadded(result, parts.second, item.count);
        break;
      case u'p':
        result += parts.hour < 12 ? language.morning : language.afternoon;
        break;
      default:
        result += item.literal;
    }
  }
  return result;
}

}  // namespace zorkanca::word
