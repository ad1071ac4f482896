// A list of values as one text, for settings that hold more than one value.
#pragma once

#include <initializer_list>

#include "foundation/collection_routines.h"
#include "runtime/text.h"
#include "runtime/value.h"

namespace zorkanca {

/// Joins the texts of `ValueToStringSerializer`. Only the separator "|" may stand in texts: they are written without
/// it.
class CollectionToStringSerializer {
 public:
  /// Between each two values, one character.
  char16_t ValuesSeparator = u'|';

  /// Errors: internal error for a value of a type that cannot be written.
  Text Serialize(const Collection& values) const;
  Text SerializeValues(std::initializer_list<Value> values) const { return Serialize(Collection(values)); }
  /// @return nothing for an empty text
  /// Errors: internal error when a piece is no value.
  Collection Deserialize(TextView data) const;
};

}  // namespace zorkanca
