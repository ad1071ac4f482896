#include "formats/named_format.h"

#include <algorithm>
#include <array>
#include <span>

#include "formats/date_repair.h"
#include "foundation/number_separators.h"
#include "runtime/ascii.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr std::size_t kMostFormatsInARow = 100;

// Marks a code that is not of the building classification but of the one that replaced it.
constexpr char16_t kForeignCode = u'×';

struct CodeText {
  TextView code;
  TextView text;
};

// Kinds of movements in the asset register.
constexpr std::array<CodeText, 8> kMovementKinds = {{
    {u"10", u"zařazení"},
    {u"17", u"převod"},
    {u"97", u"převod - vyřazení"},
    {u"50", u"doúčtování"},
    {u"90", u"vyřazení (likvidace)"},
    {u"91", u"vyřazení (prodej)"},
    {u"92", u"vyřazení (darování)"},
    {u"93", u"vyřazení (manko, škoda)"},
}};

// Kinds of assets by the register in which they are kept; all others are long-term assets.
constexpr std::array<CodeText, 15> kRegisters = {{
    {u"DIM", u"DR"},
    {u"D", u"DR"},
    {u"DRM", u"DR"},
    {u"DR", u"DR"},
    {u"DM", u"DR"},
    {u"B", u"BU"},
    {u"BU", u"BU"},
    {u"BUD", u"BU"},
    {u"BUDO", u"BU"},
    {u"RENB", u"BU"},
    {u"P", u"PA"},
    {u"PA", u"PA"},
    {u"PAR", u"PA"},
    {u"PARC", u"PA"},
    {u"RENP", u"PA"},
}};
constexpr TextView kLongTermAssets = u"DL";

TextView TextOfCode(std::span<const CodeText> table, TextView code, TextView otherwise) {
  const auto found = std::find_if(table.begin(), table.end(), [&](const CodeText& row) { return row.code == code; });
  return found == table.end() ? otherwise : found->text;
}

// A code of the building classification in pairs of characters: 12345 is shown as 12.34.5.
Text BuildingCode(TextView value) {
  const Text code = Replace(TrimRight(value), u".", u"");
  Text shown;
  for (std::size_t index = 0; index < code.size(); ++index) {
    if (index > 0 && index % 2 == 0) shown.push_back(u'.');
    shown.push_back(code[index]);
  }
  return shown;
}

bool IsForeignCode(TextView value) {
  return Trim(value).starts_with(kForeignCode);
}

Text ForeignCode(TextView value) {
  return Text(Trim(value).substr(1));
}

Text WithoutInnerBlanks(TextView value, char16_t grouping) {
  Text result(Trim(value));
  std::erase_if(result, [&](char16_t unit) { return unit == u' ' || unit == grouping; });
  return result;
}

double NumberOf(TextView value, const Locale& locale) {
  const std::optional<double> number = ParseNumber(value, locale);
  return number ? *number : Val(value);  // databases write "1.5", which no comma locale reads
}

Text Agreement(TextView value) {
  if (value.empty()) return Text();
  if (value == u"-1") return u"U";
  return value == u"2" ? u"N" : u"R";
}

bool BeginsLikeANumber(TextView value) {
  value = TrimLeft(value);
  const TextView digits = value.substr(std::min(value.find_first_not_of(u"+-."), value.size()));
  return !digits.empty() && IsDigit(digits.front());
}

}  // namespace

NamedFormat::NamedFormat(TextView format, const Locale& locale) : grouping_(FindNumberSeparators(locale).grouping) {
  const Text lower = LowerCase(format);
  TextView rest = lower;
  for (bool more = true; more;) {
    if (steps_.size() == kMostFormatsInARow) Raise(RuntimeError::kInvalidCall, u"Too many formats in a row");
    if (rest.ends_with(u'$')) rest.remove_suffix(1);
    const std::size_t end = rest.find(u';');
    steps_.push_back(Compile(Text(rest.substr(0, end))));
    more = end != TextView::npos;
    if (more) rest.remove_prefix(end + 1);
  }
}

NamedFormat::Step NamedFormat::Compile(const Text& format) {
  struct Name {
    TextView name;
    Conversion conversion;
  };
  static constexpr std::array<Name, 23> kNames = {{
      {u"skp", Conversion::kBuildingCode},
      {u"skp*", Conversion::kBuildingCodeStar},
      {u"skp_nazev", Conversion::kBuildingCodeName},
      {u"odpskup", Conversion::kDepreciationGroup},
      {u"typ_odp", Conversion::kDepreciationKind},
      {u"shoda", Conversion::kAgreement},
      {u"0->''", Conversion::kZeroToSpace},
      {u"ltrim", Conversion::kTrimLeft},
      {u"rtrim", Conversion::kTrimRight},
      {u"trim", Conversion::kTrim},
      {u"intrim", Conversion::kTrimInside},
      {u"evidence", Conversion::kRegister},
      {u"a/n", Conversion::kYesNo},
      {u"katpoh", Conversion::kMovementKind},
      {u"dd.mm.yyyy*test", Conversion::kRepairedLongDate},
      {u"d.m.yyyy*test", Conversion::kRepairedShortDate},
      {u"2", Conversion::kUnchanged},
      {u"\"", Conversion::kUnchanged},
      {u"\"\"", Conversion::kUnchanged},
      {u"'", Conversion::kUnchanged},
      {u"''", Conversion::kUnchanged},
      {u"text", Conversion::kUnchanged},
      {u"", Conversion::kUnchanged},
  }};
  const auto found = std::find_if(kNames.begin(), kNames.end(), [&](const Name& row) { return row.name == format; });
  if (found != kNames.end()) return {.conversion = found->conversion, .pattern = std::nullopt};
  const bool forNumbers = format.find_first_of(u"#0") != Text::npos;
  return {.conversion = Conversion::kPattern,
          .readsPointNumbers = forNumbers && format.find(u'.') != Text::npos,
          .pattern = FormatPattern(format)};
}

Text NamedFormat::Convert(const Step& step, const Text& value, std::optional<double> number,
                          const Locale& locale) const {
  switch (step.conversion) {
    case Conversion::kUnchanged:
      return value;
    case Conversion::kBuildingCode:
      return IsForeignCode(value) ? ForeignCode(value) : BuildingCode(Trim(value));
    case Conversion::kBuildingCodeStar:
      return IsForeignCode(value) ? ForeignCode(value) + u"*" : BuildingCode(value);
    case Conversion::kBuildingCodeName:
      return IsForeignCode(value) ? u"CZCC: " + ForeignCode(value) : u"SKP: " + BuildingCode(value);
    case Conversion::kDepreciationGroup:
      return Trim(value) == u"11" ? u"1a" : Text(Trim(value));
    case Conversion::kDepreciationKind: {
      const TextView kind = Trim(value);
      return kind == u"4" ? u"R" : kind == u"5" ? u"M" : Text(kind);
    }
    case Conversion::kAgreement:
      return Agreement(value);
    case Conversion::kZeroToSpace:
      return Trim(value) == u"0" ? u" " : value;
    case Conversion::kTrimLeft:
      return Text(TrimLeft(value));
    case Conversion::kTrimRight:
      return Text(TrimRight(value));
    case Conversion::kTrim:
      return Text(Trim(value));
    case Conversion::kTrimInside:
      return WithoutInnerBlanks(value, grouping_);
    case Conversion::kRegister:
      return Text(TextOfCode(kRegisters, UpperCase(value), kLongTermAssets));
    case Conversion::kYesNo:
      return (number ? *number : NumberOf(value, locale)) == 0 ? u"N" : u"A";
    case Conversion::kMovementKind:
      return Text(TextOfCode(kMovementKinds, value, {}));
    case Conversion::kRepairedLongDate:
      return RepairedDateText(value, u"dd.mm.yyyy", locale);
    case Conversion::kRepairedShortDate:
      return RepairedDateText(value, u"d.m.yyyy", locale);
    case Conversion::kPattern:
      break;
  }
  // Databases write "12.5", which the locale may read as a day and a month.
  const bool pointNumber = step.readsPointNumbers && value.find(u'.') != Text::npos && BeginsLikeANumber(value);
  return step.pattern->Apply(pointNumber ? Value(Val(value)) : Value(value), locale);
}

Text NamedFormat::Apply(const FormattedValue& value, const Locale& locale) const {
  Text result(value.text);
  for (const Step& step : steps_) {
    const bool isUnchanged = value.number && result == value.text;
    result = Convert(step, result, isUnchanged ? value.number : std::nullopt, locale);
  }
  if (result.empty()) result = u" ";
  return result;
}

}  // namespace zorkanca
