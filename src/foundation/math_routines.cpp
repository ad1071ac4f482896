#include "foundation/math_routines.h"

#include <cmath>

#include "foundation/argument_error.h"
#include "foundation/guarded.h"
#include "foundation/string_routines.h"
#include "foundation/variant_convertor.h"
#include "runtime/convert.h"

namespace zorkanca {

namespace {

[[noreturn]] void RaiseNotExpected(TextView name, const Value& value, TextView expected, TextView function,
                                   const Locale& locale) {
  ArgumentError().RaiseArgumentError(name, VariantConvertor::ToString(value, locale), expected, function);
}

double NumberOf(TextView name, const Value& value, TextView function, const Locale& locale) {
  if (!IsNumeric(value, locale)) RaiseNotExpected(name, value, u"[IsNumeric]", function, locale);
  return Guarded(
      function, [&] { return StringRoutines::FormatNameValue(name, value, locale); },
      [&] { return ToDouble(value, locale); });
}

}  // namespace

Value MathRoutines::Min(const Value& value1, const Value& value2, const Locale& locale) {
  constexpr TextView kName = u"MathRoutines.Min";
  const double number1 = NumberOf(u"value1", value1, kName, locale);
  return NumberOf(u"value2", value2, kName, locale) < number1 ? value2 : value1;
}

Value MathRoutines::Max(const Value& value1, const Value& value2, const Locale& locale) {
  constexpr TextView kName = u"MathRoutines.Max";
  const double number1 = NumberOf(u"value1", value1, kName, locale);
  return NumberOf(u"value2", value2, kName, locale) > number1 ? value2 : value1;
}

bool MathRoutines::IsNear(const Value& number, const Value& expectToBeNearNumber, const Value& delta,
                          const Locale& locale) {
  constexpr TextView kName = u"MathRoutines.IsNear";
  const double actual = NumberOf(u"number", number, kName, locale);
  const double expected = NumberOf(u"expectToBeNearNumber", expectToBeNearNumber, kName, locale);
  const double allowed = NumberOf(u"delta", delta, kName, locale);
  if (allowed < 0) RaiseNotExpected(u"delta", delta, u"Nezáporné číslo", kName, locale);
  return std::abs(actual - expected) <= allowed;
}

}  // namespace zorkanca
