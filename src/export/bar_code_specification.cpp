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

std::unique_ptr<cBarCode> TakeBarCode(Text& names, const Locale& locale) {
  const std::optional<Text> specification = TakeBarCodeSpecification(names);
  if (!specification) return nullptr;
  auto barCode = std::make_unique<cBarCode>(locale);
  barCode->ParseParameters(*specification);
  return barCode;
}

}  // namespace zorkanca
