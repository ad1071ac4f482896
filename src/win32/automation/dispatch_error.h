// What a failed call of automation means: the error number that programs of the suite's time see.
#pragma once

#include <cstdint>

#include "runtime/error.h"
#include "win32/system.h"

namespace zorkanca::win32 {

/// The error number of a result: 0x800Annnn is nnnn, the results of calls by name have numbers of the runtime (438, 13,
/// 450, …), a server that is gone 462, one that cannot be had 429; anything else is the result itself.
std::int32_t ErrorNumberOf(HRESULT result);
/// The other way: 0x800Annnn of a number from 1 to 65535, else the number itself.
HRESULT ResultOf(std::int32_t number);

/// The description of an error number, or of the result that it came from.
Text DescriptionOfResult(HRESULT result);

/// Raises the error that a result stands for. @param member  what was called; may be empty
[[noreturn]] void RaiseResult(HRESULT result, TextView member = {});
/// Raises the error that an object told of itself, with its source and description. Releases the texts.
[[noreturn]] void RaiseReported(EXCEPINFO& report);
/// Raises one of the runtime's errors that only automation knows, by its number.
[[noreturn]] void RaiseNumber(std::int32_t number);

inline void Require(HRESULT result) {
  if (FAILED(result)) RaiseResult(result);
}

}  // namespace zorkanca::win32
