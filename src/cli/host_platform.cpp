#include "cli/host_platform.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <set>

#include "runtime/locale.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

const Locale& LocaleOf(const std::string& tag) {
  if (const Locale* known = FindLocale(FromUtf8(tag))) return *known;
  std::string tags;
  for (const Text& each : KnownLocaleTags()) tags += " " + ToUtf8(each);
  throw UsageError("no data for the locale " + tag + "; known are" + tags);
}

ConsoleUserInterface::Answers AnswersOf(const GlobalOptions& options) {
  if (options.yes) return ConsoleUserInterface::Answers::kYes;
  return options.no ? ConsoleUserInterface::Answers::kNo : ConsoleUserInterface::Answers::kAsk;
}

// The same warning may come with each of thousands of documents.
std::function<void(TextView)> WarnOnceOfEach() {
  return [told = std::make_shared<std::set<Text>>()](TextView warning) {
    if (!told->insert(Text(warning)).second) return;
    std::fprintf(stderr, "zorkanca: warning: %s\n", ToUtf8(warning).c_str());
  };
}

bool IsSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

}  // namespace

LinuxPlatformSettings SettingsOf(const GlobalOptions& options, const std::atomic<bool>& interrupted) {
  return {.home = options.home,
          .locale = LocaleOf(options.locale),
          .answers = AnswersOf(options),
          .warn = WarnOnceOfEach(),
          .cancelled = [&interrupted] { return interrupted.load(); }};
}

bool HasDisplay() {
  return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY");
}

}  // namespace zorkanca::cli
