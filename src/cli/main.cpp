// zorkanca: the library's face on a computer without a COM client.
#include <fcntl.h>
#include <malloc.h>

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <cstdio>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/command_line.h"
#include "cli/host_platform.h"
#include "cli/interrupt.h"
#include "files/file_bytes.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

std::string BytesOf(const std::string& path) {
  const FileDescriptor file(Uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC); }));
  if (!file) Raise(RuntimeError::kFileNotFound, u"The file cannot be opened: " + FromUtf8(path));
  return ReadToEnd(file.get());
}

namespace {

void AddGlobalOptions(CLI::App& app, GlobalOptions& options) {
  app.add_option("--home", options.home, "folder of the registry hives and the log")->envname("ZORKANCA_HOME");
  app.add_option("--locale", options.locale, "the user's locale")->envname("ZORKANCA_LOCALE")->capture_default_str();
  CLI::Option* yes = app.add_flag("--yes", options.yes, "answer every question with Yes");
  app.add_flag("--no", options.no, "answer every question with No")->excludes(yes);
  app.add_flag("--events", options.events, "write every event as a line on standard error");
  app.add_flag("--quiet", options.quiet, "no progress bar and no states");
  app.add_option("--progress", options.progress, "auto: on a terminal, from half a second on")
      ->check(CLI::IsMember({"auto", "always", "never"}))
      ->capture_default_str();
  app.add_flag("--json", options.json, "print one JSON object at the end: files, records, warnings, error");
}

// Thousands of documents come and go; giving their memory back to the system after each would cost as much as filling
// them.
void KeepFreedMemory() {
  constexpr int kKept = 32 << 20;
  mallopt(M_TRIM_THRESHOLD, kKept);
  mallopt(M_MMAP_THRESHOLD, kKept);
}

int RunCommand(const GlobalOptions& options, const Command& command) {
  KeepFreedMemory();
  const std::atomic<bool>& interrupted = WatchForInterrupt();
  Report report;
  if (options.json) report.GatherAsJson();
  try {
    const LinuxPlatform host(SettingsOf(options, interrupted, report));
    ReportedUserInterface user(host.platform().userInterface, report);
    const Platform platform = host.platform().With(user);
    return report.Finish(
        command({.options = options, .platform = platform, .interrupted = interrupted, .report = report}));
  } catch (const UsageError& error) {
    report.Failure(FromUtf8(error.what()));
    return report.Finish(kWrongUsage);
  } catch (const Error& error) {
    if (interrupted) return report.Finish(kInterrupted);
    report.Failure(error);
    return report.Finish(kFailed);
  }
}

int Main(const std::vector<std::string>& arguments) {
  CLI::App app("Moves data out of a database into office documents.", "zorkanca");
  app.set_version_flag("--version", "zorkanca " ZORKANCA_VERSION);
  app.require_subcommand(1);
  GlobalOptions options;
  Command command;
  AddGlobalOptions(app, options);
  AddExportCommands(app, command);
  AddWordCommands(app, command);
  AddExcelCommands(app, command);
  AddValueCommands(app, command);
  AddRegistryCommands(app, command);
  AddTemplateCommands(app, command);
  AddBarcodeCommands(app, command);
  AddOfficeCommands(app, command);
  AddLogCommands(app, command);
  AddFillCommands(app, command);
  try {
    std::vector<std::string> line = WithValuesMarked(app, arguments);
    app.parse(std::vector<std::string>(line.rbegin(), line.rend()));  // the parser wants them last to first
    return RunCommand(options, command);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kWrongUsage;
  } catch (const UsageError& error) {
    std::fprintf(stderr, "zorkanca: %s\n", error.what());
    return kWrongUsage;
  } catch (const Error& error) {
    std::fprintf(stderr, "zorkanca: %s\n", error.what());
    return kFailed;
  }
}

}  // namespace

}  // namespace zorkanca::cli

int main(int count, char** arguments) {
  return zorkanca::cli::Main(std::vector<std::string>(arguments + 1, arguments + count));
}
