// Any value of a type that settings can hold as a text that tells its type (see value_serializers.h).
#pragma once

#include <cstdint>

#include "foundation/value_serializers.h"
#include "runtime/text.h"
#include "runtime/value.h"

namespace zorkanca {

/// Stateless.
class ValueToStringSerializer {
 public:
  /// Errors: `ArgumentErrorCode` for a value that is neither Integer, Long, Single nor String.
  static Text Serialize(const Value& value);
  /// Errors: `InvalidOperationErrorCode` for a text without a known tag; internal error when the rest is no value of
  /// the tag's type.
  static Value Deserialize(TextView data);

  /// @param valueType  an automation type number: 2 Integer, 3 Long, 4 Single, 8 String
  /// Errors: `ArgumentErrorCode` for any other type.
  static const IValueToStringSerializer& GetSerializer(std::int32_t valueType);
};

}  // namespace zorkanca
