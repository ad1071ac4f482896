// The help of a command as people read it on a terminal.
#pragma once

#include <string>

#include "cli/command_page.h"

namespace zorkanca::cli {

/// Examples first, then what the command does, its values, options and commands. Lines end with "\n".
std::string HelpOf(const CommandPage& page);

/// The first look: what the program or a group of commands is, an example, its commands.
std::string ShortHelpOf(const CommandPage& page);

/// What an option does with all that holds for it: "border width of the table (default: 1)".
std::string DescriptionOf(const OptionPage& option);

/// "-o, --output FILE".
std::string TitleOf(const OptionPage& option);

/// "zorkanca html [options]", with the values of the command.
std::string UsageOf(const CommandPage& page);

}  // namespace zorkanca::cli
