// The computer as the global options ask for it.
#pragma once

#include "cli/command_line.h"
#include "host/linux_platform.h"

namespace zorkanca::cli {

/// @param interrupted  ends the engines' work once it is set; outlives the platform
/// Errors: `UsageError` for a locale that we have no data for.
LinuxPlatformSettings SettingsOf(const GlobalOptions& options, const std::atomic<bool>& interrupted);

/// True when there is a desktop that could show a document.
bool HasDisplay();

}  // namespace zorkanca::cli
