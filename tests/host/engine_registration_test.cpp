#include "host/engine_registration.h"

#include <gtest/gtest.h>

#include "support/memory_registry.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

constexpr RegistryHive kClasses = RegistryHive::kClassesRoot;

TEST(EngineRegistration, HappensOnceForEachEngine) {
  MemoryRegistry registry;
  registry.Write(kClasses, u"Excel.Application\\CLSID", u"", Text(u"{another's}"));
  RegisterEngines(registry);
  EXPECT_TRUE(registry.Read(kClasses, u"Word.Application\\CLSID", u"").has_value());
  EXPECT_EQ(registry.Read(kClasses, u"Excel.Application\\CLSID", u""), RegistryValue(Text(u"{another's}")));

  registry.DeleteKey(kClasses, u"Word.Application");
  RegisterEngines(registry);
  EXPECT_FALSE(registry.KeyExists(kClasses, u"Word.Application")) << "removed for good";
  registry.DeleteValue(kClasses, u"zorKancA\\Engines", u"Word.Application");
  RegisterEngines(registry);
  EXPECT_TRUE(registry.KeyExists(kClasses, u"Word.Application"));
}

TEST(EngineRegistration, ARegistryThatFailsIsNoReasonNotToStart) {
  class Unreadable final : public MemoryRegistry {
    std::optional<RegistryValue> Read(RegistryHive, TextView, TextView) override {
      Raise(RuntimeError::kPathFileAccess);
    }
  } registry;
  EXPECT_NO_THROW(RegisterEngines(registry));
}

}  // namespace
}  // namespace zorkanca::testing
