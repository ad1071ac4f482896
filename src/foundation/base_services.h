// What the parts of one client program share: the library's settings and the file system. `cKancelApl` starts them when
// it is made and ends them with itself.
#pragma once

#include <memory>

#include "foundation/registry_access.h"
#include "platform/platform.h"

namespace zorkanca {

/// Owned by whoever started it; `platform` outlives it.
class BaseServices {
 public:
  explicit BaseServices(const Platform& platform);

  const RegistryAccess& registryAccess() const { return registryAccess_; }
  FileSystem& files() const { return files_; }

 private:
  RegistryAccess registryAccess_;
  FileSystem& files_;
};

/// Makes the services anew. A failure is shown to the user.
/// @param services  receives them; null after a failure
/// @return          true when they were started
bool sf_ZakladStart(const Platform& platform, std::unique_ptr<BaseServices>& services);

/// Lets the services go.
void sf_ZakladKonec(std::unique_ptr<BaseServices>& services);

}  // namespace zorkanca
