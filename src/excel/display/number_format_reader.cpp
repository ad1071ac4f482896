#include "excel/display/number_format_reader.h"

#include <algorithm>

#include "runtime/convert.h"

namespace zorkanca::excel {

namespace {

constexpr TextView kGeneral = u"general";

bool StartsWithIgnoringCase(TextView text, TextView start) {
  return EqualsIgnoringCase(text.substr(0, start.size()), start);
}

// The system's numbers of languages; the low four digits of what a format names.
const Locale* LocaleOfNumber(TextView hexadecimal) {
  const Text low = UpperCase(hexadecimal.substr(hexadecimal.size() > 4 ? hexadecimal.size() - 4 : 0));
  const auto is = [&](TextView digits) { return low == digits || low == u"0" + Text(digits); };
  if (is(u"405")) return FindLocale(u"cs-CZ");
  if (is(u"41B")) return FindLocale(u"sk-SK");
  if (is(u"407")) return FindLocale(u"de-DE");
  return is(u"409") || is(u"809") ? FindLocale(u"en-US") : nullptr;
}

}  // namespace

std::vector<NumberFormat::Section> NumberFormatReader::Read() {
  std::vector<Section> sections;
  do {
    sections.push_back(ReadSection());
    if (!rest_.empty())
      rest_.remove_prefix(1);  // ";"
    else
      break;
  } while (sections.size() < 4);
  return sections;
}

NumberFormat::Section NumberFormatReader::ReadSection() {
  Section section;
  while (!rest_.empty() && rest_[0] != u';') ReadStep(section);
  SettleMinutes(section);
  SettleThousands(section);
  return section;
}

std::size_t NumberFormatReader::Run(char16_t letter) const {
  std::size_t length = 0;
  while (length < rest_.size() && LowerCase(rest_[length]) == letter) ++length;
  return length;
}

void NumberFormatReader::AddLiteral(Section& section, TextView text) {
  section.steps.push_back({.kind = StepKind::kLiteral, .text = Text(text)});
}

void NumberFormatReader::ReadStep(Section& section) {
  const char16_t unit = rest_[0];
  const auto pass = [this](std::size_t length) { rest_.remove_prefix(std::min(length, rest_.size())); };
  switch (unit) {
    case u'"': {
      const std::size_t end = std::min(rest_.find(u'"', 1), rest_.size());
      AddLiteral(section, rest_.substr(1, end - 1));
      return pass(end + 1);
    }
    case u'\\':
      AddLiteral(section, rest_.substr(1, 1));
      return pass(2);
    case u'_':
      AddLiteral(section, u" ");
      return pass(2);
    case u'*':
      return pass(2);
    case u'[':
      return ReadBracket(section);
    case u'@':
      section.hasText = true;
      section.steps.push_back({.kind = StepKind::kValueText});
      return pass(1);
    case u'%':
      ++section.percents;
      AddLiteral(section, u"%");
      return pass(1);
    default:
      break;
  }
  if (StartsWithIgnoringCase(rest_, kGeneral)) {
    section.isGeneral = true;
    section.steps.push_back({.kind = StepKind::kGeneral});
    return pass(kGeneral.size());
  }
  if (ReadNumberStep(section) || ReadDateStep(section)) return;
  if (unit == u'/' && section.isNumber) section.isFraction = true;
  AddLiteral(section, unit == u'/'   ? TextView(locale_.dateSeparator)
                      : unit == u':' ? TextView(locale_.timeSeparator)
                                     : rest_.substr(0, 1));
  pass(1);
}

// A colour, a condition, a currency with its locale, or an elapsed time.
void NumberFormatReader::ReadBracket(Section& section) {
  const std::size_t end = std::min(rest_.find(u']'), rest_.size());
  const TextView inside = rest_.substr(1, end - 1);
  rest_.remove_prefix(std::min(end + 1, rest_.size()));
  if (inside.starts_with(u'$')) {
    const TextView symbol = inside.substr(1, inside.find(u'-') - 1);
    if (!symbol.empty()) AddLiteral(section, symbol);
    const std::size_t dash = inside.find(u'-');
    if (dash != TextView::npos) section.names = LocaleOfNumber(inside.substr(dash + 1));
    return;
  }
  if (!inside.empty() && TextView(u"<>=").find(inside[0]) != TextView::npos) {
    const std::size_t length = inside.find_first_not_of(u"<>=");
    if (length != TextView::npos) section.condition = {Text(inside.substr(0, length)), Val(inside.substr(length))};
    return;
  }
  const Text letter = LowerCase(inside.substr(0, 1));
  const bool same = inside.find_first_not_of(letter + UpperCase(letter)) == TextView::npos;
  if (same && (letter == u"h" || letter == u"m" || letter == u"s")) {
    section.isDate = true;
    section.steps.push_back({.kind = StepKind::kElapsed, .text = letter, .width = inside.size()});
  }
}

bool NumberFormatReader::ReadNumberStep(Section& section) {
  const char16_t unit = rest_[0];
  const auto add = [&](Step step, std::size_t length) {
    section.steps.push_back(std::move(step));
    section.isNumber = true;
    rest_.remove_prefix(length);
    return true;
  };
  if (section.isDate && unit == u'.' && rest_.size() > 1 && rest_[1] == u'0') {
    std::size_t width = 1;
    while (1 + width < rest_.size() && rest_[1 + width] == u'0') ++width;
    section.steps.push_back({.kind = StepKind::kSecondFraction, .width = width});
    rest_.remove_prefix(1 + width);
    return true;
  }
  if (section.isDate) return false;
  if (unit == u'0' || unit == u'#' || unit == u'?') return add({.kind = StepKind::kDigit, .text = Text(1, unit)}, 1);
  if (unit == u'.') return add({.kind = StepKind::kPoint}, 1);
  if (unit == u',' && section.isNumber) return add({.kind = StepKind::kLiteral, .text = u","}, 1);  // settled later
  if (section.isNumber && rest_.size() > 1 && (unit == u'E' || unit == u'e') &&
      (rest_[1] == u'+' || rest_[1] == u'-')) {
    std::size_t width = 0;
    while (2 + width < rest_.size() && TextView(u"0#?").find(rest_[2 + width]) != TextView::npos) ++width;
    return add({.kind = StepKind::kExponent, .width = std::max<std::size_t>(width, 1), .plus = rest_[1] == u'+'},
               2 + width);
  }
  return false;
}

bool NumberFormatReader::ReadDateStep(Section& section) {
  const auto add = [&](StepKind kind, std::size_t length) {
    section.steps.push_back({.kind = kind, .text = Text(rest_.substr(0, length)), .width = length});
    section.isDate = true;
    rest_.remove_prefix(length);
    return true;
  };
  for (const TextView word : {TextView(u"am/pm"), TextView(u"a/p")}) {
    if (!StartsWithIgnoringCase(rest_, word)) continue;
    section.twelveHours = true;
    return add(StepKind::kAmPm, word.size());
  }
  switch (LowerCase(rest_[0])) {
    case u'y':
    case u'e':
      return add(StepKind::kYear, Run(LowerCase(rest_[0])));
    case u'm':
      return add(StepKind::kMonth, Run(u'm'));
    case u'd':
      section.hasDay = true;
      return add(StepKind::kDay, Run(u'd'));
    case u'h':
      return add(StepKind::kHour, Run(u'h'));
    case u's':
      return add(StepKind::kSecond, Run(u's'));
    default:
      return false;
  }
}

// An "m" behind hours or before seconds means minutes.
void NumberFormatReader::SettleMinutes(Section& section) {
  const auto isTime = [](const Step& step) {
    return step.kind == StepKind::kHour || (step.kind == StepKind::kElapsed && step.text == u"h");
  };
  Step* lastMonth = nullptr;
  bool afterHour = false;
  for (Step& step : section.steps) {
    if (step.kind == StepKind::kLiteral) continue;
    if (step.kind == StepKind::kMonth && step.width <= 2) {
      if (afterHour) step.kind = StepKind::kMinute;
      lastMonth = &step;
    } else {
      if ((step.kind == StepKind::kSecond || (step.kind == StepKind::kElapsed && step.text == u"s")) && lastMonth) {
        lastMonth->kind = StepKind::kMinute;
      }
      lastMonth = nullptr;
    }
    afterHour = isTime(step);
  }
}

// A comma between digits groups; those behind the last one divide by a thousand each.
void NumberFormatReader::SettleThousands(Section& section) {
  if (!section.isNumber) return;
  std::vector<Step> steps;
  for (std::size_t i = 0; i < section.steps.size(); ++i) {
    Step& step = section.steps[i];
    if (step.kind != StepKind::kLiteral || step.text != u",") {
      steps.push_back(std::move(step));
      continue;
    }
    std::size_t next = i + 1;
    while (next < section.steps.size() && section.steps[next].text == u",") ++next;
    const bool digitFollows = next < section.steps.size() && section.steps[next].kind == StepKind::kDigit;
    if (digitFollows) {
      section.grouped = true;
    } else {
      ++section.thousands;
    }
  }
  section.steps = std::move(steps);
}

}  // namespace zorkanca::excel
