#include "foundation/registry_memento_persistor.h"

#include "foundation/application_name.h"

namespace zorkanca {

namespace {

constexpr TextView kSection = u"Layout";

}  // namespace

RegistryMementoPersistor::RegistryMementoPersistor(Registry& registry) : registryAccess_(registry) {
  registryAccess_.SetApplicationName(kApplicationName);
}

void RegistryMementoPersistor::Save(TextView identifier, TextView data) {
  registryAccess_.SaveSetting(kSection, identifier, data);
}

Text RegistryMementoPersistor::Read(TextView identifier, TextView defaultData) const {
  return registryAccess_.GetSetting(kSection, identifier, defaultData);
}

}  // namespace zorkanca
