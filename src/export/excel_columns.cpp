#include "export/excel_columns.h"

#include "export/number_columns.h"
#include "platform/field_types.h"
#include "runtime/convert.h"

namespace zorkanca {

namespace {

bool LooksLikeFormula(TextView text, const Locale& locale) {
  if (text.empty()) return false;
  switch (text.front()) {
    case u'=':
    case u'@':
      return true;
    case u'+':
    case u'-':
      return !ParseNumber(text, locale);
    default:
      return false;
  }
}

}  // namespace

ExcelColumn::ExcelColumn(const QueryColumn& column, const Locale& locale)
    : column_(column), locale_(locale), isText_(IsTextType(column.field->Type())), readsAsText_(isText_) {
  if (!isText_) alignment_ = ExcelAlignment::kRight;
  if (IsDecimalType(column.field->Type())) numberFormat_ = &NumberFormatOf(column.field->Name());
}

void ExcelColumn::LookAt(const Value& value) {
  const Text* text = std::get_if<Text>(&value);
  if (isText_) {
    if (!alignment_) Align(text ? *text : ToText(value, locale_));
  } else if (text && !readsAsText_) {
    readsAsText_ = LooksLikeFormula(*text, locale_);
  }
}

void ExcelColumn::Align(TextView text) {
  const std::size_t length = Trim(text).size();
  if (length == 0 || static_cast<std::int64_t>(length) == field().Size()) return;
  alignment_ = TrimLeft(text).size() == text.size() ? ExcelAlignment::kLeft : ExcelAlignment::kRight;
}

std::vector<ExcelColumnInfo> ImportTypes(const std::vector<ExcelColumn>& columns) {
  std::vector<ExcelColumnInfo> types;
  for (const ExcelColumn& column : columns) {
    types.push_back({.column = static_cast<std::int32_t>(types.size()) + 1, .type = column.ImportType()});
  }
  return types;
}

}  // namespace zorkanca
