#include "xmltemplate/worksheet_columns.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/locale.h"
#include "xmltemplate/start_tags.h"

namespace zorkanca {

namespace {

constexpr TextView kWidthName = u"ss:Width";
constexpr TextView kAutoFitName = u"ss:AutoFitWidth";
constexpr std::int32_t kBadColumnIndex = -9999;
constexpr TextView kBadColumnIndexText = u"Hodnotu indexu sloupce listu je nutno zadávat od 1\u00A0!";

// A number as spreadsheet XML has it, whatever the user's locale: with a decimal point.
Text NumberText(float number) {
  return ToText(number, *FindLocale(u"en-US"));
}

Text WithSettings(Text tag, const WorksheetColumn& column) {
  if (!column.Width.empty()) tag = SetAttribute(tag, kWidthName, column.Width);
  if (!column.AutoFitWidth.empty()) tag = SetAttribute(tag, kAutoFitName, column.AutoFitWidth);
  return tag;
}

// The end of the start tag behind which columns stand.
std::size_t EndOfTableTag(TextView text) {
  const auto worksheet = FindNextStartTag(text, u"Worksheet");
  const auto table = worksheet ? FindNextStartTag(text, u"Table", worksheet->end) : std::nullopt;
  if (!table) Raise(RuntimeError::kInvalidCall, u"The worksheet has no table for its column widths");
  return table->end;
}

}  // namespace

void WorksheetColumns::Set(std::int16_t ColIndex, float ColWidth, bool AutoFitWidth) {
  if (ColIndex < 1) throw Error(kBadColumnIndex, Text(), Text(kBadColumnIndexText));
  const auto index = static_cast<std::size_t>(ColIndex);
  columns_.resize(std::max(columns_.size(), index));
  columns_[index - 1] = {.Width = ColWidth <= 0 ? Text() : NumberText(ColWidth),
                         .AutoFitWidth = AutoFitWidth ? u"1" : u"0"};
}

Text ApplyColumns(Text text, const WorksheetColumns& columns) {
  if (columns.columns().empty()) return text;
  std::size_t done = EndOfTableTag(text);
  Text applied = text.substr(0, done);
  bool isElementLeft = true;  // among those of the template
  for (const WorksheetColumn& column : columns.columns()) {
    const auto tag = isElementLeft ? FindNextStartTag(text, u"Column", done) : std::nullopt;
    isElementLeft = tag.has_value();
    if (tag) {
      applied.append(text, done, tag->start - done);
      applied.append(WithSettings(text.substr(tag->start, tag->end - tag->start), column));
      done = tag->end;
    } else {
      applied.append(kCrLf).append(u"   ").append(WithSettings(u"<Column/>", column));
    }
  }
  return applied.append(text, done);
}

}  // namespace zorkanca
