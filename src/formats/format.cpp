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
  const Text text = ToText(value, locale_);
  if (cases) return cases->Apply(text, locale_);
  const auto* named = std::get_if<NamedFormat>(&rules_);
  return named ? named->Apply(text, locale_) : text;
}

}  // namespace zorkanca
