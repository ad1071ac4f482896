#include "host/system/linux_suite_environment.h"

#include "host/files/native_path.h"
#include "runtime/utf8.h"

namespace zorkanca {

LinuxSuiteEnvironment::LinuxSuiteEnvironment(const std::string& home, const std::string& version)
    : logFolder_(FromNativePath(JoinPath(AbsolutePath(home), "log"))), version_(FromUtf8(version)) {}

}  // namespace zorkanca
