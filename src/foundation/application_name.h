// The name that the library gives itself: in error sources, in the log, and as the owner of its settings.
#pragma once

#include "runtime/text.h"

namespace zorkanca {

inline constexpr TextView kApplicationName = u"zorKancA";

}  // namespace zorkanca
