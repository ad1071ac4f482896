// cFormat: the format that a caller gives a column of a Word export, and what it makes of a value.
#pragma once

#include <variant>

#include "formats/case_table.h"
#include "formats/named_format.h"
#include "runtime/locale.h"
#include "runtime/text.h"
#include "runtime/value.h"

namespace zorkanca {

class cFormat {
 public:
  /// @param locale  of the values' texts; outlives this object
  explicit cFormat(const Locale& locale) : locale_(locale) {}

  const Text& format() const { return format_; }
  /// Parses the format: a case table, a named conversion with its follow-ups, a pattern, or nothing.
  /// Errors: 5 for a malformed format, 93 for a bad wildcard pattern; the format before stays then.
  void format(TextView format);

  /// The text that the format makes of a value; without a format the value's own text.
  /// Null gives "" but for a case table, which may have a result for it.
  /// Errors: 13 for a binary value.
  Text Apply(const Value& value) const;

 private:
  const Locale& locale_;
  Text format_;
  std::variant<std::monostate, NamedFormat, CaseTable> rules_;
};

}  // namespace zorkanca
