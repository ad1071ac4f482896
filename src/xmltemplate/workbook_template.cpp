#include "xmltemplate/workbook_template.h"

#include <utility>

#include "runtime/convert.h"
#include "runtime/error.h"
#include "xmltemplate/markers.h"
#include "xmltemplate/template_text.h"

namespace zorkanca {

namespace {

// The key in brackets behind the name's symbol, within the attribute's value.
Text KeyOf(TextView sheet) {
  const std::size_t symbol = FindIgnoringCase(sheet, SymbolText(WorksheetNameSymbol));
  if (symbol == TextView::npos) return {};
  TextView value = sheet.substr(symbol);
  value = value.substr(0, value.find(u'"'));
  const std::size_t opening = value.find(u'(');
  const std::size_t closing = opening == TextView::npos ? opening : value.find(u')', opening);
  if (closing == TextView::npos) return {};
  return Text(Trim(value.substr(opening + 1, closing - opening - 1)));
}

}  // namespace

WorkbookTemplate::WorkbookTemplate(Text text) : text_(std::make_shared<const Text>(std::move(text))) {
  TextView rest = *text_;
  while (const auto begin = FindInstruction(rest, SymbolText(WorksheetBeginSymbol))) {
    if (header_.empty()) header_ = TrimTrailingBlankLines(rest.substr(0, begin->start));
    TemplateSheet& sheet = sheets_.emplace_back();
    sheet.text = TrimLeadingBlankLines(rest.substr(begin->end));
    const auto end = FindInstruction(sheet.text, SymbolText(WorksheetEndSymbol));
    if (!end) {
      rest = rest.substr(begin->start);
      break;
    }
    rest = TrimLeadingBlankLines(sheet.text.substr(end->end));
    sheet.text = TrimTrailingBlankLines(sheet.text.substr(0, end->start));
    sheet.key = KeyOf(sheet.text);
  }
  footer_ = TrimLeadingBlankLines(rest);
}

TextView WorkbookTemplate::SheetText(TextView key, const Locale& locale) const {
  if (sheets_.empty()) Raise(RuntimeError::kSubscriptOutOfRange);
  if (key.empty()) return sheets_.front().text;
  if (IsNumeric(Text(key), locale)) {
    const std::int32_t index = ToLong(Val(key) - 1, locale);
    if (index < 0 || index >= static_cast<std::int64_t>(sheets_.size())) Raise(RuntimeError::kSubscriptOutOfRange);
    return sheets_[static_cast<std::size_t>(index)].text;
  }
  for (const TemplateSheet& sheet : sheets_) {
    if (EqualsIgnoringCase(Trim(sheet.key), Trim(key))) return sheet.text;
  }
  return {};
}

}  // namespace zorkanca
