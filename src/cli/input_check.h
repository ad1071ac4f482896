// Files that a command reads: what is wrong with their names.
#pragma once

#include "cli/command_line.h"
#include "runtime/error.h"

namespace zorkanca::cli {

/// Errors: 53 when there is no such file, 75 for a folder, with the path.
void RequireFile(const CommandContext& context, const Text& path);

/// "; did you mean NAME?" for an error about a file that is not there and has one of nearly the same name beside it;
/// else nothing. The path is taken from the description.
Text FileHint(const Error& error);

}  // namespace zorkanca::cli
