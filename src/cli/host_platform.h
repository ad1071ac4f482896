// The computer as the global options ask for it.
#pragma once

#include "cli/command_line.h"
#include "host/desktop/display.h"
#include "host/linux_platform.h"

namespace zorkanca::cli {

/// @param interrupted  ends the engines' work once it is set; outlives the platform, as the report does
/// Errors: `UsageError` for a locale that we have no data for.
LinuxPlatformSettings SettingsOf(const GlobalOptions& options, const std::atomic<bool>& interrupted, Report& report);

}  // namespace zorkanca::cli
