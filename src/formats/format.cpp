#include "formats/format.h"

#include <utility>

#include "runtime/convert.h"

namespace zorkanca {

void cFormat::format(TextView format) {
  std::variant<std::monostate, NamedFormat, CaseTable> rules;
  if (CaseTable::IsCaseTable(format)) {
    rules.emplace<CaseTable>(format, locale_);
  } else if (!format.empty()) {
    rules.emplace<NamedFormat>(format, locale_);
  }
  rules_ = std::move(rules);
  format_ = format;
}

Text cFormat::Apply(const Value& value) const {
  const auto* cases = std::get_if<CaseTable>(&rules_);
  if (IsNull(value)) return cases ? cases->ApplyToNull(locale_) : Text();
  Text text = ToText(value, locale_);
  FormattedValue formatted{.text = text};
  if (const bool* truth = std::get_if<bool>(&value)) formatted.number = *truth ? -1 : 0;
  if (cases) return cases->Apply(formatted, locale_);
  const auto* named = std::get_if<NamedFormat>(&rules_);
  return named ? named->Apply(formatted, locale_) : text;
}

}  // namespace zorkanca
