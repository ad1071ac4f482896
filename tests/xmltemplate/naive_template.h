// The rules of spreadsheet-XML templates, written down as plainly as they can be told: every operation searches the
// whole text and splices it. Slow and obviously right; what the product does is compared with it.
// Positions count from 1, 0 means "not there", as in the rules. Nothing of src/xmltemplate is used here.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "runtime/code_page.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca::testing::naive {

struct Range {
  std::size_t start = 0;
  std::size_t end = 0;
};

inline std::size_t InStr(std::size_t from, const Text& text, const Text& sought) {
  const auto equal = [](char16_t left, char16_t right) { return LowerCase(left) == LowerCase(right); };
  const auto start = text.begin() + static_cast<std::ptrdiff_t>(from - 1);
  const auto found = std::search(start, text.end(), sought.begin(), sought.end(), equal);
  return found == text.end() ? 0 : static_cast<std::size_t>(found - text.begin()) + 1;
}
inline std::size_t InStrRev(const Text& text, const Text& sought) {
  const std::size_t found = LowerCase(text).rfind(LowerCase(sought));
  return found == Text::npos ? 0 : found + 1;
}
inline Text Left(const Text& text, std::size_t length) {
  return text.substr(0, length);
}
inline Text Mid(const Text& text, std::size_t from) {
  return from > text.size() ? Text() : text.substr(from - 1);
}

inline Text TrimLeftBlanks(Text text) {
  while (!text.empty() && Text(u" \t\u00A0").find(text.front()) != Text::npos) text.erase(0, 1);
  return text;
}
inline Text TrimRightBlanks(Text text) {
  while (!text.empty() && Text(u" \t\u00A0").find(text.back()) != Text::npos) text.pop_back();
  return text;
}
inline Text TrimLeadingBlankLines(Text text) {
  while (TrimLeftBlanks(text).starts_with(u"\r\n")) text = TrimLeftBlanks(text).substr(2);
  return text;
}
inline Text TrimTrailingBlankLines(Text text) {
  for (text = TrimRightBlanks(text); text.ends_with(u"\r\n"); text = TrimRightBlanks(text))
    text.resize(text.size() - 2);
  return text;
}

inline Range FindInstruction(const Text& text, const Text& symbol) {
  std::size_t from = 1;
  for (;;) {
    const std::size_t start = InStr(from, text, u"<?");
    if (start == 0) return {};
    if (LowerCase(TrimLeftBlanks(Mid(text, start + 2)).substr(0, 7)) != u"zrx_xls") {
      from = start + 2;
      continue;
    }
    const std::size_t closing = InStr(start, text, u"?>");
    if (closing == 0) return {};
    const std::size_t found = InStr(start, text, symbol);
    if (found == 0) return {};
    if (found < closing + 1) return {start, closing + 1};
    from = closing + 2;
  }
}

inline Text Number(std::int32_t number) {
  return DecimalText(number);
}
inline Text Index(std::int32_t index) {
  Text digits = Number(index < 0 ? -index : index);
  while (digits.size() < 3) digits = u"0" + digits;
  return index < 0 ? u"-" + digits : digits;
}

inline Text Utf8Encode(const Text& text, const CodePage& page) {
  Text bytes;
  const auto put = [&](int byte) { bytes += page.Decode(static_cast<std::uint8_t>(byte)); };
  for (const char16_t unit : text) {
    const int code = unit;
    if (code < 128) {
      bytes += unit;
    } else if (code < 2048) {
      put(192 + code / 64);
      put(128 + code % 64);
    } else {
      put(224 + code / 4096);
      put(128 + code / 64 % 64);
      put(128 + code % 64);
    }
  }
  return bytes;
}

struct Cell {
  std::int32_t colSign, rowSign, colIndex, rowIndex;
};

inline Range FindTaggedCell(const Text& text, const Cell& cell) {
  const Text column = Index(cell.colIndex);
  const Text row = Index(cell.rowIndex);
  const std::pair<Text, Text> tries[] = {{column, row}, {u"***", u"***"}, {u"***", row}, {column, u"***"}};
  for (const auto& [c, r] : tries) {
    const Range found = FindInstruction(text, u"<?zrx_xls #GD-C" + Number(cell.colSign) + u"-c[" + c + u"]-R" +
                                                  Number(cell.rowSign) + u"-r[" + r + u"]-# ?>");
    if (found.start > 0) return found;
  }
  return {};
}

inline Range FindEnclosingStartTag(const Text& text, const Text& element, std::size_t before) {
  const Text part = Left(text, before);
  const std::size_t start = std::max(InStrRev(part, u"<" + element + u" "), InStrRev(part, u"<" + element + u">"));
  return {start, start == 0 ? 0 : InStr(start, text, u">")};
}
inline Range FindNextStartTag(const Text& text, const Text& element, std::size_t from) {
  const std::size_t spaced = InStr(from, text, u"<" + element + u" ");
  const std::size_t closed = InStr(from, text, u"<" + element + u">");
  const std::size_t start = spaced == 0 || (closed > 0 && closed < spaced) ? closed : spaced;
  return {start, start == 0 ? 0 : InStr(start, text, u">")};
}

inline Text SetAttribute(const Text& tag, const Text& name, const Text& value) {
  const std::size_t found = InStr(1, tag, u" " + name);
  if (found > 0) {
    const Text rest = TrimLeftBlanks(Mid(tag, found + 1 + name.size()));
    if (rest.starts_with(u"=")) {
      const std::size_t first = InStr(tag.size() - rest.size() + 1, tag, u"\"");
      const std::size_t second = first == 0 ? 0 : InStr(first + 1, tag, u"\"");
      return second == 0 ? tag : Left(tag, first) + value + Mid(tag, second);
    }
  }
  std::size_t place = InStr(1, tag, u" ");
  if (place == 0) place = InStr(1, tag, u"/");
  if (place == 0) place = InStr(1, tag, u">");
  return Left(tag, place - 1) + u" " + name + u"=\"" + value + u"\"" + Mid(tag, place);
}
inline Text GetAttribute(const Text& tag, const Text& name) {
  const std::size_t found = InStr(1, tag, u" " + name);
  if (found == 0) return {};
  const Text rest = TrimLeftBlanks(Mid(tag, found + 1 + name.size()));
  const std::size_t first = InStr(1, rest, u"\"");
  const std::size_t second = first == 0 ? 0 : InStr(first + 1, rest, u"\"");
  return rest.starts_with(u"=") && second > 0 ? rest.substr(first, second - first - 1) : Text();
}

inline Text Replaced(const Text& text, Range range, const Text& with) {
  return Left(text, range.start - 1) + with + Mid(text, range.end + 1);
}

inline Text SetCellData(const Text& text, const Text& data, const Cell& cell, const CodePage& page) {
  const Range marker = FindTaggedCell(text, cell);
  return marker.start == 0 ? text : Replaced(text, marker, Utf8Encode(data, page));
}
inline Text RemoveCellData(const Text& text, const Cell& cell) {
  const Range marker = FindTaggedCell(text, cell);
  if (marker.start == 0) return text;
  const std::size_t start = FindEnclosingStartTag(text, u"Data", marker.start).start;
  const std::size_t end = InStr(marker.end, text, u"</data>");
  return start == 0 || end == 0 ? text : Replaced(text, {start, end + 6}, {});
}
inline Range CellTag(const Text& text, const Cell& cell) {
  const Range marker = FindTaggedCell(text, cell);
  const Range tag = marker.start == 0 ? Range() : FindEnclosingStartTag(text, u"Cell", marker.start);
  return tag.end == 0 ? Range() : tag;
}
inline Range TableTag(const Text& text) {
  const Range tag = FindNextStartTag(text, u"Table", 1);
  return tag.end == 0 ? Range() : tag;
}
inline Text SetTagAttribute(const Text& text, Range tag, const Text& name, const Text& value) {
  if (tag.start == 0) return text;
  return Replaced(text, tag, SetAttribute(text.substr(tag.start - 1, tag.end - tag.start + 1), name, value));
}
inline Text SetCellAttribute(const Text& text, const Text& name, const Text& value, const Cell& cell) {
  if (LowerCase(name) == u"ss:styleid" && Trim(value).empty()) return text;
  return SetTagAttribute(text, CellTag(text, cell), name, value);
}
inline Text GetTagAttribute(const Text& text, Range tag, const Text& name) {
  return tag.start == 0 ? Text() : GetAttribute(text.substr(tag.start - 1, tag.end - tag.start + 1), name);
}

inline Text RepeatPrototype(const Text& body, const Text& sought, std::size_t open, int count) {
  Text copies;
  const std::size_t found = InStr(1, body, sought);
  for (int i = 1; i <= count; ++i) {
    copies += (found == 0 ? body : Left(body, found - 1 + open) + Index(i) + Mid(body, found + open + 3)) + u"\r\n";
  }
  return copies;
}
inline Text ExpandGrid(Text text, bool columns, std::int32_t sign, int count) {
  const Text name = (columns ? u"#grid_cols_(" : u"#grid_rows_(") + Number(sign);
  const Text start = (columns ? u"#GD-C" : u"]-R") + Number(sign) + (columns ? u"-c[" : u"-r[");
  for (;;) {
    const Range begin = FindInstruction(text, u"<?zrx_xls " + name + u")_begin# ?>");
    if (begin.start == 0) return text;
    const Text before = TrimTrailingBlankLines(Left(text, begin.start - 1));
    const Text after = (columns ? u"\t" : u"   ") + TrimLeftBlanks(TrimLeadingBlankLines(Mid(text, begin.end + 1)));
    const Range end = FindInstruction(after, u"<?zrx_xls " + name + u")_end# ?>");
    if (end.start == 0) return text;
    const Text body = TrimTrailingBlankLines(Left(after, end.start - 1));
    const Text sought = start + u"***" + (columns ? u"]-R" : u"]-#");
    text = before + u"\r\n" + RepeatPrototype(body, sought, start.size(), count) +
           TrimLeadingBlankLines(Mid(after, end.end + 1));
  }
}

inline Text RemoveEnclosed(Text text, const Text& opening, const Text& closing) {
  for (;;) {
    const std::size_t start = InStr(1, text, opening);
    const std::size_t end = start == 0 ? 0 : InStr(start, text, closing);
    if (end == 0) return text;
    text = Left(text, start - 1) + Mid(text, end + closing.size());
  }
}
inline Text RemoveComments(const Text& text) {
  return RemoveEnclosed(text, u"<!--", u"-->");
}
inline Text RemoveBlankLines(Text text) {
  Text kept;
  for (std::size_t end = text.find(u"\r\n"); end != Text::npos; end = text.find(u"\r\n")) {
    const Text line = Left(text, end);
    if (!TrimRightBlanks(TrimLeftBlanks(line)).empty()) kept += line + u"\r\n";
    text = Mid(text, end + 3);
  }
  return kept + text;
}

/// A worksheet: its text, the templates of its sections, and the sections added, each a number and a text.
struct Worksheet {
  Text text;
  std::vector<std::pair<std::int16_t, Text>> templates;
  std::vector<std::pair<std::int16_t, Text>> sections;
  std::vector<std::pair<Text, Text>> columns;  // widths and flags
};

inline void ExtractSections(Worksheet& sheet, const Locale& locale) {
  Text text = sheet.text;
  for (;;) {
    const Text plain = u"<?zrx_xls #worksheet_section_begin(";
    const std::size_t found = InStr(1, text, plain);
    const std::size_t bracket = found == 0 ? 0 : InStr(found, text, u")");
    if (bracket == 0) break;
    const Text digits = text.substr(found - 1 + plain.size(), bracket - found - plain.size());
    if (!IsNumeric(digits, locale)) break;
    const std::int16_t n = ToInteger(digits, locale);
    const Range begin = FindInstruction(text, u"#worksheet_section_begin(" + Number(n) + u")#");
    const Range end = FindInstruction(text, u"#worksheet_section_end(" + Number(n) + u")#");
    if (begin.start == 0 || end.start == 0) break;
    if (end.start <= begin.end) Raise(RuntimeError::kInvalidCall);
    const Text section = text.substr(begin.end, end.start - begin.end - 1);
    text =
        Left(text, begin.start - 1) + u"<?zrx_xls #worksheet_section(" + Number(n) + u")# ?>" + Mid(text, end.end + 1);
    sheet.templates.emplace_back(n, TrimTrailingBlankLines(TrimLeadingBlankLines(section)));
  }
  sheet.text = text;
}

inline void SetColumnWidth(Worksheet& sheet, std::int16_t index, const Text& width, bool autoFit) {
  if (index < 1) throw Error(-9999, {}, {});
  if (sheet.columns.size() < static_cast<std::size_t>(index)) sheet.columns.resize(static_cast<std::size_t>(index));
  sheet.columns[static_cast<std::size_t>(index) - 1] = {width, autoFit ? u"1" : u"0"};
}

inline Text MergeSections(const Worksheet& sheet) {
  std::vector<std::int16_t> numbers;
  std::map<std::int16_t, Text> joined;
  for (const auto& [number, text] : sheet.sections) {
    if (!joined.contains(number)) numbers.push_back(number);
    joined[number] += text + u"\r\n";
  }
  Text text = sheet.text;
  for (const std::int16_t number : numbers) {
    const Range place = FindInstruction(text, u"#worksheet_section(" + Number(number) + u")#");
    if (place.start == 0) Raise(RuntimeError::kInvalidCall);
    text = Replaced(text, place, Left(joined[number], joined[number].size() - 2));
  }
  return text;
}

inline Text ApplyColumns(Text text, const Worksheet& sheet) {
  if (sheet.columns.empty()) return text;
  const std::size_t worksheet = FindNextStartTag(text, u"Worksheet", 1).end;
  std::size_t done = worksheet == 0 ? 0 : FindNextStartTag(text, u"Table", worksheet + 1).end;
  if (done == 0) Raise(RuntimeError::kInvalidCall);
  bool isLeft = true;
  for (const auto& [width, autoFit] : sheet.columns) {
    const Range found = FindNextStartTag(text, u"Column", done + 1);
    isLeft = isLeft && found.end > 0;
    Text tag = isLeft ? text.substr(found.start - 1, found.end - found.start + 1) : u"<Column/>";
    if (!width.empty()) tag = SetAttribute(tag, u"ss:Width", width);
    if (!autoFit.empty()) tag = SetAttribute(tag, u"ss:AutoFitWidth", autoFit);
    if (!isLeft) tag = u"\r\n   " + tag;
    text = isLeft ? Replaced(text, found, tag) : Left(text, done) + tag + Mid(text, done + 1);
    done = (isLeft ? found.start - 1 : done) + tag.size();
  }
  return text;
}

inline Text Compose(const Worksheet& sheet) {
  const Text text = RemoveComments(ApplyColumns(MergeSections(sheet), sheet));
  return RemoveBlankLines(RemoveEnclosed(text, u"<?zrx_xls ", u" ?>"));
}

}  // namespace zorkanca::testing::naive
