// Enumerations of the type library that the exports share; the numbers are what clients pass.
#pragma once

#include <cstdint>

namespace zorkanca {

/// Visibility asked for when an office application is opened.
enum class AppVisible : std::int32_t { avFalse = 0, avTrue = -1, avLeave = 2 };

/// What a running export is waiting for.
enum class ExportStateValue : std::int32_t { esStill = 0, esOpenApp = 1, esWaitForApp = 2 };

}  // namespace zorkanca
