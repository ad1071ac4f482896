// What keeps the DLL in memory.
#pragma once

namespace zorkanca::com {

/// Counts for as long as it lives: every object does, and every client that locks the server.
class ModuleUse {
 public:
  ModuleUse() noexcept;
  ~ModuleUse();
  ModuleUse(const ModuleUse&) = delete;
  ModuleUse& operator=(const ModuleUse&) = delete;
};

/// False when the DLL can be unloaded.
bool ModuleInUse() noexcept;
/// What `IClassFactory::LockServer` asks for, which has no object to count with.
void LockModule(bool lock) noexcept;

}  // namespace zorkanca::com
