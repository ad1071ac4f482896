// zorkanca: the library's face on a computer without a COM client.
#include <fcntl.h>
#include <malloc.h>

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "cli/arguments.h"
#include "cli/command_line.h"
#include "cli/command_page.h"
#include "cli/completion.h"
#include "cli/config_file.h"
#include "cli/help.h"
#include "cli/host_platform.h"
#include "cli/interrupt.h"
#include "files/file_bytes.h"
#include "runtime/error.h"
#include "runtime/nearest_name.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

std::string BytesOf(const std::string& path) {
  const FileDescriptor file(Uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC); }));
  if (!file) Raise(RuntimeError::kFileNotFound, u"The file cannot be opened: " + FromUtf8(path));
  return ReadToEnd(file.get(), path);
}

namespace {

void AddGlobalOptions(CLI::App& app, GlobalOptions& options) {
  app.add_option("--home", options.home,
                 "folder of the registry hives and the log (default: $XDG_DATA_HOME/zorkanca, else "
                 "~/.local/share/zorkanca)")
      ->envname("ZORKANCA_HOME");
  app.add_option("--locale", options.locale, "the user's locale: separators, forms of dates, ANSI code page")
      ->envname("ZORKANCA_LOCALE")
      ->capture_default_str();
  CLI::Option* yes = app.add_flag("--yes", options.yes, "answer every question with Yes");
  app.add_flag("--no", options.no, "answer every question with No")->excludes(yes);
  app.add_flag("--events", options.events, "write every event as a line on standard error");
  app.add_flag("--quiet", options.quiet, "no progress bar and no states");
  app.add_option("--progress", options.progress,
                 "when the progress bar is drawn; auto: on a terminal that is not TERM=dumb, from half a second on")
      ->check(CLI::IsMember({"auto", "always", "never"}))
      ->capture_default_str();
  app.add_flag("--json", options.json, "print one JSON object at the end: files, records, warnings, error");
  app.add_option("--config", options.config,
                 "file of options, \"long-name = value\" (default: $XDG_CONFIG_HOME/zorkanca/config.toml, else "
                 "~/.config/zorkanca/config.toml)");
  app.add_flag("--no-clobber", options.noClobber, "an existing output file is an error and stays as it is");
}

// Thousands of documents come and go; giving their memory back to the system after each would cost as much as filling
// them.
void KeepFreedMemory() {
  constexpr int kKept = 32 << 20;
  mallopt(M_TRIM_THRESHOLD, kKept);
  mallopt(M_MMAP_THRESHOLD, kKept);
}

int RunCommand(const GlobalOptions& options, const std::vector<std::string>& inputs, const Command& command,
               Report& report) {
  KeepFreedMemory();
  const std::atomic<bool>& interrupted = WatchForInterrupt();
  try {
    const LinuxPlatform host(SettingsOf(options, interrupted, report));
    ReportedUserInterface user(host.platform().userInterface, report);
    const Platform platform = host.platform().With(user);
    return report.Finish(command(
        {.options = options, .platform = platform, .interrupted = interrupted, .report = report, .inputs = inputs}));
  } catch (const Error&) {
    if (!interrupted) throw;
    return report.Finish(kInterrupted);
  }
}

void AddAllCommands(CLI::App& app, Command& command) {
  AddExportCommands(app, command);
  AddWordCommands(app, command);
  AddExcelCommands(app, command);
  AddFillCommands(app, command);
  AddPdfCommands(app, command);
  AddFieldsCommand(app, command);
  AddOfficeCommands(app, command);
  AddTemplateCommands(app, command);
  AddValueCommands(app, command);
  AddBarcodeCommands(app, command);
  AddRegistryCommands(app, command);
  AddLogCommands(app, command);
  AddDoctorCommand(app, command);
  AddManualCommands(app, command);
}

void PrintHelp(const GivenArguments& given) {
  const std::string help = HelpOf(PageOf(given.innermost(), PathOf(given.commands)));
  std::fwrite(help.data(), 1, help.size(), stdout);
}

// A group of commands, or the program, without a command: the first look at it.
int ShowGroup(const GivenArguments& given) {
  std::fputs(ShortHelpOf(PageOf(given.innermost(), PathOf(given.commands))).c_str(), stderr);
  return kWrongUsage;
}

// "--type: float not in {double,single}" as a sentence, with the nearest choice.
std::string ChoiceReason(const std::string& text, std::size_t at) {
  const std::size_t name = text.find(": ");
  const std::size_t end = text.rfind('}');
  if (name == std::string::npos || name + 2 > at || end == std::string::npos) return text;
  const std::string value = text.substr(name + 2, at - name - 2);
  std::vector<std::string> choices;
  std::string list;
  for (std::size_t start = text.find('{', at) + 1; start <= end;) {
    const std::size_t comma = std::min(text.find(',', start), end);
    choices.push_back(text.substr(start, comma - start));
    list += (list.empty() ? "" : comma == end ? " or " : ", ") + choices.back();
    start = comma + 1;
  }
  return text.substr(0, name) + " takes " + list + ", not " + (value.empty() ? "''" : value) +
         DidYouMean(NearestName(value, choices));
}

// What the parser says of a value, without its own way of saying it.
std::string Reason(const CLI::ParseError& error) {
  constexpr std::string_view kConversion = "Could not convert: ";
  constexpr std::string_view kChoice = " not in {";
  std::string text = error.what();
  if (const std::size_t at = text.find(kChoice); at != std::string::npos) return ChoiceReason(text, at);
  if (text.starts_with(kConversion)) {
    text.erase(0, kConversion.size());
    if (const std::size_t equals = text.find(" = "); equals != std::string::npos)
      text.replace(equals, 3, ": no such number: ");
  }
  return text.substr(0, text.find('\n'));
}

// @param given  is filled as far as the arguments were understood
int Run(CLI::App& app, const std::vector<std::string>& arguments, GivenArguments& given, const GlobalOptions& options,
        const Command& command, Report& report) {
  if (!arguments.empty() && arguments.front() == kCompleteCommand) {
    PrintCompletions(app, {arguments.begin() + 1, arguments.end()});
    return report.Finish(kDone);
  }
  SortArguments(app, arguments, given);
  if (given.ValueOf("--json")) report.GatherAsJson();
  if (given.asksForHelp) return PrintHelp(given), kDone;
  if (given.ValueOf("--version")) return std::puts("zorkanca " ZORKANCA_VERSION), kDone;
  if (given.innermost().get_require_subcommand_min() > 0) return ShowGroup(given);
  AddConfigured(given);
  if (given.ValueOf("--json")) report.GatherAsJson();
  app.parse(given.ForParser());
  return RunCommand(options, InputsOf(given), command, report);
}

int Main(const std::vector<std::string>& arguments) {
  CLI::App app("Moves data out of a database into office documents", "zorkanca");
  app.add_flag("--version")->description("print the version");
  app.require_subcommand(1);
  GlobalOptions options;
  Command command;
  AddGlobalOptions(app, options);
  AddAllCommands(app, command);
  Report report;
  GivenArguments given;
  try {
    return Run(app, arguments, given, options, command, report);
  } catch (const CLI::ParseError& error) {
    report.WrongUsage(Reason(error), PathOf(given.commands));
    return report.Finish(kWrongUsage);
  } catch (const UsageError& error) {
    if (!given.commands.empty() && given.ValueOf("--json")) report.GatherAsJson();  // what was understood before it
    report.WrongUsage(error.what(), PathOf(given.commands));
    return report.Finish(kWrongUsage);
  } catch (const Error& error) {
    report.Failure(error);
    return report.Finish(kFailed);
  }
}

}  // namespace

}  // namespace zorkanca::cli

int main(int count, char** arguments) {
  try {
    return zorkanca::cli::Main(std::vector<std::string>(arguments + (count > 0 ? 1 : 0), arguments + count));
  } catch (const std::exception& error) {  // memory has run out, or a library is at its wits' end
    std::fprintf(stderr, "zorkanca: %s\n", error.what());
    return 1;
  }
}
