// The registry as text files in the format of registry exports.
#pragma once

#include <string>

#include "host/registry/hive_file.h"
#include "platform/registry.h"

namespace zorkanca {

/// One file per root in the user's folder: HKCU.reg, HKCR.reg, HKLM.reg. The machine's root is read from the system's
/// HKLM.reg with the user's on top of it; writing touches the user's files alone.
/// A change locks registry.lock, reads what others have written, and replaces the files whole; so any number of
/// programs may write. Reading needs no lock. An object belongs to one thread at a time.
class FileRegistry final : public Registry {
 public:
  /// @param homeFolder  made on the first change, for its owner alone
  explicit FileRegistry(const std::string& homeFolder, const std::string& systemFolder = "/etc/zorkanca");

  bool KeyExists(RegistryHive hive, TextView key) override;
  std::optional<RegistryValue> Read(RegistryHive hive, TextView key, TextView name) override;
  std::vector<Text> SubkeyNames(RegistryHive hive, TextView key) override;
  std::vector<Text> ValueNames(RegistryHive hive, TextView key) override;

  void CreateKey(RegistryHive hive, TextView key) override;
  void Write(RegistryHive hive, TextView key, TextView name, const RegistryValue& value) override;
  bool DeleteValue(RegistryHive hive, TextView key, TextView name) override;
  bool DeleteKey(RegistryHive hive, TextView key) override;

  /// A change within a change is part of the outer one: when it fails and the outer one goes on, what it did stays.
  void Change(const std::function<void()>& changes) override;

 private:
  HiveFile& FileOf(RegistryHive hive);
  HiveFile& Current(RegistryHive hive);
  template <typename Edit>
  void ChangeHive(RegistryHive hive, Edit edit);
  FileDescriptor LockHome() const;
  void Save();

  std::string home_;
  HiveFile system_;
  HiveFile classes_;
  HiveFile user_;
  HiveFile machine_;
  bool changing_ = false;
};

}  // namespace zorkanca
