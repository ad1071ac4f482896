// The few fixed words and numbers that writing and reading of registry files share.
#pragma once

#include <array>
#include <cstdint>

#include "platform/registry.h"
#include "runtime/text.h"

namespace zorkanca {

inline constexpr TextView kRegSignature = u"Windows Registry Editor Version 5.00";

inline constexpr std::array kRegistryHives = {RegistryHive::kClassesRoot, RegistryHive::kCurrentUser,
                                              RegistryHive::kLocalMachine};

// REG_ numbers of value kinds.
inline constexpr std::uint32_t kRegText = 1;
inline constexpr std::uint32_t kRegBinary = 3;
inline constexpr std::uint32_t kRegNumber = 4;

}  // namespace zorkanca
