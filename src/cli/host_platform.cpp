#include "cli/host_platform.h"

#include <cstdio>

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

DesktopUserInterface::Answers AnswersOf(const GlobalOptions& options) {
  if (options.yes) return DesktopUserInterface::Answers::kYes;
  return options.no ? DesktopUserInterface::Answers::kNo : DesktopUserInterface::Answers::kAsk;
}

void Warn(TextView warning) {
  std::fprintf(stderr, "zorkanca: warning: %s\n", ToUtf8(warning).c_str());
}

}  // namespace

LinuxPlatformSettings SettingsOf(const GlobalOptions& options) {
  return {.home = options.home,
          .locale = LocaleOf(options.locale),
          .answers = AnswersOf(options),
          .insteadOfDialogs = u"--template",
          .warn = Warn};
}

}  // namespace zorkanca::cli
