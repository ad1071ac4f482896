// Whether this session has a screen at all.
#pragma once

namespace zorkanca {

/// True when there is a desktop that could show a window or a document.
bool HasDisplay();

}  // namespace zorkanca
