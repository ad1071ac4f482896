// The automation variant: one value of a record field or of a parameter, with the type that the client gave it.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

#include "runtime/text.h"

namespace zorkanca {

/// No value was ever given (an omitted parameter, an uninitialised variable).
struct Empty {
  friend bool operator==(Empty, Empty) = default;
};

/// The database's "no value".
struct Null {
  friend bool operator==(Null, Null) = default;
};

/// An amount in ten-thousandths: 12.5 is 125000.
struct Currency {
  std::int64_t tenThousandths = 0;
  friend bool operator==(Currency, Currency) = default;
};

/// A decimal number: a 96-bit integer (high 32 bits, low 64 bits) divided by 10 to the power `scale`, 0 to 28.
struct Decimal {
  std::uint32_t high = 0;
  std::uint64_t low = 0;
  std::uint8_t scale = 0;
  bool negative = false;
  friend bool operator==(const Decimal&, const Decimal&) = default;
};

/// Days since 30.12.1899; the fraction is the time of day and counts forwards also before that day.
/// Valid from 1.1.100 to 31.12.9999.
struct Date {
  double serial = 0;
  friend bool operator==(Date, Date) = default;
};

/// Bytes of a binary field.
using Binary = std::vector<std::byte>;

/// An automation object; the null pointer is "Nothing". Concrete objects derive from it.
class Object {
 public:
  virtual ~Object() = default;
};
using ObjectReference = std::shared_ptr<Object>;

/// Boolean is bool, Byte uint8_t, Integer int16_t, Long int32_t, big integer int64_t, Single float, Double double.
using Value = std::variant<Empty, Null, bool, std::uint8_t, std::int16_t, std::int32_t, std::int64_t, float, double,
                           Currency, Decimal, Date, Text, Binary, ObjectReference>;

inline bool IsNull(const Value& value) {
  return std::holds_alternative<Null>(value);
}
inline bool IsEmptyValue(const Value& value) {
  return std::holds_alternative<Empty>(value);
}

}  // namespace zorkanca
