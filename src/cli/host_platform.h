// The computer as the global options ask for it.
#pragma once

#include "cli/command_line.h"
#include "host/desktop/display.h"
#include "host/linux_platform.h"

namespace zorkanca::cli {

/// Errors: `UsageError` for a locale that we have no data for.
LinuxPlatformSettings SettingsOf(const GlobalOptions& options);

}  // namespace zorkanca::cli
