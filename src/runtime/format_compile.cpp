// From a pattern's text to its compiled form.
#include <algorithm>
#include <utility>

#include "runtime/error.h"
#include "runtime/format_pattern.h"
#include "runtime/pattern_text.h"

namespace zorkanca {

namespace {

enum class PatternKind { kLiteral, kNumber, kDate, kText };

// The sections between ";" outside literals.
std::vector<TextView> SectionsOf(TextView pattern) {
  constexpr std::size_t kMostSections = 4;
  std::vector<TextView> sections;
  TextView section = pattern;
  TextView rest = pattern;
  TextView literal;
  while (!rest.empty()) {
    if (TakeLiteral(rest, literal)) continue;
    if (rest.front() == u';') {
      if (sections.size() + 1 == kMostSections) Raise(RuntimeError::kInvalidCall);
      sections.push_back(section.substr(0, section.size() - rest.size()));
      section = rest.substr(1);
    }
    rest.remove_prefix(1);
  }
  sections.push_back(section);
  return sections;
}

PatternKind KindOf(TextView section) {
  TextView literal;
  std::size_t length = 0;
  while (!section.empty()) {
    if (TakeLiteral(section, literal)) continue;
    const char16_t unit = AsciiLower(section.front());
    if (TextView(u"0#.").find(unit) != TextView::npos) return PatternKind::kNumber;
    if (TextView(u"dmyhnsqwc/:").find(unit) != TextView::npos) return PatternKind::kDate;
    if (TextView(u"@&<>!").find(unit) != TextView::npos) return PatternKind::kText;
    if (unit == u't' && RunLength(section, 5) == 5) return PatternKind::kDate;
    if (ReadAmPmMarker(section, length) != AmPmMarker::kNone) return PatternKind::kDate;
    section.remove_prefix(1);
  }
  return PatternKind::kLiteral;
}

// Steps are joined where they continue the one before: the work of a pattern is the number of its changes.
class NumberCompiler {
 public:
  NumberSection Compile(TextView pattern) {
    section_.given = !pattern.empty();
    TextView literal;
    while (!pattern.empty()) {
      if (TakeLiteral(pattern, literal)) {
        AddLiteral(literal);
      } else {
        pattern.remove_prefix(AddNext(pattern));
      }
    }
    if (!point_) section_.shift -= 3 * commas_;
    if (firstZero_ >= 0) section_.leastInteger = section_.integerPlaces - firstZero_;
    return std::move(section_);
  }

 private:
  // Adds the first element of the pattern; returns its length.
  std::size_t AddNext(TextView pattern) {
    switch (const char16_t unit = pattern.front()) {
      case u'0':
      case u'#':
        AddPlace(unit == u'0');
        return 1;
      case u'.':
        if (point_) break;
        point_ = true;
        section_.shift -= 3 * commas_;
        section_.steps.push_back({.kind = NumberStep::Kind::kPoint});
        return 1;
      case u',':
        if (!point_ && section_.integerPlaces == 0) break;
        if (point_) {
          section_.grouped = true;
        } else {
          ++commas_;  // scales, unless another place follows
        }
        return 1;
      case u'%':
        section_.shift += 2;
        break;
      case u'E':
      case u'e':
        if (pattern.size() > 1 && (pattern[1] == u'+' || pattern[1] == u'-')) return AddExponent(pattern);
        break;
      default:
        break;
    }
    AddLiteral(pattern.substr(0, 1));
    return 1;
  }

  void AddPlace(bool zero) {
    if (point_) {
      ++section_.fractionPlaces;
      if (zero) section_.leastFraction = section_.fractionPlaces;
      Extend(NumberStep::Kind::kFraction, 1);
      return;
    }
    if (commas_ > 0) section_.grouped = true;
    commas_ = 0;
    if (zero && firstZero_ < 0) firstZero_ = section_.integerPlaces;
    ++section_.integerPlaces;
    Extend(NumberStep::Kind::kInteger, 1);
  }

  std::size_t AddExponent(TextView pattern) {
    section_.scientific = true;
    const TextView zeros = pattern.substr(2, pattern.substr(2).find_first_not_of(u'0'));
    section_.steps.push_back({.kind = NumberStep::Kind::kExponent,
                              .size = zeros.size(),
                              .exponentMark = pattern[0],
                              .plusSign = pattern[1] == u'+'});
    return 2 + zeros.size();
  }

  void AddLiteral(TextView literal) {
    if (literal.empty()) return;
    section_.literals.append(literal);
    Extend(NumberStep::Kind::kLiteral, literal.size());
  }

  void Extend(NumberStep::Kind kind, std::size_t size) {
    if (section_.steps.empty() || section_.steps.back().kind != kind) section_.steps.push_back({.kind = kind});
    section_.steps.back().size += size;
  }

  NumberSection section_;
  bool point_ = false;
  std::int64_t commas_ = 0;      // since the last place before the point
  std::int64_t firstZero_ = -1;  // its index among the integer places
};

class TextCompiler {
 public:
  TextSection Compile(TextView pattern) {
    section_.given = !pattern.empty();
    TextView literal;
    while (!pattern.empty()) {
      if (!TakeLiteral(pattern, literal)) {
        literal = pattern.substr(0, 1);
        pattern.remove_prefix(1);
        if (AddMark(literal.front())) continue;
      }
      if (literal.empty()) continue;
      section_.literals.append(literal);
      Extend(TextStep::Kind::kLiteral, literal.size());
    }
    return std::move(section_);
  }

 private:
  bool AddMark(char16_t unit) {
    switch (unit) {
      case u'@':
      case u'&':
        Extend(unit == u'@' ? TextStep::Kind::kCharacterOrSpace : TextStep::Kind::kCharacterOrNothing, 1);
        ++section_.places;
        return true;
      case u'!':
        return section_.fromLeft = true;
      case u'<':
        return section_.lower = true;
      case u'>':
        return section_.upper = true;
      default:
        return false;
    }
  }

  void Extend(TextStep::Kind kind, std::size_t size) {
    if (section_.steps.empty() || section_.steps.back().kind != kind) section_.steps.push_back({.kind = kind});
    section_.steps.back().size += size;
  }

  TextSection section_;
};

NumberFormat CompileNumber(const std::vector<TextView>& sections) {
  constexpr std::size_t kUsed = 3;
  NumberFormat format;
  for (std::size_t index = 0; index < std::min(sections.size(), kUsed); ++index) {
    format.sections.push_back(NumberCompiler().Compile(sections[index]));
  }
  return format;
}

PlaceholderFormat CompilePlaceholders(const std::vector<TextView>& sections) {
  constexpr std::size_t kUsed = 2;
  PlaceholderFormat format;
  for (std::size_t index = 0; index < std::min(sections.size(), kUsed); ++index) {
    format.sections.push_back(TextCompiler().Compile(sections[index]));
  }
  return format;
}

DateFormat CompileDate(TextView section) {
  return {.pattern = Text(section), .twelveHours = DatePattern(section).twelveHours};
}

AnyFormat CompilePattern(TextView pattern) {
  if (pattern.empty()) return GeneralFormat();
  const std::vector<TextView> sections = SectionsOf(pattern);
  switch (KindOf(sections.front())) {
    case PatternKind::kNumber:
      return CompileNumber(sections);
    case PatternKind::kDate:
      return CompileDate(sections.front());
    case PatternKind::kText:
      return CompilePlaceholders(sections);
    case PatternKind::kLiteral:
      break;
  }
  LiteralFormat format{.forNumbers = CompileNumber(sections), .forTexts = CompilePlaceholders(sections)};
  format.forNumbers.signs = false;
  return format;
}

// A name that stands for a pattern, and the pattern.
struct NamedPattern {
  TextView name;
  TextView pattern;
};
constexpr NamedPattern kNamedPatterns[] = {
    {u"General Number", u""},        {u"Fixed", u"0.00"},
    {u"Standard", u"#,##0.00"},      {u"Percent", u"0.00%"},
    {u"Scientific", u"0.00E+00"},    {u"General Date", u"c"},
    {u"Short Date", u"ddddd"},       {u"Medium Date", u"dd-mmm-yy"},
    {u"Long Date", u"dddddd"},       {u"Short Time", u"hh:nn"},
    {u"Medium Time", u"hh:nn AMPM"}, {u"Long Time", u"ttttt"},
};

struct NamedWords {
  TextView name;
  TruthFormat format;
};
constexpr NamedWords kNamedWords[] = {
    {u"Yes/No", {&Locale::yes, &Locale::no}},
    {u"True/False", {&Locale::trueWord, &Locale::falseWord}},
    {u"On/Off", {&Locale::on, &Locale::off}},
};

AnyFormat Compile(TextView pattern) {
  if (EqualsIgnoringCase(pattern, u"Currency")) return CurrencyFormat{CompileNumber({u"#,##0.00"})};
  for (const NamedPattern& named : kNamedPatterns) {
    if (EqualsIgnoringCase(pattern, named.name)) return CompilePattern(named.pattern);
  }
  for (const NamedWords& named : kNamedWords) {
    if (EqualsIgnoringCase(pattern, named.name)) return named.format;
  }
  return CompilePattern(pattern);
}

}  // namespace

FormatPattern::FormatPattern(TextView pattern)
    : compiled_(std::make_unique<const Compiled>(Compiled{.format = Compile(pattern)})) {}

FormatPattern::FormatPattern(FormatPattern&&) noexcept = default;
FormatPattern& FormatPattern::operator=(FormatPattern&&) noexcept = default;
FormatPattern::~FormatPattern() = default;

}  // namespace zorkanca
