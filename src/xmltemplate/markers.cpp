#include "xmltemplate/markers.h"

#include <algorithm>

#include "xmltemplate/template_text.h"

namespace zorkanca {

namespace {

constexpr TextView kOpening = u"<?";
constexpr TextView kClosing = u"?>";
constexpr TextView kTarget = u"zrx_xls";

Text Numbered(TextView before, std::int16_t number, TextView after) {
  Text text(before);
  AppendDecimal(text, number);
  return text.append(after);
}

TextView GridName(GridDirection direction) {
  return direction == GridDirection::kColumns ? u"#grid_cols_(" : u"#grid_rows_(";
}

}  // namespace

Text SymbolText(ZrxXlsSymbolType type, std::int16_t sectionNumber) {
  switch (type) {
    case WorksheetBeginSymbol:
      return u"#worksheet_begin#";
    case WorksheetEndSymbol:
      return u"#worksheet_end#";
    case WorksheetNameSymbol:
      return u"#worksheet_name#";
    case WorksheetSectionBeginSymbol:
      return Numbered(kSectionBeginStart, sectionNumber, u")#");
    case WorksheetSectionEndSymbol:
      return Numbered(u"#worksheet_section_end(", sectionNumber, u")#");
    case WorksheetSectionSymbol:
      return Numbered(u"#worksheet_section(", sectionNumber, u")#");
  }
  return {};
}

Text MarkerText(TextView symbol) {
  return Text(kMarkerStart).append(symbol).append(kMarkerEnd);
}

MarkerStart MarkerStartAt(TextView text) {
  if (!text.starts_with(kOpening)) return kOpening.starts_with(text) ? MarkerStart::kPending : MarkerStart::kNone;
  const TextView word = TrimLeftBlanks(text.substr(kOpening.size()));
  const std::size_t length = std::min(word.size(), kTarget.size());
  if (!StartsIgnoringCase(word, kTarget.substr(0, length))) return MarkerStart::kNone;
  return length == kTarget.size() ? MarkerStart::kMarker : MarkerStart::kPending;
}

std::optional<TextRange> FindInstruction(TextView text, TextView symbol) {
  std::size_t symbolStart = FindIgnoringCase(text, symbol);
  std::size_t start = text.find(kOpening);
  while (start != TextView::npos && symbolStart != TextView::npos) {
    if (MarkerStartAt(text.substr(start)) != MarkerStart::kMarker) {
      start = text.find(kOpening, start + kOpening.size());
      continue;
    }
    const std::size_t closing = text.find(kClosing, start);
    if (closing == TextView::npos) break;
    if (symbolStart < start) symbolStart = FindIgnoringCase(text, symbol, start);
    const std::size_t end = closing + kClosing.size();
    if (symbolStart < end) return TextRange{start, end};  // never for npos
    start = text.find(kOpening, end);
  }
  return std::nullopt;
}

Text GridBeginSymbol(GridDirection direction, std::int16_t sign) {
  return Numbered(GridName(direction), sign, u")_begin#");
}

Text GridEndSymbol(GridDirection direction, std::int16_t sign) {
  return Numbered(GridName(direction), sign, u")_end#");
}

Text IndexText(std::int16_t index) {
  constexpr std::size_t kDigits = 3;
  Text digits = DecimalText(index < 0 ? -std::int64_t{index} : index);
  if (digits.size() < kDigits) digits.insert(0, kDigits - digits.size(), u'0');
  return index < 0 ? u"-" + digits : digits;
}

void AssignCellSymbol(Text& text, std::int16_t colSign, std::int16_t rowSign, TextView colIndex, TextView rowIndex) {
  text.assign(u"#GD-C");
  AppendDecimal(text, colSign);
  text.append(u"-c[").append(colIndex).append(u"]-R");
  AppendDecimal(text, rowSign);
  text.append(u"-r[").append(rowIndex).append(u"]-#");
}

}  // namespace zorkanca
