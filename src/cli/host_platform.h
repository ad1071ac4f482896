// The Linux computer as one platform: the parts of host/ put together by the global options.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "cli/command_line.h"
#include "host/console/console_user_interface.h"
#include "host/desktop/desktop_shell.h"
#include "host/files/linux_file_system.h"
#include "host/office_engines.h"
#include "host/registry/file_registry.h"
#include "host/system/linux_suite_environment.h"
#include "host/system/syslog_event_log.h"
#include "host/system_clock.h"

namespace zorkanca::cli {

/// Owns what the platform refers to.
class HostPlatform {
 public:
  /// Errors: `UsageError` for a locale that we have no data for.
  explicit HostPlatform(const GlobalOptions& options);

  const Platform& platform() const { return platform_; }

 private:
  SystemClock clock_;
  Locale locale_;  // reads the clock when it is made
  LinuxFileSystem files_;
  FileRegistry registry_;
  ConsoleUserInterface userInterface_;
  DesktopShell shell_;
  SyslogEventLog eventLog_;
  LinuxSuiteEnvironment environment_;
  OfficeEngines office_;
  Platform platform_;
};

/// The home folder of the registry and the log: the option, else $ZORKANCA_HOME, else the user's data folder.
std::string HomeFolder(const GlobalOptions& options);

/// True when there is a desktop that could show a document.
bool HasDisplay();

}  // namespace zorkanca::cli
