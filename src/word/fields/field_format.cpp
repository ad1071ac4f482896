#include "word/fields/field_format.h"

#include "runtime/convert.h"
#include "word/fields/field_messages.h"
#include "word/fields/formula.h"
#include "word/fields/number_text.h"

namespace zorkanca::word {

namespace {

Text InCase(TextView text, CaseFormat format) {
  switch (format) {
    case CaseFormat::kUpper:
      return UpperCase(text);
    case CaseFormat::kLower:
      return LowerCase(text);
    default:
      break;
  }
  Text result(text);
  bool first = true;
  for (char16_t& unit : result) {
    const bool blank = unit <= u' ' || unit == u'\u00A0';
    if (!blank && first) unit = UpperCase(unit);
    first = blank && (first || format == CaseFormat::kCaps);
  }
  return result;
}

}  // namespace

Text FieldFormat::Apply(TextView value, const Locale& locale) const {
  if (argumentMissing) return Text(kMissingArgument);
  Text result(value);
  if (number) {
    if (const auto spelled = NumberOf(value, locale)) result = number->Apply(*spelled, locale);
  } else if (date) {
    if (const auto spelled = ParseDate(value, locale)) result = date->Apply(*spelled, language ? *language : locale);
  }
  return InCases(std::move(result));
}

Text FieldFormat::Apply(double value, const Locale& locale) const {
  if (argumentMissing) return Text(kMissingArgument);
  return InCases(number ? number->Apply(value, locale) : FormulaNumberText(value, locale));
}

Text FieldFormat::InCases(Text text) const {
  for (const CaseFormat each : cases) text = InCase(text, each);
  return text;
}

bool AddGeneralSwitch(FieldFormat& format, TextView word) {
  const auto is = [&](TextView name) { return EqualsIgnoringCase(word, name); };
  if (is(u"MERGEFORMAT")) {
    format.runs = ResultRuns::kOfOldResult;
  } else if (is(u"CHARFORMAT")) {
    format.runs = ResultRuns::kOfCode;
  } else if (is(u"Upper")) {
    format.cases.push_back(CaseFormat::kUpper);
  } else if (is(u"Lower")) {
    format.cases.push_back(CaseFormat::kLower);
  } else if (is(u"FirstCap")) {
    format.cases.push_back(CaseFormat::kFirstCap);
  } else if (is(u"Caps")) {
    format.cases.push_back(CaseFormat::kCaps);
  } else {
    return is(u"Arabic");
  }
  return true;
}

}  // namespace zorkanca::word
