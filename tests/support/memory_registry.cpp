#include "support/memory_registry.h"

#include <algorithm>

#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::testing {

namespace {

std::vector<TextView> PartsOf(TextView key) {
  if (key.empty()) return {};
  std::vector<TextView> parts = Split(key, u'\\');
  for (const TextView part : parts) {
    if (part.empty()) Raise(RuntimeError::kInvalidCall);
  }
  return parts;
}

/// The sub-key or value of that name, null when there is none.
template <typename Items, typename NameOf>
auto Named(Items& items, TextView name, NameOf nameOf) -> decltype(items.data()) {
  const auto found = std::find_if(items.begin(), items.end(),
                                  [&](const auto& item) { return EqualsIgnoringCase(nameOf(item), name); });
  return found == items.end() ? nullptr : &*found;
}

constexpr auto kNameOfKey = [](const auto& key) -> TextView { return key.name; };
constexpr auto kNameOfValue = [](const auto& value) -> TextView { return value.first; };

}  // namespace

bool MemoryRegistry::KeyExists(RegistryHive hive, TextView key) {
  return Find(hive, key) != nullptr;
}

std::optional<RegistryValue> MemoryRegistry::Read(RegistryHive hive, TextView key, TextView name) {
  Key* found = Find(hive, key);
  if (!found) return std::nullopt;
  const auto* value = Named(found->values, name, kNameOfValue);
  return value ? std::optional(value->second) : std::nullopt;
}

std::vector<Text> MemoryRegistry::SubkeyNames(RegistryHive hive, TextView key) {
  std::vector<Text> names;
  if (const Key* found = Find(hive, key)) {
    for (const Key& subkey : found->subkeys) names.push_back(subkey.name);
  }
  return names;
}

std::vector<Text> MemoryRegistry::ValueNames(RegistryHive hive, TextView key) {
  std::vector<Text> names;
  if (const Key* found = Find(hive, key)) {
    for (const auto& [name, value] : found->values) names.push_back(name);
  }
  return names;
}

void MemoryRegistry::CreateKey(RegistryHive hive, TextView key) {
  Make(hive, key);
}

void MemoryRegistry::Write(RegistryHive hive, TextView key, TextView name, const RegistryValue& value) {
  Key& made = Make(hive, key);
  if (auto* present = Named(made.values, name, kNameOfValue)) {
    present->second = value;
  } else {
    made.values.emplace_back(name, value);
  }
}

bool MemoryRegistry::DeleteValue(RegistryHive hive, TextView key, TextView name) {
  Key* found = Find(hive, key);
  if (!found) return false;
  return std::erase_if(found->values, [&](const auto& value) { return EqualsIgnoringCase(value.first, name); }) > 0;
}

bool MemoryRegistry::DeleteKey(RegistryHive hive, TextView key) {
  const std::vector<TextView> parts = PartsOf(key);
  if (parts.empty()) Raise(RuntimeError::kInvalidCall);
  const std::size_t nameStart = key.size() - parts.back().size();
  Key* parent = Find(hive, key.substr(0, nameStart == 0 ? 0 : nameStart - 1));
  if (!parent) return false;
  return std::erase_if(parent->subkeys,
                       [&](const Key& subkey) { return EqualsIgnoringCase(subkey.name, parts.back()); }) > 0;
}

void MemoryRegistry::Change(const std::function<void()>& changes) {
  const std::map<RegistryHive, Key> before = hives_;
  try {
    changes();
    if (refusesChanges) Raise(RuntimeError::kPermissionDenied);
  } catch (...) {
    hives_ = before;
    throw;
  }
}

std::string MemoryRegistry::Listing(RegistryHive hive, TextView key) {
  std::string lines;
  if (const Key* found = Find(hive, key)) List(lines, *found, {});
  return lines;
}

MemoryRegistry::Key* MemoryRegistry::Find(RegistryHive hive, TextView key) {
  Key* found = &hives_[hive];
  for (const TextView part : PartsOf(key)) {
    found = Named(found->subkeys, part, kNameOfKey);
    if (!found) return nullptr;
  }
  return found;
}

MemoryRegistry::Key& MemoryRegistry::Make(RegistryHive hive, TextView key) {
  Key* made = &hives_[hive];
  for (const TextView part : PartsOf(key)) {
    Key* subkey = Named(made->subkeys, part, kNameOfKey);
    made = subkey ? subkey : &made->subkeys.emplace_back(Key{.name = Text(part), .values = {}, .subkeys = {}});
  }
  return *made;
}

void MemoryRegistry::List(std::string& lines, const Key& key, const std::string& path) {
  if (!path.empty()) lines.append("[").append(path).append("]\n");
  for (const auto& [name, value] : key.values) {
    lines.append(ToUtf8(name)).append(" = ");
    if (const Text* text = std::get_if<Text>(&value)) {
      lines.append(ToUtf8(*text));
    } else if (const std::int32_t* number = std::get_if<std::int32_t>(&value)) {
      lines.append("#").append(std::to_string(*number));
    } else {
      lines.append("(raw)");
    }
    lines.append("\n");
  }
  for (const Key& subkey : key.subkeys) {
    std::string subpath = path;
    if (!path.empty()) subpath.append("\\");
    List(lines, subkey, subpath.append(ToUtf8(subkey.name)));
  }
}

}  // namespace zorkanca::testing
