#include "tabular/utf8_input.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "files/file_bytes.h"
#include "files/reread_file.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

constexpr char kNoCharacter = '\xFF';  // never a byte of UTF-8

struct Mark {
  std::string_view bytes;
  TextEncoding encoding;
};

constexpr Mark kMarks[] = {
    {"\xEF\xBB\xBF", TextEncoding::kUtf8},
    {"\xFF\xFE", TextEncoding::kUtf16LittleEndian},
    {"\xFE\xFF", TextEncoding::kUtf16BigEndian},
};

}  // namespace

Utf8Input::Utf8Input(std::string path, TextEncoding withoutMark, const CodePage& page)
    : path_(std::move(path)), file_(OpenForRereading(path_)), encoding_(withoutMark) {
  FindMark();
  if (encoding_ == TextEncoding::kAnsi) FillPageTable(page);
  Restart();
}

void Utf8Input::FindMark() {
  char start[3];
  const std::string_view known(start, ReadAt(file_, 0, start, sizeof start, path_));
  for (const Mark& mark : kMarks) {
    if (!known.starts_with(mark.bytes)) continue;
    encoding_ = mark.encoding;
    markLength_ = mark.bytes.size();
    return;
  }
}

void Utf8Input::FillPageTable(const CodePage& page) {
  for (std::size_t byte = 0; byte < page_.size(); ++byte) {
    Spelling& spelling = page_[byte];
    EncodeUtf8(page.Decode(static_cast<std::uint8_t>(byte)),
               [&](char each) { spelling.bytes[spelling.length++] = each; });
  }
}

void Utf8Input::Restart() {
  offset_ = markLength_;
  high_ = 0;
}

std::size_t Utf8Input::ReadBytes(char* bytes, std::size_t length) {
  const std::size_t count = ReadAt(file_, offset_, bytes, length, path_);
  offset_ += count;
  return count;
}

std::size_t Utf8Input::Read(std::span<char> room) {
  switch (encoding_) {
    case TextEncoding::kUtf8:
      return ReadBytes(room.data(), room.size());
    case TextEncoding::kAnsi:
      return ReadAnsi(room);
    default:
      return ReadUtf16(room);
  }
}

std::size_t Utf8Input::ReadAnsi(std::span<char> room) {
  // A byte becomes three at the most: read to the end of the room, the bytes are overtaken by nothing.
  const std::size_t length = room.size() / 3;
  char* const raw = room.data() + room.size() - length;
  const std::size_t count = ReadBytes(raw, length);
  char* next = room.data();
  for (std::size_t index = 0; index < count; ++index) {
    const Spelling& spelling = page_[static_cast<std::uint8_t>(raw[index])];
    next = std::copy_n(spelling.bytes.data(), spelling.length, next);
  }
  return static_cast<std::size_t>(next - room.data());
}

std::size_t Utf8Input::ReadUtf16(std::span<char> room) {
  // Two bytes become three at the most, a half of a character left from before three more, and a last lone byte one.
  const std::size_t length = (room.size() - 8) / 6 * 4;
  if (rawSize_ < length) {
    raw_ = std::make_unique_for_overwrite<char[]>(length);
    rawSize_ = length;
  }
  const std::size_t count = ReadBytes(raw_.get(), length);
  char* next = room.data();
  const auto put = [&next](char byte) { *next++ = byte; };
  const bool littleEndian = encoding_ == TextEncoding::kUtf16LittleEndian;
  for (std::size_t index = 0; index + 1 < count; index += 2) {
    const auto first = static_cast<std::uint8_t>(raw_[index]);
    const auto second = static_cast<std::uint8_t>(raw_[index + 1]);
    const auto unit = static_cast<char16_t>(littleEndian ? first | second << 8 : first << 8 | second);
    if (const char16_t high = std::exchange(high_, u'\0'); high != 0) {
      if (IsLowSurrogate(unit)) {
        EncodeUtf8(CharacterOf(high, unit), put);
        continue;
      }
      put(kNoCharacter);
    }
    if (IsHighSurrogate(unit)) {
      high_ = unit;
    } else if (IsLowSurrogate(unit)) {
      put(kNoCharacter);
    } else {
      EncodeUtf8(unit, put);
    }
  }
  const bool isLast = count < length;
  if (isLast && std::exchange(high_, u'\0') != 0) put(kNoCharacter);
  if (count % 2 != 0) put(kNoCharacter);
  return static_cast<std::size_t>(next - room.data());
}

}  // namespace zorkanca
