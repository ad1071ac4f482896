// Template lists in a registry in memory, for the tests of lists and dialogs.
#pragma once

#include <string>

#include "support/memory_platform.h"
#include "templates/seznam_sablon_office.h"

namespace zorkanca::testing {

/// A computer whose suite brings templates for the application A1, with C:\S for the templates of users.
class TemplatePlatform : public MemoryPlatform {
 public:
  TemplatePlatform() {
    environment.supplyFolder = u"C:\\Temp";
    files.Put(u"C:\\Temp\\ZorSabl.txt", "");
  }

  /// Stores a template of the default list as an earlier session would have.
  void Store(TextView name, std::int32_t key, bool active = false, std::int32_t id = 0) {
    const Text path = KeyOf(name);
    const RegistryHive user = RegistryHive::kCurrentUser;
    registry.Write(user, path, u"key", key);
    registry.Write(user, path, u"description", u"Popis " + Text(name));
    registry.Write(user, path, u"id", id);
    registry.Write(user, path, u"path", Text(u"C:\\S"));
    if (active) registry.Write(user, path, u"active", -1);
    files.Put(u"C:\\S\\" + Text(name), "");
  }
  /// The registry key of a template of the default list; of the list itself without a name.
  static Text KeyOf(TextView name) {
    return Text(u"Software\\QRD\\Zorix\\SABLONY\\A1\\(Výchozí)").append(name.empty() ? u"" : u"\\").append(name);
  }
  /// A value of a template as the registry has it; "-" when there is none.
  std::string Stored(TextView name, TextView value) {
    const auto stored = registry.Read(RegistryHive::kCurrentUser, KeyOf(name), value);
    if (!stored) return "-";
    const Text* text = std::get_if<Text>(&*stored);
    return text ? ToUtf8(*text) : std::to_string(std::get<std::int32_t>(*stored));
  }
};

/// The names of a list in order, with their positions: "1 a.dot, 2 b.dot"; "*" before the active ones.
inline std::string Names(const c_SeznamSablonOffice& list) {
  std::string names;
  for (const auto& each : list) {
    names += (names.empty() ? "" : ", ") + std::to_string(each->key()) + (each->Active() ? " *" : " ") +
             ToUtf8(each->name());
  }
  return names;
}

}  // namespace zorkanca::testing
