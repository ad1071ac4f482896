// The commands of the program with their options, as plain data made from what the option parser was told: help, man
// page and completion are made of it and cannot fall behind.
#pragma once

#include <CLI/App.hpp>
#include <span>
#include <string>
#include <vector>

namespace zorkanca::cli {

/// What a value is, for those who complete it.
enum class ValueKind {
  kText,
  kFile,
  kFolder,
  kFileOrFolder,
  kChoice,       ///< one of `OptionPage::choices`
  kLocale,       ///< a tag, listed in `choices`
  kList,         ///< the name of a list of templates
  kTemplate,     ///< a file, or a list in brackets
  kApplication,  ///< the code of an application with lists
  kCommand,      ///< the name of a command, after those that stand before it
};

/// An option, or a value of a command.
struct OptionPage {
  std::vector<std::string> names;  ///< "-o", "--output"; of a value its name in capitals
  std::string value;               ///< what stands for the value: "FILE"; empty for a flag
  ValueKind kind = ValueKind::kText;
  std::vector<std::string> choices;  ///< all values that are taken; empty: no end of them
  std::string description;
  std::string defaultValue;  ///< empty: the description tells what holds without it
  std::string environment;   ///< a variable that settles it, too
  bool required = false;
  bool repeatable = false;
};

struct Example {
  const char* line;  ///< without the program's name
  const char* what;
};

struct CommandPage {
  std::string path;  ///< "registry get"; empty for the program itself
  std::string name;
  std::string description;
  std::vector<Example> examples;
  std::vector<OptionPage> values;   ///< in order
  std::vector<OptionPage> options;  ///< without --help
  std::vector<CommandPage> commands;
  bool oneCommand = false;  ///< one of its commands must follow
};

/// @param path  names of the commands around and of this one, without the program's; empty for the program
CommandPage PageOf(const CLI::App& app, const std::string& path = "");

/// What kind of value an option takes; of an option that is no option of the table a text.
ValueKind KindOfValue(const CLI::Option& option);

/// Two examples of a command, by its path. Empty for a command without any.
std::span<const Example> ExamplesOf(const std::string& path);

}  // namespace zorkanca::cli
