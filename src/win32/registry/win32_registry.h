// The registry of Windows.
#pragma once

#include "platform/registry.h"

namespace zorkanca::win32 {

/// No view is asked for: a 32-bit client sees what the rest of a 32-bit suite sees. Names are enumerated in the
/// system's order. A change is not a transaction of the system: each write of it takes effect at once.
class Win32Registry final : public Registry {
 public:
  bool KeyExists(RegistryHive hive, TextView key) override;
  std::optional<RegistryValue> Read(RegistryHive hive, TextView key, TextView name) override;
  std::vector<Text> SubkeyNames(RegistryHive hive, TextView key) override;
  std::vector<Text> ValueNames(RegistryHive hive, TextView key) override;
  void CreateKey(RegistryHive hive, TextView key) override;
  void Write(RegistryHive hive, TextView key, TextView name, const RegistryValue& value) override;
  bool DeleteValue(RegistryHive hive, TextView key, TextView name) override;
  bool DeleteKey(RegistryHive hive, TextView key) override;
  void Change(const std::function<void()>& changes) override { changes(); }
};

}  // namespace zorkanca::win32
