#include "cli/arguments.h"

#include <CLI/Option.hpp>
#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

#include "cli/command_line.h"
#include "cli/command_page.h"
#include "runtime/nearest_name.h"

namespace zorkanca::cli {

namespace {

// Names that other programs have for what is called otherwise here.
constexpr std::array<std::pair<const char*, const char*>, 9> kUsualNames = {{{"--database", "--db"},
                                                                             {"--file", "--output"},
                                                                             {"--out", "--output"},
                                                                             {"--query", "--select"},
                                                                             {"--sql", "--select"},
                                                                             {"--query-file", "--sql-file"},
                                                                             {"--lang", "--locale"},
                                                                             {"--silent", "--quiet"},
                                                                             {"--verbose", "--events"}}};

std::vector<const CLI::App*> CommandsOf(const CLI::App& app) {
  std::vector<const CLI::App*> commands =
      app.get_subcommands([](const CLI::App* command) { return !command->get_name().empty(); });
  return commands;
}

bool IsNumber(const std::string& argument) {
  const std::size_t start = argument.find_first_not_of("+-");
  if (start == std::string::npos) return false;
  const bool digit = std::isdigit(static_cast<unsigned char>(argument[start])) != 0;
  return digit || argument[start] == '.' || argument[start] == ',';
}

// An empty text is a value; no file, number or locale is called so.
bool MayBeEmpty(const CLI::Option& option) {
  switch (KindOfValue(option)) {
    case ValueKind::kFile:
    case ValueKind::kFolder:
    case ValueKind::kFileOrFolder:
    case ValueKind::kLocale:
      return false;
    default:
      return !option.get_type_name().empty() && option.get_type_name().starts_with("TEXT") &&
             (option.get_positional() || !option.get_required());
  }
}

std::size_t ValuesTaken(const CLI::App& command) {
  std::size_t count = 0;
  for (const CLI::Option* option : command.get_options()) {
    if (option->get_positional()) count += static_cast<std::size_t>(std::max(option->get_items_expected_max(), 0));
  }
  return count;
}

// Goes through the arguments once, from left to right.
class Sorter {
 public:
  Sorter(const std::vector<std::string>& arguments, GivenArguments& given) : arguments_(arguments), given_(given) {}

  void Run() {
    while (next_ < arguments_.size() && !given_.asksForHelp) {
      const std::string& argument = arguments_[next_++];
      if (argument == "--") {
        while (next_ < arguments_.size()) AddValue(arguments_[next_++]);
      } else if (!TakeOption(argument) && !TakeCommand(argument)) {
        AddValue(argument);
      }
    }
  }

 private:
  bool TakeOption(const std::string& argument) {
    if (argument.size() < 2 || argument[0] != '-') return false;
    const std::size_t equals = argument.find('=');
    const std::string name = argument.substr(0, equals);
    if (GivenOption found = Find(name); found.option) {
      return Take(found, name, equals == std::string::npos ? nullptr : &argument[equals + 1]);
    }
    const std::string nearest = NearestOption(name);
    if (argument[1] != '-') {
      const GivenOption found = Find(argument.substr(0, 2));
      const bool attached = found.option && TakesValue(*found.option);
      if (attached && nearest != "-" + name) return Take(found, argument.substr(0, 2), &argument[2]);
    }
    const bool expected = given_.values.size() < ValuesTaken(given_.innermost());
    if (expected && (nearest.empty() || IsNumber(argument))) return false;
    const std::string owners = Owners(name);
    throw UsageError(Here() + " no option " + name +
                     (owners.empty() ? DidYouMean(nearest) : "; it is an option of " + owners));
  }

  // The commands beside this one that have the option.
  std::string Owners(const std::string& name) const {
    std::string owners;
    int count = 0;
    for (const CLI::App* command : CommandsOf(*given_.commands.front())) {
      if (!name.starts_with("--") || !command->get_option_no_throw(name)) continue;
      constexpr int kMost = 4;
      if (++count > kMost) return owners + ", ...";
      owners += (count > 1 ? ", " : "") + command->get_name();
    }
    return owners;
  }

  std::string Here() const { return given_.commands.size() == 1 ? "there is" : PathOf(given_.commands) + " has"; }

  // The innermost command's own options go before those of the program.
  GivenOption Find(const std::string& name) const {
    for (std::size_t level = given_.commands.size(); level-- > 0;) {
      if (const CLI::Option* option = given_.commands[level]->get_option_no_throw(name)) {
        return {.option = option, .level = level};
      }
    }
    return {};
  }

  // @param attached  the value that follows "=" or stands behind a short name
  bool Take(GivenOption found, const std::string& name, const char* attached) {
    if (found.option == given_.commands[found.level]->get_help_ptr()) {
      given_.asksForHelp = true;
      return true;
    }
    if (!TakesValue(*found.option)) {
      if (attached) throw UsageError(name + " takes no value: " + name + "=" + attached);
    } else if (found.option->get_expected_max() <= 1 && given_.Has(found.option)) {
      throw UsageError(name + " may be given only once");
    } else if (attached) {
      found.value = attached;
    } else {
      found.value = FollowingValue(name);
    }
    if (TakesValue(*found.option) && found.value.empty() && !MayBeEmpty(*found.option)) {
      throw UsageError(name + " needs a value, not ''");
    }
    given_.options.push_back(std::move(found));
    return true;
  }

  const std::string& FollowingValue(const std::string& name) {
    if (next_ == arguments_.size()) throw UsageError(name + " needs a value");
    const std::string& value = arguments_[next_++];
    const bool isOption = value.starts_with("--") && Find(value.substr(0, value.find('='))).option;
    if (isOption) throw UsageError(name + " needs a value before " + value + " (or write " + name + "=" + value + ")");
    return value;
  }

  // Options by their long names: of the command, of the program, and those that have another name elsewhere.
  std::string NearestOption(const std::string& name) const {
    const std::string word = name.substr(name.find_first_not_of('-') == 1 ? 1 : 2);
    if (word.size() < 2 || IsNumber(name)) return "";
    std::vector<std::string> names;
    for (std::size_t level = given_.commands.size(); level-- > 0;) {
      for (const std::string& each : LongNames(*given_.commands[level])) names.push_back(each.substr(2));
    }
    std::vector<std::string> usual;
    for (const auto& [other, ours] : kUsualNames) {
      if (Find(ours).option) usual.emplace_back(other + 2);
    }
    std::vector<std::string> all = names;
    all.insert(all.end(), usual.begin(), usual.end());
    const std::string nearest = NearestName(word, all);
    for (const auto& [other, ours] : kUsualNames) {
      if (nearest == other + 2 && std::find(names.begin(), names.end(), nearest) == names.end()) return ours;
    }
    return nearest.empty() ? "" : "--" + nearest;
  }

  bool TakeCommand(const std::string& argument) {
    if (!given_.values.empty()) return false;
    const std::vector<const CLI::App*> commands = CommandsOf(given_.innermost());
    if (commands.empty()) return false;
    if (const CLI::App* command = FindCommand(given_.innermost(), argument)) {
      given_.commands.push_back(command);
      return true;
    }
    std::vector<std::string> names;
    std::string inner;  // the same name among the commands of another one
    for (const CLI::App* command : commands) {
      names.push_back(command->get_name());
      if (inner.empty() && FindCommand(*command, argument)) inner = command->get_name() + " " + argument;
    }
    const std::string nearest = NearestName(argument, names);
    throw UsageError(Here() + " no command " + (argument.empty() ? "''" : argument) +
                     DidYouMean(inner.empty() ? nearest : inner));
  }

  void AddValue(const std::string& value) {
    const CLI::App& command = given_.innermost();
    if (given_.values.size() >= ValuesTaken(command)) {
      throw UsageError(PathOf(given_.commands) +
                       (ValuesTaken(command) == 0 ? " takes no value" : " takes no more values") + ": " +
                       (value.empty() ? "''" : value));
    }
    if (value.empty()) RequireNamed(command, given_.values.size());
    given_.values.push_back(value);
  }

  // Errors: for a file that is called nothing. @param place  of the value among those of the command, from 0
  static void RequireNamed(const CLI::App& command, std::size_t place) {
    for (const CLI::Option* option : command.get_options()) {
      if (!option->get_positional()) continue;
      const auto taken = static_cast<std::size_t>(std::max(option->get_items_expected_max(), 0));
      if (place < taken) {
        if (!MayBeEmpty(*option)) throw UsageError(option->get_name(true) + " needs a value, not ''");
        return;
      }
      place -= taken;
    }
  }

  const std::vector<std::string>& arguments_;
  std::size_t next_ = 0;
  GivenArguments& given_;
};

}  // namespace

void SortArguments(const CLI::App& app, const std::vector<std::string>& arguments, GivenArguments& given) {
  given.commands = {&app};
  Sorter(arguments, given).Run();
}

std::vector<std::string> InputsOf(const GivenArguments& given) {
  constexpr std::array kRead = {"--db", "--sql-file", "--template", "--headers", "--data"};
  std::vector<std::string> inputs;
  for (const GivenOption& each : given.options) {
    const auto isThis = [&each](const char* name) { return each.option->check_name(name); };
    // A merge reads the file of that name, all others write it.
    const bool isMerged = each.option->check_name("--data-file") && each.option->get_required();
    if (isMerged || std::any_of(kRead.begin(), kRead.end(), isThis)) inputs.push_back(each.value);
    if (each.option->check_name("--db")) inputs.push_back(each.value.substr(each.value.find('=') + 1));  // NAME=FILE
  }
  const bool readsValues = given.innermost().get_name() == "fill";
  if (readsValues) inputs.insert(inputs.end(), given.values.begin(), given.values.end());
  return inputs;
}

bool TakesValue(const CLI::Option& option) {
  return option.get_items_expected_max() > 0;
}

std::string PathOf(const std::vector<const CLI::App*>& commands) {
  std::string path;
  for (std::size_t level = 1; level < commands.size(); ++level) {
    path += (level == 1 ? "" : " ") + commands[level]->get_name();
  }
  return path;
}

std::vector<std::string> LongNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  }
  for (const CLI::App* group : app.get_subcommands([](const CLI::App* each) { return each->get_name().empty(); })) {
    for (std::string& name : LongNames(*group)) names.push_back(std::move(name));
  }
  return names;
}

const CLI::App* FindCommand(const CLI::App& app, const std::string& name) {
  for (const CLI::App* command : CommandsOf(app)) {
    if (command->check_name(name)) return command;
  }
  return nullptr;
}

const std::string* GivenArguments::ValueOf(const std::string& option) const {
  const std::string* value = nullptr;
  for (const GivenOption& given : options) {
    if (given.level == 0 && given.option->check_name(option)) value = &given.value;
  }
  return value;
}

bool GivenArguments::Has(const CLI::Option* option) const {
  return std::any_of(options.begin(), options.end(), [&](const GivenOption& given) { return given.option == option; });
}

// The parser takes an empty value only as an argument of its own, and one that begins with "-" only behind "=".
std::vector<std::string> GivenArguments::ForParser() const {
  std::vector<std::string> line;
  for (std::size_t level = 0; level < commands.size(); ++level) {
    if (level > 0) line.push_back(commands[level]->get_name());
    for (const GivenOption& given : options) {
      if (given.level != level) continue;
      const std::string name = "--" + given.option->get_single_name();
      if (!TakesValue(*given.option)) {
        line.push_back(name);
      } else if (given.value.empty()) {
        line.insert(line.end(), {name, given.value});
      } else {
        line.push_back(name + "=" + given.value);
      }
    }
  }
  if (!values.empty()) line.emplace_back("--");
  line.insert(line.end(), values.begin(), values.end());
  std::reverse(line.begin(), line.end());
  return line;
}

}  // namespace zorkanca::cli
