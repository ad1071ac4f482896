// The directory of a ZIP file, found, taken apart and checked.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "opc/zip_reader.h"

namespace zorkanca::zip {

/// Bytes of a file from an offset on; fewer than asked for at its end.
using ReadAt = std::function<std::string(std::uint64_t offset, std::size_t length)>;

/// Reads the entries of the directory in its order and checks them against the limits, the file and each other.
/// @param file      path, for errors
/// @param fileSize  bytes
/// Errors: 5 as `ZipReader` says.
std::vector<ZipEntry> ReadDirectory(const std::string& file, std::uint64_t fileSize, const ReadAt& readAt,
                                    const ZipLimits& limits);

}  // namespace zorkanca::zip
