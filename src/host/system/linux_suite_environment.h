// The suite's environment on a computer without the suite: everything lies below one home folder.
#pragma once

#include <string>

#include "platform/suite_environment.h"

namespace zorkanca {

class LinuxSuiteEnvironment final : public SuiteEnvironment {
 public:
  /// @param home     the folder whose "log" holds the log files; a relative one starts from the current folder
  /// @param version  of the library, as its build knows it
  LinuxSuiteEnvironment(const std::string& home, const std::string& version);

  Text LogFolder() override { return logFolder_; }
  Text VersionText() override { return version_; }

 private:
  Text logFolder_;
  Text version_;
};

}  // namespace zorkanca
