// Binary Word documents made byte by byte: a compound file with the text, its pieces and the tables of its fields, and
// nothing else.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "runtime/code_page.h"
#include "runtime/text.h"
#include "support/raw_zip.h"

namespace zorkanca::testing {

/// Text that lies in one piece; "{", "|" and "}" are the characters of fields.
struct BinaryPiece {
  Text text;
  bool asBytes = true;
};

/// A document; what is not given is right.
struct BinaryWord {
  std::vector<BinaryPiece> pieces;
  /// Lengths of the stories, by their place in the header: 3 main text, 4 footnotes, 5 headers, 9 text boxes.
  std::map<std::size_t, std::uint32_t> lengths = {};  ///< all of it is main text when empty
  std::vector<std::uint8_t> types = {};               ///< of the fields in their order, 59 (MERGEFIELD) without
  std::uint8_t endFlags = 0x80;                       ///< of the last field
};

namespace binary {

inline constexpr std::size_t kTextAt = 1024;
inline constexpr std::size_t kStream = 4096;  // both streams are so long, eight sectors
inline constexpr std::size_t kMain = 1536;    // where the main stream begins in the file; the tables follow
inline constexpr std::size_t kTables = kMain + kStream;

inline void Put(std::string& bytes, std::size_t at, std::uint64_t value, int width) {
  bytes.replace(at, static_cast<std::size_t>(width), LittleEndian(value, width));
}

inline char16_t FieldMark(char16_t unit) {
  return unit == u'{' ? u'\x13' : unit == u'|' ? u'\x14' : unit == u'}' ? u'\x15' : unit;
}

/// The table of the fields of a story.
inline std::string FieldTable(TextView story, const BinaryWord& word, std::size_t& field) {
  std::string positions;
  std::string values;
  for (std::uint32_t at = 0; at < story.size(); ++at) {
    const char16_t mark = FieldMark(story[at]);
    if (mark == story[at]) continue;
    positions += LittleEndian(at, 4);
    std::uint8_t value = mark == 0x14 ? 0xFF : word.endFlags;
    if (mark == 0x13) value = field < word.types.size() ? word.types[field] : 59;
    if (mark == 0x13) ++field;
    values += LittleEndian(mark, 1) + LittleEndian(value, 1);
  }
  return positions.empty() ? "" : positions + LittleEndian(story.size(), 4) + values;
}

inline std::string DirectoryEntry(TextView name, int type, std::uint32_t child, std::uint32_t right,
                                  std::uint32_t start, std::size_t size) {
  std::string entry(128, '\0');
  for (std::size_t i = 0; i < name.size(); ++i) Put(entry, 2 * i, name[i], 2);
  Put(entry, 64, 2 * (name.size() + 1), 2);
  Put(entry, 66, static_cast<std::uint64_t>(type), 1);
  Put(entry, 68, 0xFFFFFFFF, 4);
  Put(entry, 72, right, 4);
  Put(entry, 76, child, 4);
  Put(entry, 116, start, 4);
  Put(entry, 120, size, 4);
  return entry;
}

/// The container: header, FAT, directory, two streams of eight sectors each.
inline std::string Compound(const std::string& main, const std::string& tables) {
  std::string header("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
  header.resize(512);
  Put(header, 24, 0x0003003E, 4);
  Put(header, 28, 0x0009FFFE, 4);
  Put(header, 32, 6, 2);
  Put(header, 44, 1, 4);
  Put(header, 48, 1, 4);
  Put(header, 56, 4096, 4);
  Put(header, 60, 0xFFFFFFFE, 4);
  Put(header, 68, 0xFFFFFFFE, 4);
  for (std::size_t at = 80; at < 512; at += 4) Put(header, at, 0xFFFFFFFF, 4);
  std::string fat = LittleEndian(0xFFFFFFFD, 4) + LittleEndian(0xFFFFFFFE, 4);
  for (std::uint32_t sector = 2; sector < 18; ++sector) {
    fat += LittleEndian(sector == 9 || sector == 17 ? 0xFFFFFFFE : sector + 1, 4);
  }
  while (fat.size() < 512) fat += LittleEndian(0xFFFFFFFF, 4);
  constexpr std::uint32_t kNone = 0xFFFFFFFF;
  std::string directory = DirectoryEntry(u"Root Entry", 5, 1, kNone, 0xFFFFFFFE, 0) +
                          DirectoryEntry(u"WordDocument", 2, kNone, 2, 2, kStream) +
                          DirectoryEntry(u"1Table", 2, kNone, kNone, 10, kStream);
  directory.resize(512);
  return header + fat + directory + main + tables;
}

}  // namespace binary

inline std::string BinaryWordBytes(const BinaryWord& word) {
  using binary::Put;
  std::string main(binary::kStream, '\0');
  Put(main, 0, 0x00C1A5EC, 4);
  Put(main, 10, 0x0200, 2);
  Put(main, 32, 14, 2);
  Put(main, 62, 22, 2);
  Put(main, 152, 93, 2);
  Text all;
  std::string starts = LittleEndian(0, 4);
  std::string places;
  std::size_t at = binary::kTextAt;
  for (const BinaryPiece& piece : word.pieces) {
    const std::uint64_t place = piece.asBytes ? at * 2 | 0x40000000 : at;
    places += LittleEndian(0, 2) + LittleEndian(place, 4) + LittleEndian(0, 2);
    for (const char16_t unit : piece.text) {
      const char16_t mark = binary::FieldMark(unit);
      Put(main, at, piece.asBytes ? CodePage::Get(1252).Encode(mark) : mark, piece.asBytes ? 1 : 2);
      at += piece.asBytes ? 1 : 2;
    }
    all += piece.text;
    starts += LittleEndian(all.size(), 4);
  }
  std::string tables = "\x01" + LittleEndian(3, 2) + "abc\x02" + LittleEndian(starts.size() + places.size(), 4);
  tables += starts + places;
  const auto tell = [&](std::size_t number, std::size_t start) {
    Put(main, 154 + 8 * number, start, 4);
    Put(main, 154 + 8 * number + 4, tables.size() - start, 4);
  };
  tell(33, 0);
  auto lengths = word.lengths;
  if (lengths.empty()) lengths[3] = static_cast<std::uint32_t>(all.size());
  const std::map<std::size_t, std::size_t> numbers = {{3, 16}, {4, 18}, {5, 17}, {7, 19}, {8, 48}, {9, 57}, {10, 59}};
  std::size_t start = 0;
  std::size_t field = 0;
  for (const auto& [story, length] : lengths) {
    Put(main, 64 + 4 * story, length, 4);
    const std::size_t table = tables.size();
    tables += binary::FieldTable(TextView(all).substr(start, length), word, field);
    tell(numbers.at(story), table);
    start += length;
  }
  tables.resize(binary::kStream);
  return binary::Compound(main, tables);
}

}  // namespace zorkanca::testing
