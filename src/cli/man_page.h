// The man page zorkanca(1), made from the descriptions of the commands.
#pragma once

#include <string>

#include "cli/command_page.h"

namespace zorkanca::cli {

/// The page in the language of man(7).
std::string ManPageOf(const CommandPage& program);

}  // namespace zorkanca::cli
