#include "tabular/column_writer.h"

#include <cstdint>
#include <optional>

namespace zorkanca {

bool ColumnWriter::Write(const Cell& cell, SqliteTableWriter& table) {
  if (cell.kind == CellKind::kNull) return table.SetNull(column_), true;
  switch (plan_.type) {
    case ColumnType::kText:
    case ColumnType::kLongText:
      return table.SetText(column_, cell.text), true;
    case ColumnType::kDate: {
      const std::string_view text = TrimmedBlanks(cell.text);
      const bool isDate = plan_.isSettled ? forms_->AnyDate(text, room_) : forms_->Date(text, room_);
      if (isDate) table.SetText(column_, room_);
      return isDate;
    }
    case ColumnType::kYesNo: {
      const std::string_view text = TrimmedBlanks(cell.text);
      const std::optional<bool> yes = text == "0" ? false : text == "1" || text == "-1" ? true : forms_->YesNo(text);
      if (yes) table.SetInteger(column_, *yes ? 1 : 0);
      return yes.has_value();
    }
    default:
      return WriteNumber(TrimmedBlanks(cell.text), table);
  }
}

bool ColumnWriter::WriteNumber(std::string_view text, SqliteTableWriter& table) {
  const std::optional<NumberText> read = forms_->Number(text, plan_.form, /*withExponent=*/true, room_);
  if (!read) return false;
  switch (plan_.type) {
    case ColumnType::kInteger:
    case ColumnType::kBigInteger: {
      const std::optional<std::int64_t> integer = IntegerOf(read->number, read->text);
      if (integer) table.SetInteger(column_, *integer);
      return integer.has_value();
    }
    case ColumnType::kLongDecimal:
    case ColumnType::kLongCurrency:
      SpellWithPoint(spelled_, read->number, read->text);
      return table.SetText(column_, spelled_), true;
    default: {
      const std::optional<double> real = DoubleOf(read->number, read->text);
      if (real) table.SetReal(column_, *real);
      return real.has_value();
    }
  }
}

}  // namespace zorkanca
