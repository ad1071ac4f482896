// This Linux computer as one platform: what a program hands to the classes of the library.
#pragma once

#include <functional>
#include <string>

#include "files/linux_file_system.h"
#include "files/system_clock.h"
#include "host/desktop/desktop_shell.h"
#include "host/desktop/desktop_user_interface.h"
#include "host/office_engines.h"
#include "host/registry/file_registry.h"
#include "host/system/linux_suite_environment.h"
#include "host/system/syslog_event_log.h"
#include "platform/platform.h"

namespace zorkanca {

struct LinuxPlatformSettings {
  std::string home{};                     ///< folder of the registry hives and the log; empty: `DefaultHomeFolder`
  Locale locale = *FindLocale(u"cs-CZ");  ///< of the user: separators, date forms, ANSI code page
  DesktopUserInterface::Answers answers = DesktopUserInterface::Answers::kAsk;
  Text insteadOfDialogs{};               ///< as in `DesktopUserInterface::Settings`
  std::function<void(TextView)> warn{};  ///< told in English of what an engine left as it was in a document
  std::function<bool()> cancelled{};     ///< asked now and then during long work of the engines, which ends then
  std::function<void(ExcelWork, double percent)> working{};  ///< told meanwhile how far workbooks are
};

/// Owns what the platform refers to.
class LinuxPlatform {
 public:
  /// Enters our engines as the installed office applications, see host/engine_registration.h.
  explicit LinuxPlatform(const LinuxPlatformSettings& settings);
  LinuxPlatform(const LinuxPlatform&) = delete;
  LinuxPlatform& operator=(const LinuxPlatform&) = delete;

  const Platform& platform() const { return platform_; }

 private:
  SystemClock clock_;
  Locale locale_;  // reads the clock when it is made
  LinuxFileSystem files_;
  FileRegistry registry_;
  DesktopUserInterface userInterface_;
  DesktopShell shell_;
  SyslogEventLog eventLog_;
  LinuxSuiteEnvironment environment_;
  OfficeEngines office_;
  Platform platform_;
};

/// $ZORKANCA_HOME, else the folder of the user's data with "zorkanca" below it (XDG Base Directory Specification,
/// $XDG_DATA_HOME).
std::string DefaultHomeFolder();

}  // namespace zorkanca
