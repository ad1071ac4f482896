// The system's variant as an owner of what it holds, and the way between it and our values.
#pragma once

#include <concepts>
#include <cstdint>
#include <utility>

#include "runtime/value.h"
#include "win32/system.h"

namespace zorkanca::win32 {

class Variant {
 public:
  Variant() noexcept { VariantInit(&variant_); }
  Variant(Variant&& other) noexcept : variant_(other.Detach()) {}
  Variant(const Variant&) = delete;
  ~Variant() { VariantClear(&variant_); }
  Variant& operator=(Variant&& other) noexcept {
    if (this != &other) *Receive() = other.Detach();
    return *this;
  }
  Variant& operator=(const Variant&) = delete;

  /// An argument that is left out.
  static Variant Missing();
  /// Takes over what a variant holds.
  static Variant Owning(VARIANT held) {
    Variant variant;
    variant.variant_ = held;
    return variant;
  }

  const VARIANT& get() const { return variant_; }
  VARTYPE type() const { return variant_.vt; }
  /// Where a function puts a variant that it made; what was held before is released.
  VARIANT* Receive() {
    VariantClear(&variant_);
    return &variant_;
  }
  /// Gives away what is held.
  VARIANT Detach() {
    const VARIANT held = variant_;
    VariantInit(&variant_);
    return held;
  }

 private:
  VARIANT variant_;
};

/// The variant of a value, of exactly its type: Empty VT_EMPTY, Null VT_NULL, Binary an array of bytes, `CellError`
/// VT_ERROR, "Nothing" and an automation object VT_DISPATCH. Errors: 7 for a text too long for the system; 13 for an
/// object of another kind.
Variant ValueToVariant(const Value& value);
/// The variant of a text.
Variant TextToVariant(TextView text);

/// The variant of anything that is a text or a value.
template <typename Kind>
Variant ToVariant(const Kind& value) {
  if constexpr (std::convertible_to<Kind, TextView>) {
    return TextToVariant(value);
  } else {
    return ValueToVariant(Value(value));
  }
}

/// The value of a variant; one by reference counts as what it refers to. Signed bytes and unsigned numbers become the
/// next wider type; a missing argument is Empty, another VT_ERROR a `CellError`. Errors: 13 for arrays (but for those
/// of bytes), records and objects without automation.
Value ToValue(const VARIANT& variant);
inline Value ToValue(const Variant& variant) {
  return ToValue(variant.get());
}

/// What a variant holds, turned into the type where it is of another. Errors: 13, 6.
bool AsBoolean(const Variant& variant);
std::int32_t AsLong(const Variant& variant);
/// Null, too, is the empty text.
Text AsText(const Variant& variant);

}  // namespace zorkanca::win32
