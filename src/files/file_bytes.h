// Bytes of files as a program wants them: all that were asked for, however the system hands them over.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "files/file_descriptor.h"

namespace zorkanca {

/// Reads from a place of an open file.
/// @param path  for errors, "" for a file without a name
/// @return      how many bytes were read: fewer than `length` only where the file ends
/// Errors: as `RaiseSystemError`.
std::size_t ReadAt(const FileDescriptor& file, std::uint64_t offset, char* bytes, std::size_t length,
                   const std::string& path = {});

/// All bytes from where an open file or a pipe stands to its end. Errors: as `RaiseSystemError`.
std::string ReadToEnd(int file, const std::string& path);

/// All bytes of a file. Errors: as `RaisePathError`.
std::string ReadFile(const std::string& path);
/// The first bytes of a file, at most `length`. Errors: the same.
std::string ReadStart(const std::string& path, std::size_t length);

}  // namespace zorkanca
