// The arguments of the program, sorted before the option parser sees them: which command they name, which options they
// give, what are values. It knows what was misspelt, and lets values begin with "-" ("number P -5", "--select -").
#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

namespace zorkanca::cli {

/// An option that was given.
struct GivenOption {
  const CLI::Option* option = nullptr;
  std::size_t level = 0;  ///< of the command it belongs to in `GivenArguments::commands`
  std::string value{};    ///< of an option that takes one
};

struct GivenArguments {
  std::vector<const CLI::App*> commands{};  ///< the program, a command, a command of that one
  std::vector<GivenOption> options{};
  std::vector<std::string> values{};  ///< of the innermost command, in order
  bool asksForHelp = false;           ///< what follows --help is not looked at

  const CLI::App& innermost() const { return *commands.back(); }
  /// The value of an option of the program itself that was given last; null when it was not.
  const std::string* ValueOf(const std::string& option) const;
  bool Has(const CLI::Option* option) const;

  /// The arguments in the form that the option parser reads as meant, last to first, as it wants them.
  std::vector<std::string> ForParser() const;
};

/// The files among the values that the command reads.
std::vector<std::string> InputsOf(const GivenArguments& given);

/// Whether an option takes a value; a flag does not.
bool TakesValue(const CLI::Option& option);

/// Name of a command with those of the commands around it, without the program's: "registry get".
std::string PathOf(const std::vector<const CLI::App*>& commands);

/// Long names of options, "--output", also those of option groups. @param app  a command, without those around it
std::vector<std::string> LongNames(const CLI::App& app);

/// The command of this name in another one; null when there is none.
const CLI::App* FindCommand(const CLI::App& app, const std::string& name);

/// @param arguments  without the program's name
/// @param given      receives them, as far as they were understood
/// Errors: `UsageError` for a command or an option that does not exist, with the nearest one that does; for an option
/// without its value, and for values that the command does not take.
void SortArguments(const CLI::App& app, const std::vector<std::string>& arguments, GivenArguments& given);

}  // namespace zorkanca::cli
