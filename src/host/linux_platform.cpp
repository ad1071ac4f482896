#include "host/linux_platform.h"

#include <cstdlib>

#include "host/desktop/display.h"
#include "host/desktop/windows_library.h"
#include "host/engine_registration.h"
#include "runtime/date.h"

namespace zorkanca {

namespace {

// An environment variable that is set to nothing counts as not set.
std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

Locale InThisYear(Locale locale, Clock& clock) {
  locale.currentYear = Disassemble(clock.Now()).year;
  return locale;
}

std::string HomeOf(const LinuxPlatformSettings& settings) {
  return settings.home.empty() ? DefaultHomeFolder() : settings.home;
}

}  // namespace

LinuxPlatform::LinuxPlatform(const LinuxPlatformSettings& settings)
    : locale_(InThisYear(settings.locale, clock_)),
      files_(*locale_.codePage),
      registry_(HomeOf(settings)),
      userInterface_({.answers = settings.answers,
                      .openWindows = HasDisplay() ? LoadWindows : DesktopUserInterface::WindowsOpener(),
                      .insteadOfDialogs = settings.insteadOfDialogs}),
      environment_(HomeOf(settings), ZORKANCA_VERSION, registry_),
      office_(locale_, settings.warn, settings.cancelled, settings.working),
      platform_{.files = files_,
                .registry = registry_,
                .userInterface = userInterface_,
                .shell = shell_,
                .clock = clock_,
                .locale = locale_,
                .eventLog = eventLog_,
                .environment = environment_,
                .office = office_} {
  RegisterEngines(registry_);
}

std::string DefaultHomeFolder() {
  if (const std::string home = Environment("ZORKANCA_HOME"); !home.empty()) return home;
  const std::string data = Environment("XDG_DATA_HOME");
  return (data.empty() ? Environment("HOME") + "/.local/share" : data) + "/zorkanca";
}

}  // namespace zorkanca
