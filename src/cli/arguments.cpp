#include "cli/arguments.h"

#include <CLI/Option.hpp>

namespace zorkanca::cli {

namespace {

// An option as it stands on the line, with the value that is attached to it ("--title=x", "-ox").
struct GivenOption {
  const CLI::Option* option = nullptr;
  bool hasValue = false;
  std::string value;
};

GivenOption ReadOption(const CLI::App& app, const std::string& argument) {
  if (argument.size() < 2 || argument[0] != '-') return {};
  const std::size_t equals = argument.find('=');
  const std::string name = argument.substr(0, equals);
  if (const CLI::Option* option = app.get_option_no_throw(name)) {
    const bool hasValue = equals != std::string::npos;
    return {.option = option, .hasValue = hasValue, .value = hasValue ? argument.substr(equals + 1) : ""};
  }
  const CLI::Option* shortOption = argument[1] == '-' ? nullptr : app.get_option_no_throw(argument.substr(0, 2));
  if (!shortOption || shortOption->get_items_expected_max() == 0) return {};
  return {.option = shortOption, .hasValue = true, .value = argument.substr(2)};
}

const CLI::App* FindCommand(const CLI::App& app, const std::string& name) {
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    if (command->check_name(name)) return command;
  }
  return nullptr;
}

// The parser takes an empty value only as an argument of its own, and one that begins with "-" only behind "=".
void AppendWithValue(std::vector<std::string>& line, const CLI::Option& option, const std::string& value) {
  const std::string name = "--" + option.get_single_name();
  if (value.empty()) {
    line.insert(line.end(), {name, value});
  } else {
    line.push_back(name + "=" + value);
  }
}

}  // namespace

std::vector<std::string> WithValuesMarked(const CLI::App& app, const std::vector<std::string>& arguments) {
  std::vector<std::string> line;
  std::vector<std::string> values;  // of the innermost command, in order
  const CLI::App* command = &app;
  for (std::size_t index = 0; index < arguments.size(); ++index) {
    const std::string& argument = arguments[index];
    if (argument == "--") {
      values.insert(values.end(), arguments.begin() + static_cast<std::ptrdiff_t>(index) + 1, arguments.end());
      break;
    }
    const GivenOption given = ReadOption(*command, argument);
    const CLI::App* inner = given.option || !values.empty() ? nullptr : FindCommand(*command, argument);
    if (given.option && given.hasValue) {
      AppendWithValue(line, *given.option, given.value);
    } else if (given.option && given.option->get_items_expected_max() > 0 && index + 1 < arguments.size()) {
      AppendWithValue(line, *given.option, arguments[++index]);
    } else if (given.option) {
      line.push_back(argument);
    } else if (inner) {
      line.push_back(argument);
      command = inner;
    } else {
      values.push_back(argument);
    }
  }
  if (!values.empty()) {
    line.emplace_back("--");
    line.insert(line.end(), values.begin(), values.end());
  }
  return line;
}

}  // namespace zorkanca::cli
