#include "export/html_cells.h"

#include "export/number_columns.h"
#include "platform/field_types.h"
#include "runtime/convert.h"

namespace zorkanca::html {

namespace {

constexpr TextView kNoValue = u"&nbsp;";  // a cell without content would lose its border

constexpr TextView kRightCell = u"        <TD align=\"right\">";
constexpr TextView kLeftCell = u"        <TD align=\"left\">";
constexpr TextView kCellEnd = u"</TD>\r\n";

// Which alignment a type has; texts decide for themselves.
bool AlignsRight(FieldType type) {
  return IsNumericType(type) || IsDateType(type);
}

void AppendCell(Text& row, bool right, TextView text) {
  row.append(right ? kRightCell : kLeftCell).append(text).append(kCellEnd);
}

void AppendTextCell(Text& row, TextView text) {
  if (IsBlank(text)) text = kNoValue;
  AppendCell(row, text.front() == u' ', text);
}

bool IsTrue(const Value& value, const Locale& locale) {
  return IsNumeric(value, locale) && ToDouble(value, locale) != 0;
}

}  // namespace

void BeginRow(Text& row) {
  row.append(u"    <TR>\r\n");
}

void EndRow(Text& row) {
  row.append(u"    </TR>\r\n");
}

void AppendHeaderCell(Text& row, TextView name) {
  row.append(u"        <TD align=\"center\"><B><FONT size=+1>&nbsp;")
      .append(name)
      .append(u"&nbsp;</FONT></B></TD>\r\n");
}

void AppendBlankCell(Text& row) {
  AppendCell(row, false, kNoValue);
}

void AppendDataCell(Text& row, Field& field, bool isMultiplier, const Locale& locale) {
  static const Value kOne = Text(u"1");
  const Value& value = field.Value();
  const FieldType type = field.Type();
  if (IsNull(value)) return AppendCell(row, AlignsRight(type), kNoValue);
  if (type == FieldType::kBoolean) return AppendCell(row, false, IsTrue(value, locale) ? u"Pravda" : u"Nepravda");

  const Value& shown = isMultiplier ? kOne : value;
  if (IsTextType(type)) {
    if (const Text* text = std::get_if<Text>(&shown)) return AppendTextCell(row, *text);
    return AppendTextCell(row, ToText(shown, locale));
  }
  row.append(AlignsRight(type) ? kRightCell : kLeftCell);
  if (IsDecimalType(type)) {
    NumberFormatOf(field.Name()).Append(row, shown, locale);
  } else {
    AppendText(row, shown, locale);
  }
  row.append(kCellEnd);
}

}  // namespace zorkanca::html
