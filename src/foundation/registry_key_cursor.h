// A place in the registry that moves from key to key, for whatever keeps data of its own in trees of keys.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/registry.h"
#include "runtime/text.h"

namespace zorkanca {

/// Where every cursor starts, below its root.
inline constexpr TextView kCursorStart = u"Software\\QRD\\Zorix";

/// Has a current key. Keys are opened and made one level at a time: a name with "\" in it is none.
/// Errors of every call: those of platform/registry.h, and 5 for an empty name or one with "\".
class RegistryKeyCursor {
 public:
  /// At the start below HKEY_CURRENT_USER. @param registry  outlives this object
  explicit RegistryKeyCursor(Registry& registry) : registry_(registry), key_(kCursorStart) {}

  RegistryHive Root() const { return root_; }
  /// Goes to the start below another root.
  void Root(RegistryHive root);

  /// Makes a sub-key the current key.
  /// Errors: 76 with "neexistuje" in its description when there is no such key; the current key stays.
  void OpenKey(TextView name);
  /// Makes the key above the current key; at the start nothing happens.
  void OpenParent();
  /// Makes a sub-key, where it is missing, and makes it the current key.
  void CreateKey(TextView name);
  /// Names of the sub-keys in order of creation.
  std::vector<Text> EnumKeys() const;

  /// A value of the current key, the default when it is missing.
  /// Errors: 13 when it is of another kind.
  Text GetValue(TextView name, TextView defaultValue) const;
  std::int32_t GetValue(TextView name, std::int32_t defaultValue) const;
  void SetValue(TextView name, const RegistryValue& value);
  /// Writes a value of a key named by its path from the start, wherever the current key is.
  void SetValueAt(TextView keyPath, TextView name, const RegistryValue& value);

  /// Deletes a sub-key. @return false when there was none
  /// Errors: 75 when it has sub-keys of its own and `recursive` is false.
  bool DeleteKey(TextView name, bool recursive = false);

 private:
  template <typename Kind>
  Kind Read(TextView name, Kind defaultValue) const;
  Text PathOf(TextView name) const;
  Text Shown(TextView path) const;

  Registry& registry_;
  RegistryHive root_ = RegistryHive::kCurrentUser;
  Text key_;
};

}  // namespace zorkanca
