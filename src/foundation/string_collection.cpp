#include "foundation/string_collection.h"

#include <algorithm>

#include "foundation/argument_details.h"
#include "foundation/guarded.h"
#include "runtime/error.h"

namespace zorkanca {

const Text& StringCollection::Item(std::int32_t index) const {
  return items_[Guarded(u"StringCollection.Item", ArgumentDetails({{u"index", index}}),
                        [&] { return OffsetOf(index); })];
}

void StringCollection::AddBefore(TextView value, std::int32_t beforeIndex) {
  Guarded(u"StringCollection.AddBefore", ArgumentDetails({{u"value", value}, {u"beforeIndex", beforeIndex}}), [&] {
    const auto offset = static_cast<std::ptrdiff_t>(OffsetOf(beforeIndex));
    items_.insert(items_.begin() + offset, Text(value));
  });
}

void StringCollection::AddIfNotBlank(TextView value) {
  if (!IsBlank(value)) Add(value);
}

void StringCollection::AddNameValue(TextView name, TextView value) {
  items_.push_back(Text(name).append(u" = ").append(value));
}

void StringCollection::AddValues(const std::vector<Text>& values) {
  for (const Text& value : values) Add(value);
}

void StringCollection::Remove(std::int32_t index) {
  Guarded(u"StringCollection.Remove", ArgumentDetails({{u"index", index}}),
          [&] { items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(OffsetOf(index))); });
}

void StringCollection::ReplaceForEach(TextView find, TextView replacement) {
  for (Text& item : items_) item = Replace(item, find, replacement);
}

bool StringCollection::Contains(TextView value) const {
  return std::find(items_.begin(), items_.end(), value) != items_.end();
}

std::size_t StringCollection::OffsetOf(std::int32_t index) const {
  if (index < 1 || index > Count()) Raise(RuntimeError::kSubscriptOutOfRange);
  return static_cast<std::size_t>(index) - 1;
}

}  // namespace zorkanca
