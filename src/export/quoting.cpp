#include "export/quoting.h"

#include "export/column_names.h"

namespace zorkanca {

namespace {

constexpr char16_t kQuote = u'"';

// Nearly every value holds none of these; the loop has no early end, so that the compiler can take many units at once.
bool HoldsSpecialUnits(TextView value) {
  bool special = false;
  for (const char16_t unit : value) special |= unit == kQuote || unit == kExportSeparator || unit == u'\r';
  return special;
}

void AppendDoubled(Text& line, TextView value) {
  for (const char16_t unit : value) {
    if (unit == kQuote) line.push_back(kQuote);
    line.push_back(unit);
  }
}

}  // namespace

void AppendEnclosedValue(Text& line, TextView value) {
  line.push_back(kQuote);
  AppendDoubled(line, value);
  line.push_back(kQuote);
}

void AppendQuotedValue(Text& line, TextView value) {
  const bool encloses = HoldsSpecialUnits(value) &&
                        (value.find(kQuote) != TextView::npos || value.find(kExportSeparator) != TextView::npos ||
                         value.find(kCrLf) != TextView::npos);
  if (encloses) {
    AppendEnclosedValue(line, value);
  } else {
    line.append(value);
  }
}

void AppendQuotedIfHasQuotes(Text& line, TextView value) {
  if (value.find(kQuote) == TextView::npos) {
    line.append(value);
  } else {
    AppendEnclosedValue(line, value);
  }
}

}  // namespace zorkanca
