// The entry of the plug-in; see platform/windows_plugin.h.
#include <exception>

#include "platform/windows_plugin.h"
#include "qt/screen_connection.h"
#include "qt/windows_user_interface.h"

extern "C" __attribute__((visibility("default"))) zorkanca::UserInterface* zorkanca_create_windows(
    const char* version, std::string& reason) {
  if (std::string_view(version) != ZORKANCA_VERSION) {
    reason = "the plug-in is of version " ZORKANCA_VERSION;
    return nullptr;
  }
  const std::string windowSystem = zorkanca::ReachableWindowSystem();
  if (windowSystem.empty()) {
    reason = "no screen can be reached";
    return nullptr;
  }
  try {
    return new zorkanca::WindowsUserInterface(windowSystem);
  } catch (const std::exception& error) {
    reason = error.what();
    return nullptr;
  }
}

extern "C" __attribute__((visibility("default"))) void zorkanca_destroy_windows(zorkanca::UserInterface* windows) {
  delete windows;
}
