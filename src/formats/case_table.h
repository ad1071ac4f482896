// A format that maps values to results: entries "case CONDITION: RESULT", tried in order.
//
//   condition = "null" | "else" (as the last one) | "like" pattern | ("<" | "<=" | ">" | ">=") operand
//             | "'" text "'" (exactly) | text (equal to the trimmed value)
//   operand   = "'" text "'" (compared as text) | number
//   result    = "@" (the value) | "@;" format | ["'"] text ["'"]
// "case", "null", "else" and "like" in any case.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "formats/named_format.h"
#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca {

class CaseTable {
 public:
  /// True when a format text is a case table.
  static bool IsCaseTable(TextView format);

  /// Errors: 5 for an entry without ":", 93 for a pattern that is none.
  CaseTable(TextView format, const Locale& locale);

  /// The result for a value; empty when no entry matches and none stands for all others.
  Text Apply(const FormattedValue& value, const Locale& locale) const;
  /// The result for Null: that of the first "null" entry, else that of "else", else empty.
  Text ApplyToNull(const Locale& locale) const;

 private:
  enum class Kind { kNull, kLike, kLess, kLessOrEqual, kGreater, kGreaterOrEqual, kExactly, kTrimmed };

  struct Entry {
    Kind kind = Kind::kTrimmed;
    bool isElse = false;
    Text operand;                  // pattern, or the text to compare with
    std::optional<double> number;  // operand of a comparison of numbers
    bool comparesTexts = false;    // operand of a comparison is a text
    Text result;
    std::optional<NamedFormat> resultFormat;  // of a result "@;format"
  };

  static Entry ReadEntry(TextView text, const Locale& locale);
  static void ReadCondition(Entry& entry, TextView condition, const Locale& locale);
  static void ReadResult(Entry& entry, TextView result, const Locale& locale);
  static bool Matches(const Entry& entry, const FormattedValue& value, const Locale& locale);
  static Text ResultOf(const Entry& entry, const FormattedValue& value, const Locale& locale);
  Text ElseResult(const FormattedValue& value, const Locale& locale) const;

  std::vector<Entry> entries_;
};

}  // namespace zorkanca
