// The list of values that automation calls a collection, and its copying and splitting. Positions count from 1.
#pragma once

#include <cstdint>
#include <vector>

#include "runtime/value.h"

namespace zorkanca {

using Collection = std::vector<Value>;

/// Stateless.
class CollectionRoutines {
 public:
  /// Appends all items of the source, which may be the target itself.
  static void AddTo(Collection& target, const Collection& source);
  static Collection Copy(const Collection& source) { return source; }
  /// The items from a position to the end; nothing from the position behind the last item.
  /// Errors: internal error for any other position without an item.
  static Collection CopyFrom(const Collection& source, std::int32_t startIndex);
  /// As `CopyFrom`, but at most `length` items.
  /// Errors: `ArgumentErrorCode` for a negative length.
  static Collection CopyFromWithLength(const Collection& source, std::int32_t startIndex, std::int32_t length);
  /// Consecutive parts of `partLength` items each; the last one may be shorter. An empty source has no part.
  /// Errors: `ArgumentErrorCode` for a length below 1.
  static std::vector<Collection> Split(const Collection& source, std::int32_t partLength);
};

}  // namespace zorkanca
