// Commands that tell of the program itself: help, man page, completion.
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/command_line.h"
#include "cli/command_page.h"
#include "cli/completion.h"
#include "cli/help.h"
#include "cli/man_page.h"
#include "runtime/nearest_name.h"

namespace zorkanca::cli {

namespace {

int Print(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
  return kDone;
}

int PrintHelp(const CLI::App& program, const std::vector<std::string>& names) {
  std::vector<const CLI::App*> commands = {&program};
  for (const std::string& name : names) {
    const CLI::App* command = FindCommand(*commands.back(), name);
    if (!command) {
      std::vector<std::string> known;
      for (const CommandPage& each : PageOf(*commands.back()).commands) known.push_back(each.name);
      throw UsageError("there is no command " + name + DidYouMean(NearestName(name, known)));
    }
    commands.push_back(command);
  }
  return Print(HelpOf(PageOf(*commands.back(), PathOf(commands))));
}

}  // namespace

void AddManualCommands(CLI::App& app, Command& chosen) {
  CLI::App* help = app.add_subcommand("help", "Tell what a command does and which options it has");
  const auto names = std::make_shared<std::vector<std::string>>();
  help->add_option("COMMAND", *names, "command, or a group and its command; without it the whole program");
  help->callback(
      [&app, &chosen, names] { chosen = [&app, names](const CommandContext&) { return PrintHelp(app, *names); }; });

  CLI::App* man = app.add_subcommand("man", "Print the man page, for man -l -");
  man->callback([&app, &chosen] { chosen = [&app](const CommandContext&) { return Print(ManPageOf(PageOf(app))); }; });

  CLI::App* completion = app.add_subcommand("completion", "Print the completion for a shell");
  const auto shell = std::make_shared<std::string>();
  completion->add_option("SHELL", *shell, "the shell")->required()->check(CLI::IsMember({"bash", "zsh", "fish"}));
  completion->callback(
      [&chosen, shell] { chosen = [shell](const CommandContext&) { return Print(CompletionScript(*shell)); }; });
}

}  // namespace zorkanca::cli
