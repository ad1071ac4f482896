// zorkanca: the library's face on a computer without a COM client.
#include <malloc.h>

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/command_line.h"
#include "cli/host_platform.h"
#include "cli/interrupt.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

std::string ReadToEnd(std::FILE* file) {
  std::string bytes;
  char block[16384];
  for (std::size_t count = 1; count > 0;) {
    count = std::fread(block, 1, sizeof block, file);
    bytes.append(block, count);
  }
  if (std::ferror(file)) Raise(RuntimeError::kDeviceIo);
  return bytes;
}

std::string BytesOf(const std::string& path) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), std::fclose);
  if (!file) Raise(RuntimeError::kFileNotFound, u"The file cannot be opened: " + FromUtf8(path));
  return ReadToEnd(file.get());
}

void PrintLine(TextView text) {
  const std::string line = ToUtf8(text) + "\n";
  std::fwrite(line.data(), 1, line.size(), stdout);
}

namespace {

void AddGlobalOptions(CLI::App& app, GlobalOptions& options) {
  app.add_option("--home", options.home, "folder of the registry hives and the log")->envname("ZORKANCA_HOME");
  app.add_option("--locale", options.locale, "the user's locale")->envname("ZORKANCA_LOCALE")->capture_default_str();
  CLI::Option* yes = app.add_flag("--yes", options.yes, "answer every question with Yes");
  app.add_flag("--no", options.no, "answer every question with No")->excludes(yes);
  app.add_flag("--events", options.events, "write every event as a line on standard error");
  app.add_flag("--quiet", options.quiet, "no progress bar and no states");
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
  const LinuxPlatform host(SettingsOf(options, interrupted));
  int status = kInterrupted;
  try {
    status = command({.options = options, .platform = host.platform(), .interrupted = interrupted});
  } catch (const Error&) {
    if (!interrupted) throw;
  }
  if (std::fflush(stdout) == 0) return status;
  std::perror("zorkanca: standard output");
  return kFailed;
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
