#include "foundation/number_separators.h"

#include "runtime/format.h"

namespace zorkanca {

NumberSeparators FindNumberSeparators(const Locale& locale) {
  const Text sample = Format(Text(u"1234"), u"#,##0.00", locale);
  const auto at = [&](std::size_t index) { return index < sample.size() ? sample[index] : u' '; };
  const bool grouped = at(1) < u'0' || at(1) > u'9';
  return {.grouping = grouped ? at(1) : u' ', .decimal = at(grouped ? 5 : 4)};
}

}  // namespace zorkanca
