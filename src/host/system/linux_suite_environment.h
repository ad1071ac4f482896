// The suite's environment on a computer without the suite: everything lies below one home folder.
#pragma once

#include <string>

#include "platform/registry.h"
#include "platform/suite_environment.h"

namespace zorkanca {

class LinuxSuiteEnvironment final : public SuiteEnvironment {
 public:
  /// @param home      the folder whose "log" holds the log files; a relative one starts from the current folder
  /// @param version   of the library, as its build knows it
  /// @param registry  outlives this object
  LinuxSuiteEnvironment(const std::string& home, const std::string& version, Registry& registry);

  Text LogFolder() override;
  /// In both: the installation's registry value, else the home folder's "Sablony".
  Text SupplyFolder() override;
  Text DefaultTemplatesFolder() override;
  bool TakesAllTemplateFormats() override { return true; }
  Text VersionText() override { return version_; }

 private:
  Text InstallationFolder(TextView valueName) const;

  std::string home_;
  Text version_;
  Registry& registry_;
};

}  // namespace zorkanca
