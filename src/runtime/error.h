// The one exception type of the system. It carries what automation errors carry: number, source, description.
#pragma once

#include <cstdint>
#include <exception>
#include <optional>
#include <string>

#include "runtime/text.h"

namespace zorkanca {

/// A failure on its way to whoever can answer it.
class Error : public std::exception {
 public:
  /// @param number       error number, 32-bit signed as automation has it
  /// @param source       where it arose; grows into a call chain on the way (see foundation/guarded.h)
  /// @param description  text for people
  Error(std::int32_t number, Text source, Text description);

  std::int32_t number() const noexcept { return number_; }
  const Text& source() const noexcept { return source_; }
  const Text& description() const noexcept { return description_; }
  /// "number - description" in UTF-8, for logs of tests and tools.
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  std::int32_t number_;
  Text source_;
  Text description_;
  std::string what_;
};

/// Numbers of the language runtime's and of DAO's own errors that the system raises.
enum class RuntimeError : std::int32_t {
  kInvalidCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kSubscriptOutOfRange = 9,
  kTypeMismatch = 13,
  kUserInterrupt = 18,
  kBadFileName = 52,
  kFileNotFound = 53,
  kDeviceIo = 57,
  kFileExists = 58,
  kDiskFull = 61,
  kPastEndOfFile = 62,
  kPermissionDenied = 70,
  kPathFileAccess = 75,
  kPathNotFound = 76,
  kObjectNotSet = 91,
  kInvalidPattern = 93,
  kInvalidUseOfNull = 94,
  kCannotCreateObject = 429,
  kNotSupported = 438,
  kNoCurrentRecord = 3021,
  kItemNotFound = 3265,
};

/// The runtime's English description of an error, for example "Type mismatch".
TextView DescriptionOf(RuntimeError error);

/// Raises the error with the runtime's own description and an empty source.
[[noreturn]] void Raise(RuntimeError error);
/// Raises the error with a description that says more than the runtime's.
[[noreturn]] void Raise(RuntimeError error, Text description);

/// The error being handled: inside a catch block the caught `Error`; a failed allocation as error 7, any other
/// exception of the standard library as error 5 with its own text. Nothing outside a catch block.
std::optional<Error> ErrorBeingHandled();

}  // namespace zorkanca
