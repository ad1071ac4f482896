#include "excel/tables/local_names.h"

#include <algorithm>
#include <array>

namespace zorkanca::excel {

namespace {

struct LocalNames {
  TextView language;
  TextView workbook;
  TextView sheet;
  TextView column;
};
constexpr std::array kNames = std::to_array<LocalNames>({
    {u"cs", u"Sešit", u"List", u"Sloupec"},
    {u"sk", u"Zošit", u"Hárok", u"Stĺpec"},
    {u"de", u"Mappe", u"Tabelle", u"Spalte"},
    {u"en", u"Book", u"Sheet", u"Column"},
});

const LocalNames& NamesOf(const Locale& locale) {
  const auto* found = std::find_if(kNames.begin(), kNames.end(),
                                   [&](const LocalNames& names) { return locale.tag.starts_with(names.language); });
  return found == kNames.end() ? kNames.back() : *found;
}

}  // namespace

Text NewWorkbookName(const Locale& locale) {
  return Text(NamesOf(locale).workbook);
}

Text NewSheetName(const Locale& locale) {
  return Text(NamesOf(locale).sheet);
}

Text NewColumnName(const Locale& locale) {
  return Text(NamesOf(locale).column);
}

}  // namespace zorkanca::excel
