// Numbers of the ZIP format that its reader and its writer share (APPNOTE 6.3).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zorkanca::zip {

inline constexpr std::uint32_t kLocalHeader = 0x04034B50;
inline constexpr std::uint32_t kDataDescriptor = 0x08074B50;
inline constexpr std::uint32_t kDirectoryEntry = 0x02014B50;
inline constexpr std::uint32_t kDirectoryEnd = 0x06054B50;
inline constexpr std::uint32_t kDirectoryEnd64 = 0x06064B50;
inline constexpr std::uint32_t kDirectoryEndLocator64 = 0x07064B50;

inline constexpr std::size_t kLocalHeaderLength = 30;
inline constexpr std::size_t kDirectoryEntryLength = 46;
inline constexpr std::size_t kDirectoryEndLength = 22;
inline constexpr std::size_t kDirectoryEnd64Length = 56;
inline constexpr std::size_t kLocator64Length = 20;

inline constexpr std::uint16_t kStored = 0;
inline constexpr std::uint16_t kDeflated = 8;

inline constexpr std::uint16_t kFlagEncrypted = 1 << 0;
inline constexpr std::uint16_t kFlagDescriptor = 1 << 3;  // sizes and CRC stand behind the data
inline constexpr std::uint16_t kFlagPatched = 1 << 5;
inline constexpr std::uint16_t kFlagStrongEncryption = 1 << 6;
inline constexpr std::uint16_t kFlagUtf8 = 1 << 11;
inline constexpr std::uint16_t kFlagMaskedHeader = 1 << 13;

inline constexpr std::uint16_t kZip64Extra = 0x0001;
// "See the Zip64 field", in fields of 16 and 32 bits.
inline constexpr std::uint16_t kIn64For16 = 0xFFFF;
inline constexpr std::uint32_t kIn64For32 = 0xFFFFFFFF;

/// Little-endian numbers, taken one after the other from bytes whose length the caller has checked.
class Fields {
 public:
  explicit Fields(std::string_view bytes) : bytes_(bytes) {}

  std::uint16_t U16() { return static_cast<std::uint16_t>(Number(2)); }
  std::uint32_t U32() { return static_cast<std::uint32_t>(Number(4)); }
  std::uint64_t U64() { return Number(8); }
  void Skip(std::size_t count) { bytes_.remove_prefix(count); }
  std::string_view rest() const { return bytes_; }

 private:
  std::uint64_t Number(std::size_t width) {
    std::uint64_t value = 0;
    for (std::size_t i = width; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes_[i]);
    bytes_.remove_prefix(width);
    return value;
  }

  std::string_view bytes_;
};

/// Little-endian numbers, appended to a record.
class Record {
 public:
  Record& U16(std::uint64_t value) { return Number(value, 2); }
  Record& U32(std::uint64_t value) { return Number(value, 4); }
  Record& U64(std::uint64_t value) { return Number(value, 8); }
  Record& Bytes(std::string_view bytes) {
    bytes_ += bytes;
    return *this;
  }
  const std::string& bytes() const { return bytes_; }

 private:
  Record& Number(std::uint64_t value, std::size_t width) {
    for (std::size_t i = 0; i < width; ++i) bytes_.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
    return *this;
  }

  std::string bytes_;
};

}  // namespace zorkanca::zip
