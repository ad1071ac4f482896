// This Windows computer as one platform: what the automation server hands to the classes of the library.
#pragma once

#include "platform/platform.h"
#include "win32/desktop/win32_shell.h"
#include "win32/desktop/win32_user_interface.h"
#include "win32/files/win32_file_system.h"
#include "win32/office/installed_office.h"
#include "win32/registry/win32_registry.h"
#include "win32/system/system_clock.h"
#include "win32/system/win32_event_log.h"
#include "win32/system/win32_suite_environment.h"

namespace zorkanca::win32 {

/// Owns what the platform refers to. Cheap to make, so that each object of a client has one of its own: the locale and
/// the current year are as fresh as the object, and nothing is shared among threads.
class Win32Platform {
 public:
  Win32Platform();
  Win32Platform(const Win32Platform&) = delete;
  Win32Platform& operator=(const Win32Platform&) = delete;

  const Platform& platform() const { return platform_; }

 private:
  SystemClock clock_;
  Locale locale_;  // reads the clock when it is made
  Win32FileSystem files_;
  Win32Registry registry_;
  Win32UserInterface userInterface_;
  Win32Shell shell_;
  Win32EventLog eventLog_;
  Win32SuiteEnvironment environment_;
  InstalledOffice office_;
  Platform platform_;
};

}  // namespace zorkanca::win32
