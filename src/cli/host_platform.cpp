#include "cli/host_platform.h"

#include <cstdio>
#include <cstdlib>

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

ConsoleUserInterface::Answers AnswersOf(const GlobalOptions& options) {
  if (options.yes) return ConsoleUserInterface::Answers::kYes;
  return options.no ? ConsoleUserInterface::Answers::kNo : ConsoleUserInterface::Answers::kAsk;
}

void Warn(TextView warning) {
  std::fprintf(stderr, "zorkanca: warning: %s\n", ToUtf8(warning).c_str());
}

}  // namespace

HostPlatform::HostPlatform(const GlobalOptions& options)
    : locale_(LocaleOf(options.locale, clock_)),
      files_(*locale_.codePage),
      registry_(HomeFolder(options)),
      userInterface_(AnswersOf(options)),
      environment_(HomeFolder(options), ZORKANCA_VERSION, registry_),
      office_(locale_, Warn),
      platform_{.files = files_,
                .registry = registry_,
                .userInterface = userInterface_,
                .shell = shell_,
                .clock = clock_,
                .locale = locale_,
                .eventLog = eventLog_,
                .environment = environment_,
                .office = office_} {}

std::string HomeFolder(const GlobalOptions& options) {
  if (!options.home.empty()) return options.home;
  const std::string data = Environment("XDG_DATA_HOME");
  return (data.empty() ? Environment("HOME") + "/.local/share" : data) + "/zorkanca";
}

bool HasDisplay() {
  return !Environment("DISPLAY").empty() || !Environment("WAYLAND_DISPLAY").empty();
}

}  // namespace zorkanca::cli
