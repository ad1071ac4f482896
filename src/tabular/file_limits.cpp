#include "tabular/file_limits.h"

#include "tabular/text_window.h"

namespace zorkanca {

namespace {

Text Number(std::size_t number) {
  return DecimalText(static_cast<std::int64_t>(number));
}

}  // namespace

Text MostColumnsText() {
  return u"there are more than " + Number(kMostColumns) + u" columns";
}

Text LongestColumnNameText() {
  return u"the name of a column is longer than " + Number(kLongestColumnName) + u" bytes";
}

Text LongestRecordText() {
  return u"the record is longer than " + Number(TextWindow::kLongestRecord >> 20) + u" MiB";
}

Text DeepestNestingText() {
  return u"more than " + Number(kDeepestNesting) + u" arrays and objects stand within each other";
}

Text NulText(TextEncoding encoding) {
  const Text nul = u"a NUL character stands in the text";
  const bool isUtf16 = encoding == TextEncoding::kUtf16LittleEndian || encoding == TextEncoding::kUtf16BigEndian;
  return isUtf16 ? nul : nul + u"; UTF-16 without a byte-order mark is read with --encoding utf-16";
}

Text NoCharacterText(TextEncoding encoding) {
  if (encoding != TextEncoding::kUtf8) return u"the text is not valid UTF-16";
  return u"the text is not valid UTF-8; that of the ANSI page is read with --encoding ansi";
}

}  // namespace zorkanca
