// Keeps states in the library's settings (see registry_access.h), in the section "Layout".
#pragma once

#include "foundation/memento_persistor.h"
#include "foundation/registry_access.h"
#include "platform/registry.h"
#include "runtime/text.h"

namespace zorkanca {

class RegistryMementoPersistor final : public IMementoPersistor {
 public:
  /// @param registry  outlives this object
  explicit RegistryMementoPersistor(Registry& registry);

  /// Errors of both: those of `RegistryAccess`.
  void Save(TextView identifier, TextView data) override;
  Text Read(TextView identifier, TextView defaultData) const override;

 private:
  RegistryAccess registryAccess_;
};

}  // namespace zorkanca
