#include "foundation/variant_convertor.h"

#include "foundation/guarded.h"
#include "foundation/string_routines.h"
#include "foundation/unexpected_value_error.h"
#include "foundation/value_array.h"
#include "runtime/convert.h"

namespace zorkanca {

namespace {

/// Type numbers of automation variants; `kArrayFlag` is added to the type of the elements.
enum VarType : std::int32_t {
  kEmpty = 0,
  kNull = 1,
  kObject = 9,
  kError = 10,
  kVariant = 12,
  kDataObject = 13,
  kUserDefined = 36,
  kArrayFlag = 8192,
};

Text WordForObject(const ObjectReference& object) {
  if (!object) return u"Nothing";
  return VariantConvertor::WordForType(dynamic_cast<const ValueArray*>(object.get()) ? kArrayFlag : kObject);
}

Text TextOf(const Value& value, const Locale& locale) {
  if (const Text* text = std::get_if<Text>(&value)) return *text;
  if (const ObjectReference* object = std::get_if<ObjectReference>(&value)) return WordForObject(*object);
  if (IsEmptyValue(value)) return VariantConvertor::WordForType(kEmpty);
  if (IsNull(value)) return VariantConvertor::WordForType(kNull);
  if (std::holds_alternative<Binary>(value)) return VariantConvertor::WordForType(kArrayFlag);
  return ToText(value, locale);
}

}  // namespace

std::optional<std::int32_t> VariantConvertor::ToNullableLong(const Value& value, const Locale& locale) {
  constexpr TextView kName = u"VariantConvertor.ToNullableLong";
  if (IsNull(value)) return std::nullopt;
  if (!IsNumeric(value, locale)) {
    UnexpectedValueError::RaiseUnexpectedValueError(u"value", ToString(value, locale), kName,
                                                    u"Očekáváno číslo nebo Null");
  }
  return Guarded(
      kName, [&] { return StringRoutines::FormatNameValue(u"value", value, locale); },
      [&] { return std::optional(ToLong(value, locale)); });
}

std::optional<Date> VariantConvertor::ToNullableDate(const Value& value, const Locale& locale) {
  if (IsNull(value)) return std::nullopt;
  if (const Date* date = std::get_if<Date>(&value)) return *date;
  UnexpectedValueError::RaiseUnexpectedValueError(u"value", ToString(value, locale), u"VariantConvertor.ToNullableDate",
                                                  u"Očekáváno datum nebo Null");
}

Text VariantConvertor::ToString(const Value& value, const Locale& locale) {
  return Guarded(
      u"VariantConvertor.ToString", [] { return Text(); }, [&] { return TextOf(value, locale); });
}

Text VariantConvertor::WordForType(std::int32_t varType) {
  if (varType >= kArrayFlag) return u"Array";
  switch (varType) {
    case kEmpty:
      return u"Empty";
    case kNull:
      return u"Null";
    case kObject:
      return u"Object";
    case kError:
      return u"Error";
    case kVariant:
      return u"Array of Variants";
    case kDataObject:
      return u"DataObject";
    case kUserDefined:
      return u"UserDefinedType";
    default:
      UnexpectedValueError::RaiseUnexpectedValueError(u"VarType(value)", DecimalText(varType),
                                                      u"VariantConvertor.ToString", {});
  }
}

}  // namespace zorkanca
