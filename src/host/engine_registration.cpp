#include "host/engine_registration.h"

#include <array>

#include "runtime/error.h"
#include "runtime/text.h"

namespace zorkanca {

namespace {

constexpr TextView kRemembered = u"zorKancA\\Engines";

struct Engine {
  TextView name;
  TextView classId;
};

constexpr std::array<Engine, 2> kEngines = {{{u"Word.Application", u"{B3D3AF5C-37D2-499C-9E6A-03421849F174}"},
                                             {u"Excel.Application", u"{AD462E2B-1751-4729-B7EF-7DAB6828D5F1}"}}};

void Register(Registry& registry, const Engine& engine) {
  constexpr RegistryHive kClasses = RegistryHive::kClassesRoot;
  const auto isRemembered = [&] { return registry.Read(kClasses, kRemembered, engine.name).has_value(); };
  if (isRemembered()) return;
  registry.Change([&] {
    if (isRemembered()) return;  // another process was faster
    const Text key = Text(engine.name).append(u"\\CLSID");
    if (!registry.KeyExists(kClasses, key)) registry.Write(kClasses, key, {}, Text(engine.classId));
    registry.Write(kClasses, kRemembered, engine.name, 1);
  });
}

}  // namespace

void RegisterEngines(Registry& registry) {
  try {
    for (const Engine& engine : kEngines) Register(registry, engine);
  } catch (const Error&) {
    // Whoever needs the registry is told; a program that does not must still run.
  }
}

}  // namespace zorkanca
