// The frame of the command line: what every command gets, and what it leaves for main to run.
#pragma once

#include <CLI/App.hpp>
#include <atomic>
#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "cli/report.h"
#include "platform/platform.h"

namespace zorkanca::cli {

/// Exit status of the program.
enum ExitStatus : int { kDone = 0, kFailed = 1, kWrongUsage = 2, kInterrupted = 130 };

/// The options that stand before the command.
struct GlobalOptions {
  std::string home;
  std::string locale = "cs-CZ";
  bool yes = false;
  bool no = false;
  bool events = false;
  bool quiet = false;
  std::string progress = "auto";
  bool json = false;
  std::string config;
  bool noClobber = false;
};

/// Arguments that no option parser can refuse but that make no sense. Shown as wrong usage.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What a command runs with, made after the whole line was understood.
struct CommandContext {
  const GlobalOptions& options;
  const Platform& platform;
  const std::atomic<bool>& interrupted;  ///< set by the first Ctrl-C
  Report& report;                        ///< where everything is told
  /// Files that the command reads, as the line names them: none of them may be written.
  const std::vector<std::string>& inputs;
};

/// What a command leaves to be run. @return the exit status
using Command = std::function<int(const CommandContext&)>;

/// Lets a command, when it is given, leave `run` with its options.
template <typename Options>
void SetCallback(CLI::App& command, Command& chosen, const std::shared_ptr<Options>& options,
                 int (*run)(const CommandContext&, const Options&)) {
  command.callback([&chosen, options, run] {
    chosen = [options, run](const CommandContext& context) { return run(context, *options); };
  });
}

/// Each adds a group of commands; the one that was given puts itself into `chosen`.
void AddExportCommands(CLI::App& app, Command& chosen);
void AddWordCommands(CLI::App& app, Command& chosen);
void AddExcelCommands(CLI::App& app, Command& chosen);
void AddValueCommands(CLI::App& app, Command& chosen);
void AddRegistryCommands(CLI::App& app, Command& chosen);
void AddTemplateCommands(CLI::App& app, Command& chosen);
void AddBarcodeCommands(CLI::App& app, Command& chosen);
void AddOfficeCommands(CLI::App& app, Command& chosen);
void AddLogCommands(CLI::App& app, Command& chosen);
void AddFillCommands(CLI::App& app, Command& chosen);
void AddPdfCommands(CLI::App& app, Command& chosen);
void AddFieldsCommand(CLI::App& app, Command& chosen);
void AddDoctorCommand(CLI::App& app, Command& chosen);
void AddManualCommands(CLI::App& app, Command& chosen);

/// All bytes of a file that the user named. Errors: 53 when it cannot be opened, 57 when it cannot be read.
std::string BytesOf(const std::string& path);

}  // namespace zorkanca::cli
