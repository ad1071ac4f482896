#include "libreoffice/fields/binary_text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "libreoffice/fields/marked_fields.h"
#include "runtime/code_page.h"

namespace zorkanca {

namespace {

constexpr std::uint32_t kWordMark = 0xA5EC;
constexpr std::uint32_t kMarkOfWord95 = 0xA5DC;
constexpr std::uint32_t kFirstVersion = 0xC1;  // Word 97
constexpr std::size_t kFlagsAt = 10;
constexpr std::uint32_t kEncrypted = 0x0100;
constexpr std::uint32_t kSecondTables = 0x0200;
constexpr std::size_t kFirstListAt = 32;
constexpr std::size_t kPieces = 33;  // number of the table of the pieces

// Stories in their order in the text, with the places of their lengths and the numbers of their tables of fields.
struct StoryKind {
  std::size_t length;
  std::size_t fields;
};
constexpr std::size_t kNoFields = static_cast<std::size_t>(-1);
constexpr std::array kStories = {
    StoryKind{3, 16},         // main text
    StoryKind{4, 18},         // footnotes
    StoryKind{5, 17},         // headers and footers
    StoryKind{6, kNoFields},  // macros, of earlier versions
    StoryKind{7, 19},         // comments
    StoryKind{8, 48},         // endnotes
    StoryKind{9, 57},         // text boxes
    StoryKind{10, 59},        // text boxes of headers
};

[[noreturn]] void RefuseContradicting() {
  RefuseFields("its tables contradict its text");
}

CompoundStream Require(std::optional<CompoundStream> stream) {
  if (!stream) RefuseFields("it holds no text of Word");
  return *std::move(stream);
}

TextView TablesName(const CompoundStream& main) {
  const std::uint32_t mark = main.Number(0, 2);
  if (mark == kMarkOfWord95 || (mark == kWordMark && main.Number(2, 2) < kFirstVersion)) {
    RefuseFields("it was written by a Word before 1997");
  }
  if (mark != kWordMark) RefuseFields("it holds no text of Word");
  const std::uint32_t flags = main.Number(kFlagsAt, 2);
  if (flags & kEncrypted) RefuseFields("it is encrypted");
  return flags & kSecondTables ? u"1Table" : u"0Table";
}

}  // namespace

BinaryText::BinaryText(std::string& bytes)
    : file_(bytes), main_(Require(file_.Find(u"WordDocument"))), tables_(Require(file_.Find(TablesName(main_)))) {
  ReadHeader();
  ReadPieces();
  ReadStories();
}

// Three lists, each behind the number of its items: of two, four and eight bytes.
void BinaryText::ReadHeader() {
  lengths_ = kFirstListAt + 2 + 2 * main_.Number(kFirstListAt, 2) + 2;
  tablePlaces_ = lengths_ + 4 * main_.Number(lengths_ - 2, 2) + 2;
  tableCount_ = main_.Number(tablePlaces_ - 2, 2);
  if (main_.Number(lengths_ - 2, 2) <= kStories.back().length) RefuseContradicting();
}

BinaryTable BinaryText::Table(std::size_t number) const {
  if (number >= tableCount_) return {};
  const std::size_t start = main_.Number(tablePlaces_ + 8 * number, 4);
  const std::size_t size = main_.Number(tablePlaces_ + 8 * number + 4, 4);
  if (size == 0) return {};
  if (start > tables_.size() || size > tables_.size() - start) RefuseContradicting();
  return {start, size};
}

void BinaryText::ShrinkTable(std::size_t number, std::size_t size) {
  main_.Put(tablePlaces_ + 8 * number + 4, static_cast<std::uint32_t>(size), 4);
}

// Lists of changed formatting of saved changes, then the table: n + 1 positions and n places of 8 bytes.
void BinaryText::ReadPieces() {
  constexpr std::uint32_t kChanges = 1;
  constexpr std::uint32_t kTable = 2;
  const BinaryTable table = Table(kPieces);
  std::size_t at = table.start;
  const std::size_t end = table.start + table.size;
  while (at + 3 <= end && tables_.Number(at, 1) == kChanges) at += 3 + tables_.Number(at + 1, 2);
  if (at + 5 > end || tables_.Number(at, 1) != kTable) RefuseContradicting();
  const std::size_t size = tables_.Number(at + 1, 4);
  at += 5;
  if (size > end - at || size < 16 || (size - 4) % 12 != 0) RefuseContradicting();
  const std::size_t count = (size - 4) / 12;
  const std::size_t places = at + 4 * (count + 1);
  for (std::size_t i = 0; i < count; ++i) {
    AddPiece(tables_.Number(at + 4 * i, 4), tables_.Number(at + 4 * i + 4, 4), tables_.Number(places + 8 * i + 2, 4));
  }
}

void BinaryText::AddPiece(std::uint32_t start, std::uint32_t end, std::uint32_t place) {
  constexpr std::uint32_t kOneByte = 0x40000000;
  const bool bytes = (place & kOneByte) != 0;
  const Piece piece{start, end, bytes ? (place & ~kOneByte) / 2 : place, bytes ? 1U : 2U};
  const std::uint32_t before = pieces_.empty() ? 0 : pieces_.back().end;
  // No two pieces are the same text, so that all of them together are no longer than the stream.
  if (start != before || end <= start || end > main_.size()) RefuseContradicting();
  if (piece.offset > main_.size() || std::size_t{end - start} * piece.width > main_.size() - piece.offset) {
    RefuseContradicting();
  }
  pieces_.push_back(piece);
}

void BinaryText::ReadStories() {
  std::uint64_t start = 0;
  for (const StoryKind& kind : kStories) {
    const std::uint32_t length = main_.Number(lengths_ + 4 * kind.length, 4);
    if (start + length > pieces_.back().end) RefuseContradicting();
    if (kind.fields != kNoFields) stories_.push_back({static_cast<std::uint32_t>(start), length, kind.fields});
    start += length;
  }
}

const BinaryText::Piece& BinaryText::PieceOf(std::uint32_t position) const {
  const auto behind = std::upper_bound(pieces_.begin(), pieces_.end(), position,
                                       [](std::uint32_t at, const Piece& piece) { return at < piece.end; });
  if (behind == pieces_.end()) RefuseContradicting();
  return *behind;
}

char16_t BinaryText::Decoded(const Piece& piece, std::uint32_t position) const {
  const std::uint32_t number =
      main_.Number(piece.offset + std::size_t{position - piece.start} * piece.width, piece.width);
  return piece.width == 2 ? static_cast<char16_t>(number)
                          : CodePage::Get(1252).Decode(static_cast<std::uint8_t>(number));
}

char16_t BinaryText::Character(std::uint32_t position) const {
  return Decoded(PieceOf(position), position);
}

void BinaryText::SetCharacter(std::uint32_t position, char16_t character) {
  const Piece& piece = PieceOf(position);
  const std::uint32_t number = piece.width == 2 ? character : CodePage::Get(1252).Encode(character);
  main_.Put(piece.offset + std::size_t{position - piece.start} * piece.width, number, piece.width);
}

bool BinaryText::HasBytes() const {
  return std::any_of(pieces_.begin(), pieces_.end(), [](const Piece& piece) { return piece.width == 1; });
}

std::vector<bool> BinaryText::UsedCharacters() const {
  std::vector<bool> used(0x10000);
  for (const Piece& piece : pieces_) {
    for (std::uint32_t position = piece.start; position < piece.end; ++position) used[Decoded(piece, position)] = true;
  }
  return used;
}

}  // namespace zorkanca
