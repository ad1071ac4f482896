// The registry: hives, keys with "\" between their parts, values under names. Names ignore case and keep their
// spelling.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <variant>
#include <vector>

#include "runtime/text.h"

namespace zorkanca {

/// Root keys, by their system numbers.
enum class RegistryHive : std::uint32_t {
  kClassesRoot = 0x80000000u,
  kCurrentUser = 0x80000001u,
  kLocalMachine = 0x80000002u,
};

/// A value of a kind that the product never makes, kept as it was imported.
struct RawRegistryValue {
  std::uint32_t type = 3;  ///< REG_ number: 0 none, 2 expandable text, 3 binary, 7 several texts, 11 64-bit number
  std::vector<std::byte> bytes;
  friend bool operator==(const RawRegistryValue&, const RawRegistryValue&) = default;
};

/// Text (REG_SZ), a signed 32-bit number (REG_DWORD), or raw bytes of another kind.
using RegistryValue = std::variant<Text, std::int32_t, RawRegistryValue>;

/// A few primitives; `RegistryAccess` and `RegistryKeyCursor` make them comfortable.
/// Errors of every call: 70 or 75 when the store cannot be read or written, 5 for an unsound key name.
class Registry {
 public:
  virtual ~Registry() = default;

  virtual bool KeyExists(RegistryHive hive, TextView key) = 0;
  /// @param name  empty for the key's default value
  /// @return nothing when the key or the value is missing
  virtual std::optional<RegistryValue> Read(RegistryHive hive, TextView key, TextView name) = 0;
  /// Names of the direct sub-keys, in order of creation or as the system has them; empty when the key is missing.
  virtual std::vector<Text> SubkeyNames(RegistryHive hive, TextView key) = 0;
  /// Names of the values (the default value is ""), in the same order; empty when the key is missing.
  virtual std::vector<Text> ValueNames(RegistryHive hive, TextView key) = 0;

  /// Makes the key with all its parents; nothing happens when it exists.
  virtual void CreateKey(RegistryHive hive, TextView key) = 0;
  /// Writes a value, with the key when it is missing.
  virtual void Write(RegistryHive hive, TextView key, TextView name, const RegistryValue& value) = 0;
  /// @return false when there was nothing to delete
  virtual bool DeleteValue(RegistryHive hive, TextView key, TextView name) = 0;
  /// Deletes the key with all below it. @return false when there was nothing to delete
  virtual bool DeleteKey(RegistryHive hive, TextView key) = 0;

  /// Runs `changes`, which calls the writers above, as one change where the store knows such: others see all of it or
  /// nothing, it is written once, and an exception from `changes` drops them all. The registry of Windows takes each
  /// write at once and keeps those before an exception.
  virtual void Change(const std::function<void()>& changes) = 0;
};

}  // namespace zorkanca
