// Our engines among the classes of the computer, where programs look whether Word and Excel are installed.
#pragma once

#include "platform/registry.h"

namespace zorkanca {

/// Enters each engine under HKEY_CLASSES_ROOT, "Word.Application\CLSID" and "Excel.Application\CLSID", the first time
/// that it is seen there. The key "zorKancA\Engines" remembers that, so that an entry which somebody removes stays
/// away; and so does one that was there before us. A registry that cannot be read or written is left for the next
/// start.
void RegisterEngines(Registry& registry);

}  // namespace zorkanca
