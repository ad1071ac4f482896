// The computer as the global options ask for it.
#pragma once

#include "cli/command_line.h"
#include "host/linux_platform.h"

namespace zorkanca::cli {

/// Errors: `UsageError` for a locale that we have no data for.
LinuxPlatformSettings SettingsOf(const GlobalOptions& options);

/// True when there is a desktop that could show a document.
bool HasDisplay();

}  // namespace zorkanca::cli
