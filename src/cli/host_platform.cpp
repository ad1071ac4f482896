#include "cli/host_platform.h"

#include <memory>

#include "cli/progress_bar.h"
#include "runtime/locale.h"
#include "runtime/nearest_name.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

const Locale& LocaleOf(const std::string& tag) {
  if (const Locale* known = FindLocale(FromUtf8(tag))) return *known;
  std::vector<std::string> known;
  std::string tags;
  for (const Text& each : KnownLocaleTags()) {
    known.push_back(ToUtf8(each));
    tags += " " + known.back();
  }
  const std::string nearest = NearestName(tag, known);
  throw UsageError("no data for the locale " + tag +
                   (nearest.empty() ? "; known are" : "; did you mean " + nearest + "? Known are") + tags);
}

DesktopUserInterface::Answers AnswersOf(const GlobalOptions& options) {
  if (options.yes) return DesktopUserInterface::Answers::kYes;
  return options.no ? DesktopUserInterface::Answers::kNo : DesktopUserInterface::Answers::kAsk;
}

std::string_view NameOf(ExcelWork work) {
  switch (work) {
    case ExcelWork::kImporting:
      return "importing";
    case ExcelWork::kFitting:
      return "fitting columns";
    case ExcelWork::kSaving:
      return "saving";
  }
  return {};
}

}  // namespace

LinuxPlatformSettings SettingsOf(const GlobalOptions& options, const std::atomic<bool>& interrupted, Report& report) {
  return {.home = options.home,
          .locale = LocaleOf(options.locale),
          .answers = AnswersOf(options),
          .insteadOfDialogs = u"--template or \"alternative set\"",
          .warn = [&report](TextView warning) { report.Warning(warning); },
          .cancelled = [&interrupted] { return interrupted.load(); },
          .working = [bar = std::make_shared<ProgressBar>(options, report.statusLine())](
                         ExcelWork work, double percent) { bar->Draw(percent, NameOf(work)); }};
}

}  // namespace zorkanca::cli
