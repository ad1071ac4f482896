#include "foundation/collection_to_string_serializer.h"

#include "foundation/argument_details.h"
#include "foundation/guarded.h"
#include "foundation/value_to_string_serializer.h"

namespace zorkanca {

Text CollectionToStringSerializer::Serialize(const Collection& values) const {
  return Guarded(u"CollectionToStringSerializer.Serialize", NoArguments, [&] {
    Text data;
    for (const Value& value : values) {
      if (!data.empty()) data.push_back(ValuesSeparator);
      data.append(ValueToStringSerializer::Serialize(value));
    }
    return data;
  });
}

Collection CollectionToStringSerializer::Deserialize(TextView data) const {
  return Guarded(u"CollectionToStringSerializer.Deserialize", ArgumentDetails({{u"data", data}}), [&] {
    Collection values;
    if (data.empty()) return values;
    for (const TextView piece : Split(data, ValuesSeparator)) {
      values.push_back(ValueToStringSerializer::Deserialize(piece));
    }
    return values;
  });
}

}  // namespace zorkanca
