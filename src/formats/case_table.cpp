#include "formats/case_table.h"

#include "runtime/collation.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/like.h"

namespace zorkanca {

namespace {

constexpr TextView kCase = u"case ";

bool BeginsWith(TextView text, TextView lowerCaseStart) {
  return EqualsIgnoringCase(text.substr(0, lowerCaseStart.size()), lowerCaseStart);
}

// The text without one apostrophe at its start and one at its end.
TextView WithoutApostrophes(TextView text) {
  if (text.starts_with(u'\'')) text.remove_prefix(1);
  if (text.ends_with(u'\'')) text.remove_suffix(1);
  return text;
}

bool IsBetweenApostrophes(TextView text) {
  return text.size() >= 2 && text.front() == u'\'' && text.back() == u'\'';
}

// A number of the locale, or one with a decimal point as programs write it.
std::optional<double> ReadNumber(TextView text, const Locale& locale) {
  if (const std::optional<double> number = ParseNumber(text, locale)) return number;
  const Text local = Replace(text, u".", locale.decimalSeparator);
  return ParseNumber(local, locale);
}

}  // namespace

bool CaseTable::IsCaseTable(TextView format) {
  return BeginsWith(TrimLeft(format), kCase);
}

CaseTable::CaseTable(TextView format, const Locale& locale) {
  const TextView entries = TrimLeft(TrimLeft(format).substr(kCase.size() - 1));
  const Text lower = LowerCase(entries);  // same length: one unit for one
  std::size_t start = 0;
  for (std::size_t next = 0; next != Text::npos; start = next + kCase.size()) {
    next = lower.find(kCase, start);
    entries_.push_back(ReadEntry(Trim(entries.substr(start, next == Text::npos ? next : next - start)), locale));
  }
  entries_.back().isElse =
      entries_.back().kind == Kind::kTrimmed && EqualsIgnoringCase(entries_.back().operand, u"else");
}

CaseTable::Entry CaseTable::ReadEntry(TextView text, const Locale& locale) {
  const std::size_t colon = text.find(u':');
  if (colon == TextView::npos) {
    Raise(RuntimeError::kInvalidCall, u"No \":\" in the format entry \"case " + Text(text) + u"\"");
  }
  Entry entry;
  ReadCondition(entry, Trim(text.substr(0, colon)), locale);
  ReadResult(entry, Trim(text.substr(colon + 1)), locale);
  return entry;
}

void CaseTable::ReadCondition(Entry& entry, TextView condition, const Locale& locale) {
  struct Operator {
    TextView sign;
    Kind kind;
  };
  static constexpr Operator kOperators[] = {
      {u"<=", Kind::kLessOrEqual}, {u"<", Kind::kLess}, {u">=", Kind::kGreaterOrEqual}, {u">", Kind::kGreater}};

  if (EqualsIgnoringCase(condition, u"null")) {
    entry.kind = Kind::kNull;
    return;
  }
  if (BeginsWith(condition, u"like ") || BeginsWith(condition, u"like'")) {
    entry.kind = Kind::kLike;
    entry.operand = LowerCase(WithoutApostrophes(TrimLeft(condition.substr(4))));
    Like(u"", entry.operand);  // a pattern that is none shall fail now, not at some value
    return;
  }
  for (const Operator& each : kOperators) {
    if (!condition.starts_with(each.sign)) continue;
    const TextView operand = TrimLeft(condition.substr(each.sign.size()));
    entry.kind = each.kind;
    entry.comparesTexts = IsBetweenApostrophes(operand);
    entry.operand = entry.comparesTexts ? WithoutApostrophes(operand) : operand;
    if (!entry.comparesTexts) entry.number = ReadNumber(operand, locale);
    return;
  }
  entry.kind = IsBetweenApostrophes(condition) ? Kind::kExactly : Kind::kTrimmed;
  entry.operand = entry.kind == Kind::kExactly ? WithoutApostrophes(condition) : condition;
}

void CaseTable::ReadResult(Entry& entry, TextView result, const Locale& locale) {
  entry.result = WithoutApostrophes(result);
  constexpr TextView kFormatted = u"@;";
  if (entry.result.starts_with(kFormatted)) {
    entry.resultFormat.emplace(TextView(entry.result).substr(kFormatted.size()), locale);
  }
}

bool CaseTable::Matches(const Entry& entry, const FormattedValue& value, const Locale& locale) {
  // The order of value and operand; nothing when they are not of one kind, so that no comparison holds.
  const auto order = [&]() -> std::optional<int> {
    if (entry.comparesTexts) return CompareBinary(value.text, entry.operand);
    const std::optional<double> number = value.number ? value.number : ReadNumber(value.text, locale);
    if (!number || !entry.number) return std::nullopt;
    return *number < *entry.number ? -1 : *number > *entry.number ? 1 : 0;
  };
  switch (entry.kind) {
    case Kind::kNull:
      return false;
    case Kind::kLike:
      return Like(LowerCase(value.text), entry.operand);
    case Kind::kLess:
      return order() == -1;
    case Kind::kLessOrEqual:
      return order().value_or(1) <= 0;
    case Kind::kGreater:
      return order() == 1;
    case Kind::kGreaterOrEqual:
      return order().value_or(-1) >= 0;
    case Kind::kExactly:
      return value.text == entry.operand;
    case Kind::kTrimmed:
      return Trim(value.text) == entry.operand;
  }
  return false;
}

Text CaseTable::ResultOf(const Entry& entry, const FormattedValue& value, const Locale& locale) {
  if (entry.resultFormat) return entry.resultFormat->Apply(value, locale);
  return entry.result == u"@" ? Text(value.text) : entry.result;
}

// Of the last entry, when it stands for all that no other one fits.
Text CaseTable::ElseResult(const FormattedValue& value, const Locale& locale) const {
  return entries_.back().isElse ? ResultOf(entries_.back(), value, locale) : Text();
}

Text CaseTable::Apply(const FormattedValue& value, const Locale& locale) const {
  for (const Entry& entry : entries_) {
    if (Matches(entry, value, locale)) return ResultOf(entry, value, locale);
  }
  return ElseResult(value, locale);
}

Text CaseTable::ApplyToNull(const Locale& locale) const {
  for (const Entry& entry : entries_) {
    if (entry.kind == Kind::kNull) return ResultOf(entry, {}, locale);
  }
  return ElseResult({}, locale);
}

}  // namespace zorkanca
