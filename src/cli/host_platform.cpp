#include "cli/host_platform.h"

#include <cstdio>
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

DesktopUserInterface::Answers AnswersOf(const GlobalOptions& options) {
  if (options.yes) return DesktopUserInterface::Answers::kYes;
  return options.no ? DesktopUserInterface::Answers::kNo : DesktopUserInterface::Answers::kAsk;
}

// The same warning may come with each of thousands of documents.
std::function<void(TextView)> WarnOnceOfEach() {
  return [told = std::make_shared<std::set<Text>>()](TextView warning) {
    if (!told->insert(Text(warning)).second) return;
    std::fprintf(stderr, "zorkanca: warning: %s\n", ToUtf8(warning).c_str());
  };
}

}  // namespace

LinuxPlatformSettings SettingsOf(const GlobalOptions& options, const std::atomic<bool>& interrupted) {
  return {.home = options.home,
          .locale = LocaleOf(options.locale),
          .answers = AnswersOf(options),
          .insteadOfDialogs = u"--template or \"alternative set\"",
          .warn = WarnOnceOfEach(),
          .cancelled = [&interrupted] { return interrupted.load(); }};
}

}  // namespace zorkanca::cli
