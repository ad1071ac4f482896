// Reads the directory of a ZIP package and its entries, and trusts neither.
//
// A package that arrives as a template is somebody else's file: before anything is inflated the whole directory is
// checked against the limits below, against the length of the file and against itself.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "files/file_descriptor.h"

namespace zorkanca {

/// What a package may ask of us.
struct ZipLimits {
  std::size_t entries = 4096;
  std::uint64_t entrySize = 256ULL << 20;     ///< inflated bytes of one entry
  std::uint64_t packageSize = 1024ULL << 20;  ///< inflated bytes of all entries together
  std::uint64_t ratio = 500;                  ///< inflated by compressed size, for entries above a megabyte
};

/// One entry of the directory. Its data lie at a checked place of the file.
struct ZipEntry {
  std::string name;  ///< as written: "word/document.xml"; a folder ends with "/"
  std::uint16_t flags = 0;
  std::uint16_t method = 0;  ///< 0 stored, 8 deflated
  std::uint32_t crc = 0;
  std::uint64_t compressedSize = 0;
  std::uint64_t size = 0;
  std::uint64_t headerOffset = 0;  ///< of the local header
  std::uint64_t dataOffset = 0;    ///< of the compressed bytes
};

class ZipReader {
 public:
  /// Takes bytes of an entry, piece by piece.
  using Take = std::function<void(std::string_view)>;

  /// Opens a file and checks its directory.
  /// @param path  native path
  /// Errors: 5 for what is no ZIP archive or breaks a limit, has an entry that is encrypted, of an unknown method,
  /// overlapping another, outside of the file, with a name that leaves the package or occurs twice (ignoring case);
  /// 53, 70, 75, 76 when the file cannot be read.
  explicit ZipReader(std::string path, const ZipLimits& limits = {});

  const std::string& path() const { return path_; }
  /// In the order of the directory.
  const std::vector<ZipEntry>& entries() const { return entries_; }

  /// Inflates an entry. Never gives more than the directory declared.
  /// Errors: 5 when data, size or CRC are wrong; what was taken until then is void.
  void Read(const ZipEntry& entry, const Take& take) const;
  /// The whole entry. Errors: as above.
  std::string Read(const ZipEntry& entry) const;
  /// The compressed bytes as they stand in the file, unchecked.
  void ReadCompressed(const ZipEntry& entry, const Take& take) const;

 private:
  std::string path_;
  FileDescriptor file_;
  std::vector<ZipEntry> entries_;
};

}  // namespace zorkanca
