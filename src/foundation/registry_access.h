// Registry values with defaults, and the settings of an application, which lie per user under a key that the other
// programs of the suite share:
//   HKEY_CURRENT_USER\Software\VB and VBA Program Settings\<application>\<section>   key = value
#pragma once

#include "platform/registry.h"
#include "runtime/text.h"

namespace zorkanca {

/// Needs its application name before settings are read or saved; the library gives it `kApplicationName`.
class RegistryAccess {
 public:
  /// @param registry  outlives this object
  explicit RegistryAccess(Registry& registry) : registry_(registry) {}

  /// The text of a value; a number in plain decimal form, an expandable text with its variables unexpanded.
  /// @param valueName     empty for the key's default value
  /// @param defaultValue  given when the key or the value is missing, or the value is of another kind
  /// Errors: internal error when the registry cannot be read.
  Text ReadValue(RegistryHive rootKey, TextView keyPath, TextView valueName, TextView defaultValue) const;

  /// Errors: `ArgumentErrorCode` for a blank name.
  void SetApplicationName(TextView name);

  /// In both: a section may hold "\" between the names of nested sections.
  /// Errors: `ArgumentErrorCode` for a blank section or key or without an application name; internal error when the
  /// registry fails.
  void SaveSetting(TextView section, TextView key, TextView value) const;
  Text GetSetting(TextView section, TextView key, TextView defaultValue) const;

 private:
  void CheckSetting(TextView section, TextView key, TextView sourceFunctionName) const;
  Text SectionPath(TextView section) const;

  Registry& registry_;
  Text applicationName_;
};

}  // namespace zorkanca
