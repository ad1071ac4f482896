// Arguments of the members: from the client's memory into the logic's types and back. A null pointer, which only
// clients of C++ pass, is an omitted argument; an output without a place is not given.
#pragma once

#include <cstdint>
#include <vector>

#include "runtime/text.h"
#include "runtime/value.h"
#include "win32/system.h"

namespace zorkanca::com {

/// A text by value; null is empty.
Text TextOf(BSTR text);
inline Text TextIn(const BSTR* text) {
  return text ? TextOf(*text) : Text();
}
inline std::int16_t IntegerIn(const short* number, std::int16_t omitted = 0) {
  return number ? *number : omitted;
}
inline std::int32_t LongIn(const long* number, std::int32_t omitted = 0) {
  return number ? static_cast<std::int32_t>(*number) : omitted;
}
inline float SingleIn(const float* number, float omitted) {
  return number ? *number : omitted;
}
/// Any number that is not 0 is True.
inline bool BooleanIn(const VARIANT_BOOL* truth, bool omitted = false) {
  return truth ? *truth != VARIANT_FALSE : omitted;
}
/// An enumeration of the logic for one of the type library, whose numbers are the same.
template <typename Enumeration, typename Published>
Enumeration EnumerationIn(const Published* value, Enumeration omitted = Enumeration()) {
  return value ? static_cast<Enumeration>(*value) : omitted;
}

/// Formats of columns: an array of texts or of Variants, by reference or not, whose index is the column's position.
/// Positions before the array's first are blank, elements that are no texts too; anything else holds no formats.
std::vector<Text> TextsIn(const VARIANT* array);
/// Marks of columns, in the same way: an array of Booleans or of Variants.
std::vector<bool> BooleansIn(const VARIANT* array);

/// Gives a text back where it was changed. Errors: 7.
void TextOut(BSTR* place, TextView text);
/// Gives the application's own object back; nothing where there is none.
void ObjectOut(IDispatch** place, const ObjectReference& object);
/// Gives texts back in an array from 0, in place of what was there. Errors: 7.
void TextsOut(SAFEARRAY** place, const std::vector<Text>& texts);

/// Results. @param place  holds nothing yet; may be null. Errors of texts: 7.
void TextResult(BSTR* place, TextView text);
template <typename Number>
void NumberResult(Number* place, Number number) {
  if (place) *place = number;
}
inline void BooleanResult(VARIANT_BOOL* place, bool truth) {
  if (place) *place = truth ? VARIANT_TRUE : VARIANT_FALSE;
}

}  // namespace zorkanca::com
