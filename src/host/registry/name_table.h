// Things under names: found fast with case ignored, listed in the order in which they were added.
#pragma once

#include <list>
#include <unordered_map>
#include <utility>

#include "runtime/text.h"

namespace zorkanca {

template <typename Item>
class NameTable {
 public:
  struct Entry {
    Text name;  ///< in the spelling of the first `Add`
    Item item;
  };

  bool empty() const { return entries_.empty(); }
  auto begin() const { return entries_.begin(); }
  auto end() const { return entries_.end(); }

  /// @return null when there is none; the address holds until the entry is removed
  Item* Find(TextView name) {
    const auto found = index_.find(LowerCase(name));
    return found == index_.end() ? nullptr : &found->second->item;
  }
  const Item* Find(TextView name) const {
    const auto found = index_.find(LowerCase(name));
    return found == index_.end() ? nullptr : &found->second->item;
  }

  /// The item of this name, made first where it is missing.
  Item& Add(TextView name) {
    const auto [found, isNew] = index_.try_emplace(LowerCase(name));
    if (isNew) found->second = entries_.insert(entries_.end(), Entry{Text(name), Item()});
    return found->second->item;
  }

  /// @return false when there is none
  bool Remove(TextView name) {
    const auto found = index_.find(LowerCase(name));
    if (found == index_.end()) return false;
    entries_.erase(found->second);
    index_.erase(found);
    return true;
  }

 private:
  std::list<Entry> entries_;
  std::unordered_map<Text, typename std::list<Entry>::iterator> index_;
};

}  // namespace zorkanca
