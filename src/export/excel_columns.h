// What an Excel export learns of the columns of its query: how they are aligned, and how Excel is to read them.
#pragma once

#include <optional>
#include <vector>

#include "export/query_reader.h"
#include "platform/excel/excel_application.h"
#include "runtime/format.h"
#include "runtime/locale.h"

namespace zorkanca {

class ExcelColumn {
 public:
  ExcelColumn(const QueryColumn& column, const Locale& locale);

  Field& field() const { return *column_.field; }
  /// Its value is written as "1", see `QueryColumn`.
  bool isMultiplier() const { return column_.isMultiplier; }
  /// How its values are written; null where they have their ordinary text form.
  const FormatPattern* numberFormat() const { return numberFormat_; }

  /// Looks at a value of the column, not Null. Called for each record: what is in a column tells how it looks.
  void LookAt(const Value& value);

  /// Numbers and dates stand right. Texts stand left, or right when the first one that says so begins with a blank; a
  /// text that fills its field, a blank one and Null say nothing.
  ExcelAlignment Alignment() const { return alignment_.value_or(ExcelAlignment::kGeneral); }

  /// Text columns are read as texts. So is any other column with a text that Excel would take for a formula: no value
  /// of a database is ever calculated.
  ExcelColumnType ImportType() const { return readsAsText_ ? ExcelColumnType::kText : ExcelColumnType::kGeneral; }

 private:
  void Align(TextView text);

  QueryColumn column_;
  const Locale& locale_;
  const FormatPattern* numberFormat_ = nullptr;
  bool isText_;
  bool readsAsText_;
  std::optional<ExcelAlignment> alignment_;
};

/// How Excel is to read the columns, in their order.
std::vector<ExcelColumnInfo> ImportTypes(const std::vector<ExcelColumn>& columns);

}  // namespace zorkanca
