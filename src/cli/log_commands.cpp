// The command that shows the error log.
#include <memory>

#include "cli/command_line.h"
#include "foundation/error_log_writer.h"

namespace zorkanca::cli {

namespace {

void PrintFile(TextView path, FileSystem& files, Report& report) {
  if (!files.FileExists(path)) return;
  const auto stream = files.OpenTextFile(path, IoMode::kForReading, false, TextFormat::kAnsi);
  while (!stream->AtEndOfStream()) report.Value(stream->ReadLine());
}

}  // namespace

void AddLogCommands(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("log", "Print today's error log");
  const auto onlyPath = std::make_shared<bool>(false);
  command->add_flag("--path", *onlyPath, "print where it is instead, whether it exists or not");
  command->callback([&chosen, onlyPath] {
    chosen = [onlyPath](const CommandContext& context) {
      const Text path = ErrorLogWriter(context.platform).fileName();
      if (*onlyPath) {
        context.report.Value(path);
      } else {
        PrintFile(path, context.platform.files, context.report);
      }
      return kDone;
    };
  });
}

}  // namespace zorkanca::cli
