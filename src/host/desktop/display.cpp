#include "host/desktop/display.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace zorkanca {

bool HasDisplay() {
  const char* const names[] = {"DISPLAY", "WAYLAND_DISPLAY"};
  return std::any_of(std::begin(names), std::end(names), [](const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
  });
}

}  // namespace zorkanca
