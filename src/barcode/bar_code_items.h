// The parameter text of a bar code, and the items that its content is made of.
//
//   parameters = symbology ";" items ";" output column ";" check flag [";" ignored]
//   items      = ["|"] item {"|" item} ["|"]
//   item       = "'" literal "'" ["," anything]  |  field "," kind
//   kind       = "trim"                 case ignored: the value without outer blanks
//              | "[01]"                 the same, made even in length by a leading "0"
//              | "[+a]" | "[+A]"        contained: letters that a font lacks as "+" and the letter of the other case
//              | [width] "[->" pad "]" [width]    contained: right-aligned, padded on the left
//              | [width] "[" pad "<-]" [width]    contained: left-aligned, padded on the right
//              | number                 exactly that many characters
// Blanks around the item list, an item, a field name and a kind do not count. Any other kind gives nothing.
// Example: "Code39;'FA',|Cislo,6|Stat,3[->-];Kod;1".
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/database.h"
#include "runtime/format.h"
#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca {

enum class BarCodeItemKind {
  kNothing,
  kLiteral,
  kTrimmed,
  kEvenLength,    ///< "[01]"
  kUpperAsPlus,   ///< "[+a]": "B" becomes "+b"
  kLowerAsPlus,   ///< "[+A]": "b" becomes "+B"
  kRightAligned,  ///< "[->x]"
  kLeftAligned,   ///< "[x<-]"
  kExactWidth,    ///< a number
};

struct BarCodeItem {
  BarCodeItemKind kind = BarCodeItemKind::kNothing;
  Text text;                           ///< the literal, or the name of a record field
  std::size_t width = 0;               ///< of the aligned kinds and of `kExactWidth`
  char16_t padding = u' ';             ///< of the aligned kinds
  std::optional<FormatPattern> zeros;  ///< of `kExactWidth`: one zero digit for each character

  /// True when the item shows a field of the record.
  bool ReadsField() const { return kind != BarCodeItemKind::kNothing && kind != BarCodeItemKind::kLiteral; }
};

struct BarCodeParameters {
  Text symbology;
  std::vector<BarCodeItem> items;
  Text outputColumn;
  bool checkCharacter = false;
};

/// Takes a parameter text apart. Numbers in kinds are numbers of the locale.
/// Errors: 9 with fewer than three ";", 5 for an alignment without its other bracket, 6 for a width above 32767.
BarCodeParameters ParseBarCodeParameters(TextView parameters, const Locale& locale);

/// Appends what an item that reads a field makes of the field's value.
/// @param type  type of the field: exact widths write numbers with leading zeros and all else with leading blanks
/// @return      false when the value leaves no bar code at all: Null in a trimmed item
/// Errors: 13 for values that have no text (binary, objects).
bool AppendBarCodeItem(Text& content, const BarCodeItem& item, const Value& value, FieldType type,
                       const Locale& locale);

}  // namespace zorkanca
