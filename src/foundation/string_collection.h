// An ordered list of texts. Positions count from 1.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "runtime/text.h"

namespace zorkanca {

/// Errors of all operations that take a position: internal error when there is no item at it.
class StringCollection {
 public:
  StringCollection() = default;
  explicit StringCollection(std::vector<Text> values) : items_(std::move(values)) {}

  std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }
  bool IsEmpty() const { return items_.empty(); }
  const Text& Item(std::int32_t index) const;
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

  void Add(TextView value) { items_.emplace_back(value); }
  void AddBefore(TextView value, std::int32_t beforeIndex);
  /// Adds only what is more than spaces.
  void AddIfNotBlank(TextView value);
  /// Adds "name = value".
  void AddNameValue(TextView name, TextView value);
  void AddValues(const std::vector<Text>& values);

  void Remove(std::int32_t index);
  void clear() { items_.clear(); }
  /// Replaces each occurrence of a text in each item; an empty `find` changes nothing.
  void ReplaceForEach(TextView find, TextView replacement);

  /// True when some item equals the value, binary.
  bool Contains(TextView value) const;
  /// The items joined, the separator between each two.
  Text ToString(TextView separator) const { return Join(items_, separator); }

 private:
  /// Offset of the item at a position. Errors: 9 when there is none.
  std::size_t OffsetOf(std::int32_t index) const;

  std::vector<Text> items_;
};

}  // namespace zorkanca
