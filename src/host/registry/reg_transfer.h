// Keys carried in and out as registry export files.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/registry.h"

namespace zorkanca {

/// A key to export; an empty key is the whole root.
struct RegistryPlace {
  RegistryHive hive;
  Text key;
};

/// The keys with everything below them as a file in UTF-16. Errors: 5 when a key does not exist.
std::string ExportRegistry(Registry& registry, std::span<const RegistryPlace> places);

/// Takes all that a file says into the registry, deletions too, as one change.
/// @param origin  name of the file for messages
/// Errors: 75 with the number of the line when the file is unsound, 5 for a root other than HKEY_CURRENT_USER,
/// HKEY_LOCAL_MACHINE and HKEY_CLASSES_ROOT and for unsound names; the registry stays as it was.
void ImportRegistry(Registry& registry, std::string_view bytes, const Text& origin);

}  // namespace zorkanca
