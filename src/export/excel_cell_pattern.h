// What one cell of a template's pattern says about the cells that are made of it.
//
//   cell        = {literal | placeholder}       literal: any text without "{"
//   placeholder = "{" body "}"                  up to the next "}"
//   body        = "code"                        the bar code of the record, nothing without one; letters in any case
//               | name ";" format               both trimmed; "trim" in any case trims the value, any other format is
//                                               one of runtime/format.h
//               | name                          a column; Null gives nothing
//
// Example: "{nazev}: {cena;#,##0.00} Kč" gives "Šroub: 1 234,50 Kč".
#pragma once

#include <optional>
#include <vector>

#include "export/excel_data_file.h"
#include "platform/database.h"
#include "runtime/format.h"
#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca {

/// Where placeholders get their texts from.
class PatternSource {
 public:
  virtual ~PatternSource() = default;
  /// The column of that name, which follows the current record. @return null for one that gives nothing
  /// Errors: 3265 when there has to be one.
  virtual Field* Column(TextView name) = 0;
  /// The bar code of the current record; empty without one.
  virtual Text Code() = 0;
};

class ExcelCellPattern {
 public:
  /// @param address  of the cell, for the error. Errors: 5 for a brace that nothing closes; those of `FormatPattern`.
  ExcelCellPattern(TextView text, TextView address);

  /// The columns that the placeholders name, in order, as often as they are named.
  std::vector<Text> ColumnNames() const;
  /// True when one of them is the bar code.
  bool HasCode() const;

  /// Looks the columns of the placeholders up, once for all records. Errors: those of the source.
  /// @param source  outlives this object
  void Bind(PatternSource& source);

  /// Adds the cell of the current record to the file: one cell, whatever is in the values. Errors: 6 for a text that no
  /// cell can hold; those of the values and formats.
  void AddTo(ExcelDataFile& file, const Locale& locale);

 private:
  struct Piece {
    enum class Kind { kLiteral, kValue, kTrimmedValue, kFormattedValue, kCode };

    Kind kind = Kind::kLiteral;
    Text text{};  // the literal, or the name of the column
    std::optional<FormatPattern> format{};
    Field* column = nullptr;
  };

  static bool ReadsColumn(const Piece& piece) {
    return piece.kind != Piece::Kind::kLiteral && piece.kind != Piece::Kind::kCode;
  }
  static Piece ReadPlaceholder(TextView body);
  Text TextOf(const Piece& piece, const Locale& locale) const;
  void Compose(Text& cell, bool quotesValues, const Locale& locale) const;

  std::vector<Piece> pieces_;
  PatternSource* source_ = nullptr;
  Text shown_;    // text of the current record, kept for its room
  Text spelled_;  // the same with its values quoted
};

}  // namespace zorkanca
