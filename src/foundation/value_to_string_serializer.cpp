#include "foundation/value_to_string_serializer.h"

#include <array>
#include <variant>

#include "foundation/argument_details.h"
#include "foundation/guarded.h"
#include "foundation/invalid_operation_err.h"
#include "foundation/unexpected_value_error.h"

namespace zorkanca {

namespace {

// Automation type numbers (VarType) of all alternatives of `Value`, in their order.
constexpr std::array<std::int32_t, std::variant_size_v<Value>> kTypeNumbers = {0, 1, 11, 17, 2, 3,    20, 4,
                                                                               5, 6, 14, 7,  8, 8209, 9};

struct TypeSerializer {
  std::int32_t valueType;
  const IValueToStringSerializer& serializer;
};

const std::array<TypeSerializer, 4>& Serializers() {
  static const IntegerValueToStringSerializer kInteger;
  static const LongValueToStringSerializer kLong;
  static const SingleValueToStringSerializer kSingle;
  static const StringValueToStringSerializer kString;
  static const std::array<TypeSerializer, 4> kAll = {{{2, kInteger}, {3, kLong}, {4, kSingle}, {8, kString}}};
  return kAll;
}

}  // namespace

const IValueToStringSerializer& ValueToStringSerializer::GetSerializer(std::int32_t valueType) {
  for (const TypeSerializer& entry : Serializers()) {
    if (entry.valueType == valueType) return entry.serializer;
  }
  UnexpectedValueError::RaiseUnexpectedValueError(u"valueType", DecimalText(valueType),
                                                  u"ValueToStringSerializer.GetSerializer", {});
}

Text ValueToStringSerializer::Serialize(const Value& value) {
  const IValueToStringSerializer& serializer = GetSerializer(kTypeNumbers[value.index()]);
  return Text(1, serializer.Tag()).append(serializer.Serialize(value));
}

Value ValueToStringSerializer::Deserialize(TextView data) {
  constexpr TextView kName = u"ValueToStringSerializer.Deserialize";
  for (const TypeSerializer& entry : Serializers()) {
    if (!data.starts_with(entry.serializer.Tag())) continue;
    return Guarded(kName, ArgumentDetails({{u"data", data}}),
                   [&] { return entry.serializer.Deserialize(data.substr(1)); });
  }
  InvalidOperationErr::RaiseError(Text(u"Hodnota \"").append(data).append(u"\" neobsahuje značku pro podporovaný typ."),
                                  kName, {});
}

}  // namespace zorkanca
