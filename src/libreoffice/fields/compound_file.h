// A compound file (MS-CFB), the container of binary documents: a file system of sectors. It is changed in place, never
// rewritten, so that what nobody understands here (macros, objects, pictures) stays byte for byte.
//
// The file is untrusted: every sector number, chain and size is checked before it is followed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "runtime/text.h"

namespace zorkanca {

/// A stream: bytes that lie in pieces all over the file.
class CompoundStream {
 public:
  /// @param file     outlives the stream
  /// @param pieces   offsets in the file
  /// @param shift    a piece has 2^shift bytes
  /// Errors: 5 when a piece that the size needs is not in the file.
  CompoundStream(std::string& file, std::vector<std::size_t> pieces, unsigned shift, std::size_t size);

  std::size_t size() const { return size_; }
  /// A little-endian number. Errors: 5 beyond the end.
  /// @param width  1, 2 or 4 bytes
  std::uint32_t Number(std::size_t at, unsigned width) const;
  /// Writes one. Errors: as above.
  void Put(std::size_t at, std::uint32_t value, unsigned width);

 private:
  std::size_t OffsetOf(std::size_t at) const;

  std::string* file_;
  std::vector<std::size_t> pieces_;
  unsigned shift_;
  std::size_t size_;
};

class CompoundFile {
 public:
  /// @param bytes  the whole file; outlives the object
  /// Errors: 5 when it is none, or a damaged one.
  explicit CompoundFile(std::string& bytes);

  /// A stream of the root folder. Errors: 5 when its chain is damaged.
  std::optional<CompoundStream> Find(TextView name) const;

 private:
  std::uint32_t Number(std::size_t at) const;
  std::size_t OffsetOfSector(std::size_t sector) const { return (sector + 1) << shift_; }
  std::vector<std::uint32_t> FatSectors() const;
  void ReadFat();
  std::vector<std::size_t> SectorsFrom(std::uint32_t start) const;
  std::vector<std::size_t> SmallSectorsFrom(std::uint32_t start) const;
  std::size_t EntryAt(std::size_t number) const;
  std::optional<std::size_t> FindEntry(TextView name) const;

  std::string& bytes_;
  unsigned shift_ = 9;
  std::size_t sectors_ = 0;
  std::vector<std::uint32_t> fat_;      // the sector after each sector
  std::vector<std::size_t> directory_;  // offsets of its sectors
};

}  // namespace zorkanca
