// Where the business suite is installed on this computer.
#pragma once

#include "platform/registry.h"
#include "platform/suite_environment.h"

namespace zorkanca::win32 {

class Win32SuiteEnvironment final : public SuiteEnvironment {
 public:
  /// @param version   of the library, as its build knows it
  /// @param registry  outlives this object
  Win32SuiteEnvironment(TextView version, Registry& registry) : version_(version), registry_(registry) {}

  /// Below the user's application data. Errors: 76 when the user has none.
  Text LogFolder() override;
  /// In both: the installation's own value in the registry, else its folder of templates, else where the suite is
  /// installed by itself.
  Text SupplyFolder() override;
  Text DefaultTemplatesFolder() override;
  Text VersionText() override { return version_; }

 private:
  Text InstallationFolder(TextView valueName) const;

  Text version_;
  Registry& registry_;
};

}  // namespace zorkanca::win32
