// The directory at the end of a ZIP archive, read as untrusted input.
//
// The end record is looked for from behind: its signature may stand in the archive's comment too, so that a record
// counts only when the comment that it tells fits into what follows. Its numbers, or those of the Zip64 record before
// it, give the directory; each entry's header is then read and must say the same as the directory, because whoever
// checks one of them must not be shown the other. No two entries may share bytes, no name may leave the package or
// occur twice in any case of letters, and the sizes told are held against the limits before a byte is inflated; what
// inflates to more than was told is cut off later (inflater.h).
//
// Every offset and length is compared before it is used, by subtraction from what is left, so that no sum overflows.
// Read are the last 64 KB, the directory, whose size is bounded, and one header for each entry; the checks sort the
// entries.
#include "opc/zip_directory.h"

#include <algorithm>
#include <unordered_set>

#include "opc/office_error.h"
#include "opc/zip_format.h"
#include "runtime/ascii.h"

namespace zorkanca::zip {

namespace {

constexpr std::size_t kLongestComment = 0xFFFF;
constexpr std::size_t kLongestName = 1024;
constexpr std::uint64_t kDirectoryBytesPerEntry = 4096;     // on the average; names and extra fields are short
constexpr std::uint64_t kSmallEnoughForAnyRatio = 1 << 20;  // equal rows compress well, and a megabyte hurts nobody

// Where the directory stands.
struct Place {
  std::uint64_t entries = 0;
  std::uint64_t size = 0;
  std::uint64_t offset = 0;
  std::uint64_t end = 0;  // offset of the record that describes it
};

class DirectoryReader {
 public:
  DirectoryReader(const std::string& file, std::uint64_t fileSize, const ReadAt& readAt, const ZipLimits& limits)
      : file_(file), fileSize_(fileSize), readAt_(readAt), limits_(limits) {}

  std::vector<ZipEntry> Read() {
    const Place place = FindDirectory();
    if (place.entries > limits_.entries) Refuse("it has more than " + std::to_string(limits_.entries) + " parts");
    const bool inside = place.offset <= place.end && place.size <= place.end - place.offset;
    if (!inside || place.size > limits_.entries * kDirectoryBytesPerEntry) Refuse("its directory is damaged");
    const std::string directory = readAt_(place.offset, static_cast<std::size_t>(place.size));
    Fields fields(directory);
    std::vector<ZipEntry> entries;
    for (std::uint64_t i = 0; i < place.entries; ++i) entries.push_back(ReadEntry(fields));
    for (ZipEntry& entry : entries) FindData(entry, place.offset);
    CheckOverlaps(entries);
    CheckNames(entries);
    CheckSizes(entries);
    return entries;
  }

 private:
  [[noreturn]] void Refuse(const std::string& reason) const { RaiseNotOfficeDocument(file_, reason); }
  [[noreturn]] void Refuse(const ZipEntry& entry, const std::string& reason) const {
    RaiseBadPart(file_, '/' + entry.name, reason);
  }

  Place FindDirectory() const {
    const std::size_t length =
        static_cast<std::size_t>(std::min<std::uint64_t>(fileSize_, kDirectoryEndLength + kLongestComment));
    const std::uint64_t start = fileSize_ - length;
    const std::string tail = readAt_(start, length);
    const std::string signature = Record().U32(kDirectoryEnd).bytes();
    for (std::size_t at = tail.rfind(signature); at != std::string::npos;
         at = at == 0 ? std::string::npos : tail.rfind(signature, at - 1)) {
      if (tail.size() - at < kDirectoryEndLength) continue;
      Fields fields(std::string_view(tail).substr(at + 4));
      const bool oneDisk = fields.U16() == 0 && fields.U16() == 0;
      Place place;
      const std::uint64_t entriesHere = fields.U16();
      place.entries = fields.U16();
      place.size = fields.U32();
      place.offset = fields.U32();
      place.end = start + at;
      if (fields.U16() > tail.size() - at - kDirectoryEndLength) continue;  // the signature of another thing
      const bool in64 = place.entries == kIn64For16 || place.size == kIn64For32 || place.offset == kIn64For32;
      if (in64) return FindDirectory64(place);
      if (!oneDisk || entriesHere != place.entries) Refuse("it is one of several volumes");
      return place;
    }
    Refuse("it is no ZIP package, or its end is missing");
  }

  Place FindDirectory64(Place place) const {
    if (place.end < kLocator64Length) Refuse("its directory is damaged");
    const std::string locator = readAt_(place.end - kLocator64Length, kLocator64Length);
    Fields locatorFields(locator);
    if (locatorFields.U32() != kDirectoryEndLocator64) return place;  // the numbers are meant as they stand
    locatorFields.Skip(4);
    place.end = locatorFields.U64();
    if (place.end > fileSize_ - kDirectoryEnd64Length) Refuse("its directory is damaged");
    const std::string record = readAt_(place.end, kDirectoryEnd64Length);
    Fields fields(record);
    if (fields.U32() != kDirectoryEnd64) Refuse("its directory is damaged");
    fields.Skip(12);  // own length, versions
    if (fields.U32() != 0 || fields.U32() != 0) Refuse("it is one of several volumes");
    fields.Skip(8);  // entries on this volume
    place.entries = fields.U64();
    place.size = fields.U64();
    place.offset = fields.U64();
    return place;
  }

  ZipEntry ReadEntry(Fields& fields) const {
    if (fields.rest().size() < kDirectoryEntryLength || fields.U32() != kDirectoryEntry) {
      Refuse("its directory is damaged");
    }
    ZipEntry entry;
    fields.Skip(4);  // versions
    entry.flags = fields.U16();
    entry.method = fields.U16();
    fields.Skip(4);  // date and time
    entry.crc = fields.U32();
    entry.compressedSize = fields.U32();
    entry.size = fields.U32();
    const std::size_t nameLength = fields.U16();
    const std::size_t extraLength = fields.U16();
    const std::size_t commentLength = fields.U16();
    fields.Skip(8);  // volume, attributes
    entry.headerOffset = fields.U32();
    if (fields.rest().size() < nameLength + extraLength + commentLength) Refuse("its directory is damaged");
    entry.name = fields.rest().substr(0, nameLength);
    fields.Skip(nameLength);
    ReadExtra(entry, fields.rest().substr(0, extraLength));
    fields.Skip(extraLength + commentLength);
    return entry;
  }

  // The extra field for Zip64 holds those numbers, in this order, whose own field is full of ones.
  void ReadExtra(ZipEntry& entry, std::string_view extra) const {
    Fields fields(extra);
    while (fields.rest().size() >= 4) {
      const std::uint16_t id = fields.U16();
      const std::size_t length = fields.U16();
      if (fields.rest().size() < length) return;  // padding of other writers
      if (id == kZip64Extra) {
        Fields numbers(fields.rest().substr(0, length));
        for (std::uint64_t* number : {&entry.size, &entry.compressedSize, &entry.headerOffset}) {
          if (*number == kIn64For32 && numbers.rest().size() >= 8) *number = numbers.U64();
        }
      }
      fields.Skip(length);
    }
  }

  void FindData(ZipEntry& entry, std::uint64_t directoryOffset) const {
    const std::uint16_t hidden = kFlagEncrypted | kFlagStrongEncryption | kFlagMaskedHeader;
    if (entry.flags & hidden) Refuse(entry, "it is encrypted");
    if ((entry.method != kStored && entry.method != kDeflated) || entry.flags & kFlagPatched) {
      Refuse(entry, "it is compressed by an unknown method");
    }
    if (entry.method == kStored && entry.size != entry.compressedSize) Refuse(entry, "its sizes contradict each other");
    const std::size_t length = kLocalHeaderLength + entry.name.size();
    const bool headerInside = entry.headerOffset <= directoryOffset && length <= directoryOffset - entry.headerOffset;
    if (!headerInside) Refuse(entry, "it lies outside of the package");
    const std::string header = readAt_(entry.headerOffset, length);
    Fields fields(header);
    const std::uint32_t signature = fields.U32();
    fields.Skip(4);  // version, flags
    const std::uint16_t method = fields.U16();
    fields.Skip(16);  // date and time, CRC, sizes: the directory's count
    const std::size_t nameLength = fields.U16();
    const std::size_t extraLength = fields.U16();
    // Two names or two methods for one entry: what one program checks, another would read differently.
    if (signature != kLocalHeader || method != entry.method || nameLength != entry.name.size() ||
        fields.rest() != entry.name) {
      Refuse(entry, "its header contradicts the directory");
    }
    entry.dataOffset = entry.headerOffset + length + extraLength;
    if (entry.dataOffset > directoryOffset || entry.compressedSize > directoryOffset - entry.dataOffset) {
      Refuse(entry, "it lies outside of the package");
    }
  }

  // Entries that share their data multiply what a small file inflates to.
  void CheckOverlaps(const std::vector<ZipEntry>& entries) const {
    std::vector<const ZipEntry*> byOffset;
    for (const ZipEntry& entry : entries) byOffset.push_back(&entry);
    std::sort(byOffset.begin(), byOffset.end(),
              [](const ZipEntry* left, const ZipEntry* right) { return left->headerOffset < right->headerOffset; });
    for (std::size_t i = 1; i < byOffset.size(); ++i) {
      const ZipEntry& before = *byOffset[i - 1];
      if (byOffset[i]->headerOffset < before.dataOffset + before.compressedSize) {
        Refuse(*byOffset[i], "it overlaps /" + before.name);
      }
    }
  }

  void CheckNames(const std::vector<ZipEntry>& entries) const {
    std::unordered_set<std::string> seen;
    for (const ZipEntry& entry : entries) {
      if (!StaysInside(entry.name)) Refuse(entry, "its name leaves the package");
      if (!seen.insert(AsciiLower(entry.name)).second) Refuse(entry, "its name occurs twice");
    }
  }

  static bool StaysInside(std::string_view name) {
    if (name.empty() || name.size() > kLongestName) return false;
    const bool drive = name.size() > 1 && name[1] == ':';
    if (drive || name.find('\\') != name.npos || name.find('\0') != name.npos) return false;
    if (name.ends_with('/')) name.remove_suffix(1);  // a folder
    for (;;) {
      const std::size_t slash = name.find('/');
      const std::string_view piece = name.substr(0, slash);
      if (piece.empty() || piece == "." || piece == "..") return false;
      if (slash == name.npos) return true;
      name.remove_prefix(slash + 1);
    }
  }

  void CheckSizes(const std::vector<ZipEntry>& entries) const {
    std::uint64_t total = 0;
    for (const ZipEntry& entry : entries) {
      if (entry.size > limits_.entrySize) Refuse(entry, "it is too large");
      const bool bomb = entry.size > kSmallEnoughForAnyRatio && entry.size / limits_.ratio > entry.compressedSize;
      if (bomb) Refuse(entry, "it is compressed beyond all measure");
      total += entry.size;
      if (total > limits_.packageSize) Refuse("its parts are too large together");
    }
  }

  const std::string& file_;
  std::uint64_t fileSize_;
  const ReadAt& readAt_;
  const ZipLimits& limits_;
};

}  // namespace

std::vector<ZipEntry> ReadDirectory(const std::string& file, std::uint64_t fileSize, const ReadAt& readAt,
                                    const ZipLimits& limits) {
  return DirectoryReader(file, fileSize, readAt, limits).Read();
}

}  // namespace zorkanca::zip
