#include "export/bar_code_specification.h"

namespace zorkanca {

std::optional<Text> TakeBarCodeSpecification(Text& names) {
  const std::size_t open = names.find(u'{');
  if (open == Text::npos) return std::nullopt;
  const TextView rest = TextView(names).substr(open + 1);
  Text specification(Trim(rest.substr(0, rest.find(u'}'))));
  TextView before = Trim(TextView(names).substr(0, open));
  if (before.ends_with(u',')) before.remove_suffix(1);
  names = Text(before);
  return specification;
}

std::optional<cBarCode> TakeBarCode(Text& names, const Locale& locale) {
  std::optional<cBarCode> barCode;
  if (const std::optional<Text> specification = TakeBarCodeSpecification(names)) {
    barCode.emplace(locale).ParseParameters(*specification);
  }
  return barCode;
}

}  // namespace zorkanca
