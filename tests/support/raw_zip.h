// ZIP archives made byte by byte, sound ones and hostile ones: every number can lie.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorkanca::testing {

/// One entry; what is not given is right.
struct RawEntry {
  std::string name;
  std::string data;  ///< as it stands in the file
  std::uint16_t method = 0;
  std::uint16_t flags = 0;
  std::optional<std::uint32_t> crc = {};
  std::optional<std::uint32_t> size = {};            ///< inflated
  std::optional<std::uint32_t> compressedSize = {};  ///< in the directory
  std::optional<std::uint32_t> offset = {};          ///< in the directory
  std::optional<std::string> localName = {};
};

/// The CRC-32 of ZIP, bit by bit.
inline std::uint32_t PlainCrc(std::string_view bytes) {
  std::uint32_t crc = ~0U;
  for (const char byte : bytes) {
    crc ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320U : 0U);
  }
  return ~crc;
}

inline std::string LittleEndian(std::uint64_t value, int width) {
  std::string bytes;
  for (int i = 0; i < width; ++i) bytes.push_back(static_cast<char>(i < 8 ? value >> (8 * i) & 0xFF : 0));
  return bytes;
}

/// The archive of these entries, in this order.
/// @param count  the number of entries that the end record tells
inline std::string RawZip(const std::vector<RawEntry>& entries, std::optional<std::uint16_t> count = {}) {
  std::string file;
  std::string directory;
  for (const RawEntry& entry : entries) {
    const std::string local = entry.localName.value_or(entry.name);
    const auto length = static_cast<std::uint32_t>(entry.data.size());
    const std::string numbers = LittleEndian(entry.flags, 2) + LittleEndian(entry.method, 2) + LittleEndian(0, 4) +
                                LittleEndian(entry.crc.value_or(PlainCrc(entry.data)), 4) +
                                LittleEndian(entry.compressedSize.value_or(length), 4) +
                                LittleEndian(entry.size.value_or(length), 4);
    directory += "PK\1\2" + LittleEndian(20, 2) + LittleEndian(20, 2) + numbers + LittleEndian(entry.name.size(), 2) +
                 LittleEndian(0, 12) + LittleEndian(entry.offset.value_or(static_cast<std::uint32_t>(file.size())), 4) +
                 entry.name;
    file += "PK\3\4" + LittleEndian(20, 2) + numbers + LittleEndian(local.size(), 2) + LittleEndian(0, 2) + local;
    file += entry.data;
  }
  const std::string counted = LittleEndian(count.value_or(static_cast<std::uint16_t>(entries.size())), 2);
  const std::string place = LittleEndian(directory.size(), 4) + LittleEndian(file.size(), 4);
  return file + directory + "PK\5\6" + LittleEndian(0, 4) + counted + counted + place + LittleEndian(0, 2);
}

/// The entries of a small Word document with one paragraph.
inline std::vector<RawEntry> SmallDocument(const std::string& paragraphText) {
  return {
      {"[Content_Types].xml",
       R"(<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types"><Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/><Default Extension="XML" ContentType="application/xml"/><Override PartName="/word/document.xml" ContentType="application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml"/></Types>)"},
      {"_rels/.rels",
       R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships"><Relationship Id="rId7" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument" Target="/word/document.xml"/></Relationships>)"},
      {"word/document.xml",
       R"(<w:document xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main"><w:body><w:p><w:r><w:t>)" +
           paragraphText + "</w:t></w:r></w:p></w:body></w:document>"},
  };
}

}  // namespace zorkanca::testing
