// Values as nullable numbers and dates, and as texts for people who look for an error.
#pragma once

#include <cstdint>
#include <optional>

#include "runtime/locale.h"
#include "runtime/text.h"
#include "runtime/value.h"

namespace zorkanca {

/// Stateless.
class VariantConvertor {
 public:
  /// The number of a numeric value (texts that are numbers of the locale, too), rounded as `ToLong` does.
  /// @return nothing for Null
  /// Errors: `ArgumentErrorCode` for any other value; internal error for a number outside 32 bits.
  static std::optional<std::int32_t> ToNullableLong(const Value& value, const Locale& locale);

  /// @return nothing for Null
  /// Errors: `ArgumentErrorCode` for anything else than a date, texts of dates included.
  static std::optional<Date> ToNullableDate(const Value& value, const Locale& locale);

  /// Any value as text: numbers, Boolean and dates as `ToText` gives them, texts as they are, and a word for what has
  /// no text of its own: "Empty", "Null", "Nothing" or "Object", "Array". Errors: internal error for a date outside the
  /// calendar.
  static Text ToString(const Value& value, const Locale& locale);

  /// The word for a variant whose content is not shown, by its automation type number (VarType), also for those that
  /// a `Value` cannot hold: 0 "Empty", 1 "Null", 9 "Object", 10 "Error", 12 "Array of Variants", 13 "DataObject",
  /// 36 "UserDefinedType", 8192 and above "Array".
  /// Errors: `ArgumentErrorCode` for any other type.
  static Text WordForType(std::int32_t varType);
};

}  // namespace zorkanca
