// Options that hold without being given: a file of lines "long-name = value". It is written in the part of TOML that
// options need: comments from "#" on, tables "[command]" or "[group.command]", and values that are true or false,
// numbers, texts in quotes or apostrophes, or arrays of these in brackets.
#pragma once

#include <string>
#include <vector>

#include "cli/arguments.h"

namespace zorkanca::cli {

struct ConfigEntry {
  std::string command;  ///< of the table, "registry get"; empty before the first one
  std::string option;   ///< long name without dashes
  std::vector<std::string> values;
  std::size_t line = 0;
};

/// The user's own file of options, whether it is there or not; empty without a home folder.
std::string DefaultConfigFile();

/// @param name  of the file, for errors
/// Errors: `UsageError` with file and line for what is no such file.
std::vector<ConfigEntry> ReadConfig(const std::string& text, const std::string& name);

/// Adds the options of --config, or of the user's own file where there is one, that neither the line nor the
/// environment settles. A table holds for its command; what stands before any table, for every command that has it.
/// Errors: 53 for a file that was named and cannot be opened; `UsageError` for commands and options that do not exist.
void AddConfigured(GivenArguments& given);

}  // namespace zorkanca::cli
