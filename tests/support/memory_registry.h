// The registry in memory, for tests of what reads and writes it.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/registry.h"

namespace zorkanca::testing {

/// A whole registry: names ignore case, keep their first spelling and their order of creation. The empty key is the
/// hive itself, which always exists and cannot be deleted. A key name with an empty part ("a\\b", "\a", "a\") is
/// unsound.
class MemoryRegistry : public Registry {
 public:
  bool KeyExists(RegistryHive hive, TextView key) override;
  std::optional<RegistryValue> Read(RegistryHive hive, TextView key, TextView name) override;
  std::vector<Text> SubkeyNames(RegistryHive hive, TextView key) override;
  std::vector<Text> ValueNames(RegistryHive hive, TextView key) override;
  void CreateKey(RegistryHive hive, TextView key) override;
  void Write(RegistryHive hive, TextView key, TextView name, const RegistryValue& value) override;
  bool DeleteValue(RegistryHive hive, TextView key, TextView name) override;
  bool DeleteKey(RegistryHive hive, TextView key) override;
  void Change(const std::function<void()>& changes) override;
  /// Makes every `Change` end with error 70, as on a disk that cannot be written.
  bool refusesChanges = false;

  /// All below a key as lines of UTF-8, keys with their paths from it, for comparison as one text:
  ///   [Sub\Key]
  ///   name = text
  ///   number = #5
  std::string Listing(RegistryHive hive, TextView key);

 private:
  struct Key {
    Text name;
    std::vector<std::pair<Text, RegistryValue>> values;
    std::vector<Key> subkeys;
  };

  Key* Find(RegistryHive hive, TextView key);
  Key& Make(RegistryHive hive, TextView key);
  static void List(std::string& lines, const Key& key, const std::string& path);

  std::map<RegistryHive, Key> hives_;
};

}  // namespace zorkanca::testing
