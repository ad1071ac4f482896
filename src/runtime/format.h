// Format patterns for numbers, dates and texts ("#,##0.00", "d.m.yyyy", ">@@@", "Long Date").
// A pattern is compiled once and applied to any number of values.
//
// The first typing character of the first section decides the kind of the whole pattern:
//   number   0 # . ,(grouping, scaling) %  E+ E-     sections: positive;negative;zero;null
//   date     d m y h n s q w c / : ttttt AM/PM
//   text     @ & < > !                              sections: text;empty
//   literal  \x, "...", and whatever does not fit the kind
// A whole pattern may be a named format ("Fixed", "Short Date", "Yes/No", ...), case ignored.
#pragma once

#include <memory>

#include "runtime/locale.h"
#include "runtime/text.h"
#include "runtime/value.h"

namespace zorkanca {

class FormatPattern {
 public:
  /// Compiles a pattern; an empty one formats as `ToText` does.
  /// Errors: 5 for more than four sections.
  explicit FormatPattern(TextView pattern);
  FormatPattern(FormatPattern&&) noexcept;
  FormatPattern& operator=(FormatPattern&&) noexcept;
  ~FormatPattern();

  /// Appends the formatted value. Null gives nothing; a text that the pattern's kind cannot read is appended unchanged.
  /// Errors: 13 for binary values and objects.
  void Append(Text& text, const Value& value, const Locale& locale) const;
  /// The formatted value.
  Text Apply(const Value& value, const Locale& locale) const;

 private:
  struct Compiled;
  std::unique_ptr<const Compiled> compiled_;
};

/// One value formatted by a pattern that is used once (Format$).
Text Format(const Value& value, TextView pattern, const Locale& locale);

}  // namespace zorkanca
