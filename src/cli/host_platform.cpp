#include "cli/host_platform.h"

#include <cstdio>
#include <cstdlib>

#include "host/desktop/windows_library.h"
#include "runtime/date.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

// An environment variable that is set to nothing counts as not set.
std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

Locale LocaleOf(const std::string& tag, Clock& clock) {
  const Locale* known = FindLocale(FromUtf8(tag));
  if (!known) {
    std::string tags;
    for (const Text& each : KnownLocaleTags()) tags += " " + ToUtf8(each);
    throw UsageError("no data for the locale " + tag + "; known are" + tags);
  }
  Locale locale = *known;
  locale.currentYear = Disassemble(clock.Now()).year;
  return locale;
}

DesktopUserInterface::Answers AnswersOf(const GlobalOptions& options) {
  if (options.yes) return DesktopUserInterface::Answers::kYes;
  return options.no ? DesktopUserInterface::Answers::kNo : DesktopUserInterface::Answers::kAsk;
}

DesktopUserInterface::WindowsOpener OpenerOfScreen() {
  if (!HasDisplay()) return nullptr;
  return LoadWindows;
}

void Warn(TextView warning) {
  std::fprintf(stderr, "zorkanca: warning: %s\n", ToUtf8(warning).c_str());
}

}  // namespace

HostPlatform::HostPlatform(const GlobalOptions& options)
    : locale_(LocaleOf(options.locale, clock_)),
      files_(*locale_.codePage),
      registry_(HomeFolder(options)),
      userInterface_({.answers = AnswersOf(options), .openWindows = OpenerOfScreen(), .insteadOfDialogs = u"--template"}),
      environment_(HomeFolder(options), ZORKANCA_VERSION, registry_),
      word_(locale_, {}, Warn),
      platform_{.files = files_,
                .registry = registry_,
                .userInterface = userInterface_,
                .shell = shell_,
                .clock = clock_,
                .locale = locale_,
                .eventLog = eventLog_,
                .environment = environment_,
                .office = word_} {}

std::string HomeFolder(const GlobalOptions& options) {
  if (!options.home.empty()) return options.home;
  const std::string data = Environment("XDG_DATA_HOME");
  return (data.empty() ? Environment("HOME") + "/.local/share" : data) + "/zorkanca";
}

}  // namespace zorkanca::cli
