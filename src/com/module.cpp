#include "com/module.h"

#include <atomic>

namespace zorkanca::com {

namespace {
std::atomic<long> uses{0};
}

ModuleUse::ModuleUse() noexcept {
  ++uses;
}

ModuleUse::~ModuleUse() {
  --uses;
}

bool ModuleInUse() noexcept {
  return uses != 0;
}

void LockModule(bool lock) noexcept {
  if (lock)
    ++uses;
  else
    --uses;
}

}  // namespace zorkanca::com
