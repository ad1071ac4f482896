#include "cli/host_platform.h"

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

}  // namespace

LinuxPlatformSettings SettingsOf(const GlobalOptions& options, const std::atomic<bool>& interrupted, Report& report) {
  return {.home = options.home,
          .locale = LocaleOf(options.locale),
          .answers = AnswersOf(options),
          .insteadOfDialogs = u"--template or \"alternative set\"",
          .warn = [&report](TextView warning) { report.Warning(warning); },
          .cancelled = [&interrupted] { return interrupted.load(); }};
}

}  // namespace zorkanca::cli
