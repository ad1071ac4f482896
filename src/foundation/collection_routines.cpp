#include "foundation/collection_routines.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>

#include "foundation/argument_details.h"
#include "foundation/argument_error.h"
#include "foundation/guarded.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

/// At most `length` items from a position. Errors: 9 unless the position is one of an item or just behind the last.
Collection Part(const Collection& source, std::int32_t startIndex, std::size_t length) {
  if (startIndex < 1 || static_cast<std::size_t>(startIndex) > source.size() + 1) {
    Raise(RuntimeError::kSubscriptOutOfRange);
  }
  const std::size_t start = static_cast<std::size_t>(startIndex) - 1;
  const auto first = source.begin() + static_cast<std::ptrdiff_t>(start);
  return Collection(first, first + static_cast<std::ptrdiff_t>(std::min(length, source.size() - start)));
}

}  // namespace

void CollectionRoutines::AddTo(Collection& target, const Collection& source) {
  target.reserve(target.size() + source.size());  // so that a target that is its own source stays in place
  std::copy_n(source.begin(), source.size(), std::back_inserter(target));
}

Collection CollectionRoutines::CopyFrom(const Collection& source, std::int32_t startIndex) {
  return Guarded(u"CollectionRoutines.CopyFrom", ArgumentDetails({{u"startIndex", startIndex}}),
                 [&] { return Part(source, startIndex, std::numeric_limits<std::size_t>::max()); });
}

Collection CollectionRoutines::CopyFromWithLength(const Collection& source, std::int32_t startIndex,
                                                  std::int32_t length) {
  constexpr TextView kName = u"CollectionRoutines.CopyFromWithLength";
  if (length < 0) ArgumentError().RaiseArgumentError(u"length", DecimalText(length), u"Nezáporné číslo", kName);
  return Guarded(kName, ArgumentDetails({{u"startIndex", startIndex}, {u"length", length}}),
                 [&] { return Part(source, startIndex, static_cast<std::size_t>(length)); });
}

std::vector<Collection> CollectionRoutines::Split(const Collection& source, std::int32_t partLength) {
  if (partLength < 1) {
    ArgumentError().RaiseArgumentError(u"partLength", DecimalText(partLength), u"Kladné číslo",
                                       u"CollectionRoutines.Split");
  }
  std::vector<Collection> parts;
  for (std::size_t start = 0; start < source.size(); start += static_cast<std::size_t>(partLength)) {
    parts.push_back(Part(source, static_cast<std::int32_t>(start + 1), static_cast<std::size_t>(partLength)));
  }
  return parts;
}

}  // namespace zorkanca
