// What the system says of its error codes.
#pragma once

#include <cstdint>

#include "runtime/text.h"

namespace zorkanca::win32 {

/// The system's message for an error code or a result, in its own language, without the line end and the full stop;
/// empty when it has none.
Text SystemMessage(std::uint32_t code);

}  // namespace zorkanca::win32
