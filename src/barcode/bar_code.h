// cBarCode: turns a record, or one value, into the text that a bar-code font draws as bars.
#pragma once

#include <optional>
#include <vector>

#include "barcode/bar_code_items.h"
#include "barcode/symbology.h"
#include "platform/database.h"
#include "runtime/locale.h"
#include "runtime/text.h"
#include "runtime/value.h"

namespace zorkanca {

/// One bar-code column of an export: parameters once, then a text for each record.
class cBarCode {
 public:
  /// @param locale  texts and numbers of the values, and the code page of the font's characters; outlives the object
  explicit cBarCode(const Locale& locale) : locale_(locale) {}

  /// Takes the parameter text in place of an earlier one; see barcode/bar_code_items.h for its grammar.
  /// Errors: those of `ParseBarCodeParameters`; the earlier parameters stay then.
  void ParseParameters(TextView parameters);

  /// The record source whose current record is encoded. It stays alive, or is replaced, while records are encoded.
  void SetRecordset(Recordset& recordset);

  const Text& Symbology() const { return parameters_.symbology; }
  bool CheckCharacter() const { return parameters_.checkCharacter; }
  /// Name of the output column whose value the bar code replaces.
  const Text& BarCodeField() const { return parameters_.outputColumn; }

  /// Font text of the current record. Content that the symbology cannot carry gives "" ("**" in Code 39); a field that
  /// cannot be read and a trimmed Null give "" in every symbology.
  /// Errors: 6 when the weighted sum of a check character in Code 128 set B is above 32767.
  Text EncodeRecord();
  /// Font text of one value, which stands for the field of every "trim" item; of the other kinds only literals count.
  /// Unlike a record's, a value's "," is not made "." for Code 39.
  /// Errors: as `EncodeRecord`.
  Text EncodeValue(const Value& value);

  /// What the bar code of the current record, or of a value, carries: the content as the symbology takes it (blanks as
  /// blanks, digits in pairs). Empty when there is no bar code. For drawing; see barcode/bar_code_drawing.h.
  Text RecordContent();
  Text ValueContent(const Value& value);

  /// Whether the last encoding lost its content: the items gave one, and the symbology cannot carry it.
  bool Lost() const { return lost_; }

  /// The one-character text that the second Code 128 layout draws a symbol value with: `RefToASCII(105)` is "¶".
  /// Errors: 5 when that is no character code.
  Text RefToASCII(float value) const;

 private:
  void FindFields();
  bool ComposeRecord();
  bool ComposeValue(const Value& value);
  void FitToSymbology();
  Text EncodeContent() const;
  Text Encoded(bool isComposed);

  const Locale& locale_;
  BarCodeParameters parameters_;
  BarCodeSymbology symbology_ = BarCodeSymbology::kNone;
  Recordset* recordset_ = nullptr;
  std::vector<Field*> fields_;  // one for each item once a record was encoded; null for items that read none
  bool hadContent_ = false;     // before it was fitted to the symbology
  bool lost_ = false;
  Text content_;  // kept between records for its room
};

}  // namespace zorkanca
