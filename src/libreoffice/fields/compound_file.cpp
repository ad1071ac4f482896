#include "libreoffice/fields/compound_file.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "libreoffice/fields/marked_fields.h"

namespace zorkanca {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view kSignature = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv;
constexpr std::uint32_t kEndOfChain = 0xFFFFFFFE;
constexpr std::uint32_t kFree = 0xFFFFFFFF;
constexpr std::uint32_t kNoEntry = 0xFFFFFFFF;
constexpr unsigned kSmallShift = 6;            // sectors of small streams
constexpr std::size_t kEntrySize = 128;        // of the directory
constexpr std::size_t kFatSectorsAhead = 109;  // numbers of FAT sectors in the header

// Places in the header.
constexpr std::size_t kShiftAt = 30;
constexpr std::size_t kDirectoryAt = 48;
constexpr std::size_t kSmallLimitAt = 56;
constexpr std::size_t kSmallFatAt = 60;
constexpr std::size_t kMoreFatSectorsAt = 68;
constexpr std::size_t kFatSectorsAt = 76;
constexpr std::size_t kHeaderSize = 512;

// Places in an entry of the directory.
constexpr std::size_t kNameLengthAt = 64;
constexpr std::size_t kTypeAt = 66;
constexpr std::size_t kLeftAt = 68;
constexpr std::size_t kRightAt = 72;
constexpr std::size_t kChildAt = 76;
constexpr std::size_t kStartAt = 116;
constexpr std::size_t kSizeAt = 120;
constexpr char kStream = 2;

[[noreturn]] void RefuseDamaged() {
  RefuseFields("the file is damaged");
}

std::uint32_t LittleEndian(const std::string& bytes, std::size_t at, unsigned width) {
  std::uint32_t number = 0;
  for (unsigned i = width; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
  return number;
}

// The numbers of the sectors of a chain. One that comes back to itself grows longer than there are sectors.
std::vector<std::size_t> Chain(std::uint32_t start, const std::vector<std::uint32_t>& table, std::size_t count) {
  std::vector<std::size_t> chain;
  for (std::uint32_t sector = start; sector != kEndOfChain; sector = table[sector]) {
    if (sector >= count || sector >= table.size() || chain.size() >= count) RefuseDamaged();
    chain.push_back(sector);
  }
  return chain;
}

}  // namespace

CompoundStream::CompoundStream(std::string& file, std::vector<std::size_t> pieces, unsigned shift, std::size_t size)
    : file_(&file), pieces_(std::move(pieces)), shift_(shift), size_(size) {
  if (size_ > pieces_.size() << shift_) RefuseDamaged();
  for (std::size_t at = 0; at < size_; at += std::size_t{1} << shift_) {
    const std::size_t length = std::min(size_ - at, std::size_t{1} << shift_);
    const std::size_t offset = pieces_[at >> shift_];
    if (offset > file_->size() || length > file_->size() - offset) RefuseDamaged();
  }
}

std::size_t CompoundStream::OffsetOf(std::size_t at) const {
  return pieces_[at >> shift_] + (at & ((std::size_t{1} << shift_) - 1));
}

std::uint32_t CompoundStream::Number(std::size_t at, unsigned width) const {
  if (at > size_ || width > size_ - at) RefuseDamaged();
  std::uint32_t number = 0;
  for (unsigned i = width; i-- > 0;) number = number << 8 | static_cast<unsigned char>((*file_)[OffsetOf(at + i)]);
  return number;
}

void CompoundStream::Put(std::size_t at, std::uint32_t value, unsigned width) {
  if (at > size_ || width > size_ - at) RefuseDamaged();
  for (unsigned i = 0; i < width; ++i) (*file_)[OffsetOf(at + i)] = static_cast<char>(value >> 8 * i);
}

CompoundFile::CompoundFile(std::string& bytes) : bytes_(bytes) {
  if (bytes_.size() < kHeaderSize || !bytes_.starts_with(kSignature)) RefuseDamaged();
  shift_ = LittleEndian(bytes_, kShiftAt, 2);
  if ((shift_ != 9 && shift_ != 12) || LittleEndian(bytes_, kShiftAt + 2, 2) != kSmallShift) RefuseDamaged();
  const std::size_t sectorSize = std::size_t{1} << shift_;
  sectors_ = (bytes_.size() + sectorSize - 1) >> shift_;
  sectors_ -= 1;  // the header's
  ReadFat();
  directory_ = SectorsFrom(Number(kDirectoryAt));
}

std::uint32_t CompoundFile::Number(std::size_t at) const {
  if (at > bytes_.size() || 4 > bytes_.size() - at) RefuseDamaged();
  return LittleEndian(bytes_, at, 4);
}

// The sectors that hold the FAT: the first ones stand in the header, the others in a chain of their own.
std::vector<std::uint32_t> CompoundFile::FatSectors() const {
  const std::size_t perSector = (std::size_t{1} << shift_) / 4;
  const std::size_t enough = sectors_ / perSector + 1;
  std::vector<std::uint32_t> all;
  const auto add = [&](std::size_t at, std::size_t count) {
    for (std::size_t i = 0; i < count && all.size() < enough; ++i) {
      const std::uint32_t sector = Number(at + 4 * i);
      if (sector == kFree) continue;
      if (sector >= sectors_) RefuseDamaged();
      all.push_back(sector);
    }
  };
  add(kFatSectorsAt, kFatSectorsAhead);
  std::uint32_t next = Number(kMoreFatSectorsAt);
  for (std::size_t steps = 0; next != kEndOfChain && next != kFree && all.size() < enough; ++steps) {
    if (next >= sectors_ || steps > sectors_) RefuseDamaged();
    const std::size_t at = OffsetOfSector(next);
    add(at, perSector - 1);
    next = Number(at + 4 * (perSector - 1));
  }
  return all;
}

void CompoundFile::ReadFat() {
  const std::size_t sectorSize = std::size_t{1} << shift_;
  for (const std::uint32_t sector : FatSectors()) {
    const std::size_t offset = OffsetOfSector(sector);
    for (std::size_t at = 0; at < sectorSize; at += 4) fat_.push_back(Number(offset + at));
  }
}

std::vector<std::size_t> CompoundFile::SectorsFrom(std::uint32_t start) const {
  std::vector<std::size_t> sectors = Chain(start, fat_, sectors_);
  for (std::size_t& sector : sectors) sector = OffsetOfSector(sector);
  return sectors;
}

// Streams below a certain size share the sectors of one stream, which belongs to the root.
std::vector<std::size_t> CompoundFile::SmallSectorsFrom(std::uint32_t start) const {
  const std::size_t root = EntryAt(0);
  const std::vector<std::size_t> shared = SectorsFrom(Number(root + kStartAt));
  std::vector<std::uint32_t> table;
  for (const std::size_t sector : SectorsFrom(Number(kSmallFatAt))) {
    for (std::size_t at = 0; at < std::size_t{1} << shift_; at += 4) table.push_back(Number(sector + at));
  }
  const unsigned inside = shift_ - kSmallShift;
  std::vector<std::size_t> sectors = Chain(start, table, shared.size() << inside);
  for (std::size_t& sector : sectors) {
    const std::size_t place = sector & ((std::size_t{1} << inside) - 1);
    sector = shared[sector >> inside] + (place << kSmallShift);
  }
  return sectors;
}

// Where an entry of the directory lies in the file.
std::size_t CompoundFile::EntryAt(std::size_t number) const {
  const std::size_t perSector = (std::size_t{1} << shift_) / kEntrySize;
  if (number / perSector >= directory_.size()) RefuseDamaged();
  const std::size_t at = directory_[number / perSector] + number % perSector * kEntrySize;
  if (at + kEntrySize > bytes_.size()) RefuseDamaged();
  return at;
}

// The entries of a folder form a tree; its order does not matter here, and a damaged one may be a circle.
std::optional<std::size_t> CompoundFile::FindEntry(TextView name) const {
  std::vector<bool> seen(directory_.size() * ((std::size_t{1} << shift_) / kEntrySize));
  std::vector<std::uint32_t> open = {Number(EntryAt(0) + kChildAt)};
  while (!open.empty()) {
    const std::uint32_t entry = open.back();
    open.pop_back();
    if (entry == kNoEntry) continue;
    const std::size_t at = EntryAt(entry);
    if (seen[entry]) RefuseDamaged();
    seen[entry] = true;
    open.push_back(Number(at + kLeftAt));
    open.push_back(Number(at + kRightAt));
    if (bytes_[at + kTypeAt] != kStream || LittleEndian(bytes_, at + kNameLengthAt, 2) != 2 * (name.size() + 1)) {
      continue;
    }
    bool same = true;
    for (std::size_t i = 0; i < name.size(); ++i) same = same && LittleEndian(bytes_, at + 2 * i, 2) == name[i];
    if (same) return at;
  }
  return std::nullopt;
}

std::optional<CompoundStream> CompoundFile::Find(TextView name) const {
  const std::optional<std::size_t> entry = FindEntry(name);
  if (!entry) return std::nullopt;
  const std::uint32_t start = Number(*entry + kStartAt);
  const std::size_t size = Number(*entry + kSizeAt);
  const bool small = size < Number(kSmallLimitAt);
  return CompoundStream(bytes_, small ? SmallSectorsFrom(start) : SectorsFrom(start), small ? kSmallShift : shift_,
                        size);
}

}  // namespace zorkanca
