// Where a template list lies in the registry, from the start of the cursor:
//   SABLONY \ application \ list \ template's file name     description, id, path, key, active
#pragma once

#include "foundation/registry_key_cursor.h"
#include "platform/registry.h"
#include "runtime/text.h"

namespace zorkanca {

/// The first key of all template lists.
inline constexpr TextView kTemplateListsKey = u"SABLONY";
/// The name of a list that was given none.
inline constexpr TextView kDefaultListName = u"(Výchozí)";

/// The key of one list.
struct TemplateListKey {
  RegistryHive RootKey = RegistryHive::kCurrentUser;
  Text BaseKey{kTemplateListsKey};
  Text ZorAplName{};  ///< code of the suite application
  Text Typ{};         ///< name of the list

  /// A cursor at the list. Errors: of the cursor; 76 with "neexistuje" in its description when the list is not there.
  RegistryKeyCursor Open(Registry& registry) const;
  /// As `Open`, but makes the keys that are missing.
  RegistryKeyCursor OpenOrCreate(Registry& registry) const;
  /// The key of a template as a path from the cursor's start.
  Text PathOf(TextView templateName) const;
};

}  // namespace zorkanca
