// The computer as the global options ask for it.
#pragma once

#include "cli/command_line.h"
#include "host/linux_platform.h"

namespace zorkanca::cli {

/// Errors: `UsageError` for a locale that we have no data for.
/// @param interrupted  set when the user wants to stop; outlives the platform
LinuxPlatformSettings SettingsOf(const GlobalOptions& options, const std::atomic<bool>& interrupted);

/// True when there is a desktop that could show a document.
bool HasDisplay();

}  // namespace zorkanca::cli
