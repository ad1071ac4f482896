// Faults of the files that records are read from: where, and what a user can do.
#pragma once

#include <cstdint>
#include <string>

#include "runtime/error.h"
#include "runtime/text.h"

namespace zorkanca {

/// "External table isn't in the expected format", as DAO counts it.
inline constexpr std::int32_t kUnexpectedFormat = 3274;

/// A place in a file.
struct FilePlace {
  std::int64_t line = 1;       ///< from 1
  const char16_t* unit = u"";  ///< what `number` counts: u"field", u"column"; empty for the whole line
  std::int64_t number = 0;     ///< from 1
};

/// The error "PATH, line 3, field 2: REASON".
/// @param source  "CSV" or "JSON"
Error FaultAt(std::int32_t number, TextView source, const std::string& path, const FilePlace& place,
              const Text& reason);

}  // namespace zorkanca
