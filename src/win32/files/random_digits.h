// Digits for names that nobody else has.
#pragma once

#include <random>

#include "runtime/text.h"

namespace zorkanca::win32 {

/// Upper-case hexadecimal digits.
inline Text RandomDigits(std::size_t count) {
  std::random_device device;
  Text digits;
  while (digits.size() < count) digits.push_back(u"0123456789ABCDEF"[device() % 16]);
  return digits;
}

}  // namespace zorkanca::win32
