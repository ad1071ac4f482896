#include "host/registry/registry_tree.h"

#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr std::size_t kLongestPart = 255;  // the system's limits
constexpr std::size_t kLongestValueName = 16383;
constexpr std::size_t kMostParts = 512;
constexpr TextView kUnspeakable(u"\r\n\0", 3);  // a registry file cannot hold these in a name

void RequireValueName(TextView name) {
  const bool sound = name.size() <= kLongestValueName && name.find_first_of(kUnspeakable) == TextView::npos;
  if (!sound) Raise(RuntimeError::kInvalidCall, u"Unsound name of a registry value");
}

void SaveNode(RegWriter& writer, RegistryHive hive, const Text& key, const RegistryNode& node) {
  if (node.hidesLower) writer.AddDeletedKey(hive, key);
  const bool emptyRoot = key.empty() && node.values.empty();
  if (node.exists && !emptyRoot) writer.AddKey(hive, key);
  for (const auto& [name, value] : node.values) writer.AddValue(name, value);
  for (const auto& [name, child] : node.keys) SaveNode(writer, hive, key.empty() ? name : key + u"\\" + name, child);
}

}  // namespace

std::vector<TextView> SplitRegistryKey(TextView key) {
  if (key.empty()) return {};
  std::vector<TextView> parts = Split(key, u'\\');
  bool sound = parts.size() <= kMostParts && key.find_first_of(kUnspeakable) == TextView::npos;
  for (const TextView part : parts) sound = sound && !part.empty() && part.size() <= kLongestPart;
  if (!sound) Raise(RuntimeError::kInvalidCall, u"Unsound name of a registry key: " + Text(key));
  return parts;
}

RegistryTree::Place RegistryTree::Child(const Place& place, TextView part) {
  const RegistryNode* own = place.own ? place.own->keys.Find(part) : nullptr;
  const RegistryNode* lower = place.lower && !(own && own->hidesLower) ? place.lower->keys.Find(part) : nullptr;
  return {own, lower};
}

RegistryTree::Place RegistryTree::Find(TextView key) const {
  Place place{&own_, lower_};
  for (const TextView part : SplitRegistryKey(key)) place = Child(place, part);
  return place;
}

bool RegistryTree::KeyExists(TextView key) const {
  return Find(key).Exists();
}

std::optional<RegistryValue> RegistryTree::Read(TextView key, TextView name) const {
  const Place place = Find(key);
  const std::optional<RegistryValue>* value = place.own ? place.own->values.Find(name) : nullptr;
  if (!value && place.lower) value = place.lower->values.Find(name);
  return value ? *value : std::nullopt;
}

std::vector<Text> RegistryTree::SubkeyNames(TextView key) const {
  const Place place = Find(key);
  std::vector<Text> names;
  if (place.lower) {
    for (const auto& entry : place.lower->keys) {
      if (Child(place, entry.name).lower) names.push_back(entry.name);
    }
  }
  if (place.own) {
    for (const auto& entry : place.own->keys) {
      const bool listed = place.lower && place.lower->keys.Find(entry.name) && !entry.item.hidesLower;
      if (entry.item.exists && !listed) names.push_back(entry.name);
    }
  }
  return names;
}

std::vector<Text> RegistryTree::ValueNames(TextView key) const {
  const Place place = Find(key);
  std::vector<Text> names;
  if (place.lower) {
    for (const auto& entry : place.lower->values) {
      const std::optional<RegistryValue>* own = place.own ? place.own->values.Find(entry.name) : nullptr;
      if (!own || *own) names.push_back(entry.name);
    }
  }
  if (place.own) {
    for (const auto& [name, value] : place.own->values) {
      if (value && !(place.lower && place.lower->values.Find(name))) names.push_back(name);
    }
  }
  return names;
}

// The own layer's node of a key, made with all above it.
RegistryNode& RegistryTree::OwnNode(TextView key, bool exists) {
  RegistryNode* node = &own_;
  for (const TextView part : SplitRegistryKey(key)) {
    node = &node->keys.Add(part);
    node->exists = node->exists || exists;
  }
  return *node;
}

bool RegistryTree::CreateKey(TextView key) {
  if (KeyExists(key)) return false;
  OwnNode(key, true);
  return true;
}

bool RegistryTree::Write(TextView key, TextView name, const RegistryValue& value) {
  RequireValueName(name);
  std::optional<RegistryValue>& entry = OwnNode(key, true).values.Add(name);
  if (entry == value) return false;
  entry = value;
  return true;
}

bool RegistryTree::DeleteValue(TextView key, TextView name) {
  if (!Read(key, name)) return false;
  const RegistryNode* lower = Find(key).lower;
  const bool below = lower && lower->values.Find(name);
  NameTable<std::optional<RegistryValue>>& values = OwnNode(key, true).values;
  if (below) {
    values.Add(name).reset();
  } else {
    values.Remove(name);
  }
  return true;
}

bool RegistryTree::DeleteKey(TextView key) {
  if (key.empty()) Raise(RuntimeError::kInvalidCall, u"A root of the registry cannot be deleted");
  if (!KeyExists(key)) return false;
  const std::size_t separator = key.rfind(u'\\');
  const TextView parent = separator == TextView::npos ? TextView() : key.substr(0, separator);
  const TextView name = key.substr(separator + 1);  // npos + 1 is 0
  const RegistryNode* lowerParent = Find(parent).lower;
  RegistryNode& own = OwnNode(parent, false);
  own.keys.Remove(name);
  if (lowerParent && lowerParent->keys.Find(name)) own.keys.Add(name).hidesLower = true;
  return true;
}

void RegistryTree::LoadSection(TextView key, const RegSection& section, Deletions deletions) {
  if (section.deleted) {
    DeleteKey(key);
    if (deletions == Deletions::kKept) OwnNode(key, false).hidesLower = true;
    return;
  }
  RegistryNode& node = OwnNode(key, true);
  for (const RegLine& line : section.lines) {
    RequireValueName(line.name);
    if (line.value || deletions == Deletions::kKept) {
      node.values.Add(line.name) = line.value;
    } else {
      node.values.Remove(line.name);
    }
  }
}

void RegistryTree::Load(const std::vector<RegSection>& sections, RegistryHive hive, Deletions deletions,
                        const Text& origin) {
  RegistryTree loaded;
  for (const RegSection& section : sections) {
    const auto place = SplitRegPath(section.path);
    if (!place || place->first != hive) {
      RaiseRegError(origin, section.lineNumber, u"the key is not one of " + Text(RegRootName(hive)));
    }
    try {
      loaded.LoadSection(place->second, section, deletions);
    } catch (const Error& error) {
      RaiseRegError(origin, section.lineNumber, error.description());
    }
  }
  own_ = std::move(loaded.own_);
}

std::string RegistryTree::Save(RegistryHive hive) const {
  RegWriter writer;
  SaveNode(writer, hive, Text(), own_);
  return writer.Bytes();
}

}  // namespace zorkanca
