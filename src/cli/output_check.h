// An output that cannot be written, or must not be, is told before the work begins.
#pragma once

#include "cli/command_line.h"

namespace zorkanca::cli {

/// Makes sure that a file can be written, and leaves what is there as it is.
/// Errors: 70, 75, 76, 52 with the path; 58 when the file exists and --no-clobber was given.
void RequireWritable(const CommandContext& context, const Text& path);

/// The same for the files of a folder, which may have to be made. Errors: also 58 when a file is in its place.
void RequireWritableFolder(const CommandContext& context, const Text& folder);

/// Lets a file stay that --no-clobber protects, or that the command reads. Errors: 58; `UsageError` for the latter.
void RequireNew(const CommandContext& context, const Text& path);

}  // namespace zorkanca::cli
