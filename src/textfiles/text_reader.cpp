#include "textfiles/text_reader.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

constexpr std::size_t kPieceSize = 64 * 1024;
constexpr char16_t kByteOrderUnit = 0xFEFF;

}  // namespace

TextReader::TextReader(std::unique_ptr<ByteSource> source, TextFormat format, const CodePage& codePage)
    : source_(std::move(source)), format_(format), codePage_(codePage), bytes_(kPieceSize, '\0') {}

void TextReader::Write(TextView) {
  Raise(RuntimeError::kBadFileName, u"The file is open for reading");
}

// Makes sure that a unit waits in piece_. False at the end of the file.
bool TextReader::FillPiece() {
  while (position_ == piece_.size() && source_) {
    const std::size_t count = source_->Read(std::span(bytes_).subspan(held_));
    piece_.clear();
    position_ = 0;
    if (count == 0) {
      if (held_ > 0 && format_ == TextFormat::kUtf8) {
        AppendUtf8(piece_, std::string_view(bytes_).substr(0, held_));
      } else if (held_ > 0) {
        piece_.push_back(static_cast<std::uint8_t>(bytes_[0]));  // half a unit: not lost
      }
      held_ = 0;
      return !piece_.empty();
    }
    Decode(std::string_view(bytes_).substr(0, held_ + count));
  }
  return position_ < piece_.size();
}

void TextReader::Decode(std::string_view bytes) {
  if (format_ == TextFormat::kAnsi) {
    codePage_.AppendDecoded(piece_, bytes);
    return;
  }
  if (format_ == TextFormat::kUtf8) return DecodeUtf8(bytes);
  const std::size_t units = bytes.size() / 2;
  piece_.resize(units);
  std::memcpy(piece_.data(), bytes.data(), units * 2);
  held_ = bytes.size() % 2;
  if (held_ > 0) bytes_[0] = bytes.back();
  if (units > 0 && std::exchange(atStart_, false) && piece_.front() == kByteOrderUnit) position_ = 1;
}

// A character that the piece has only begun waits for the next one.
void TextReader::DecodeUtf8(std::string_view bytes) {
  std::size_t end = bytes.size();
  for (std::size_t back = 1; back <= 3 && back <= bytes.size(); ++back) {
    const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
    if (byte < 0x80) break;
    if (byte < 0xC0) continue;
    const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
    if (length > back) end = bytes.size() - back;
    break;
  }
  AppendUtf8(piece_, bytes.substr(0, end));
  held_ = bytes.size() - end;
  std::copy(bytes.begin() + static_cast<std::ptrdiff_t>(end), bytes.end(), bytes_.begin());
  if (!piece_.empty() && std::exchange(atStart_, false) && piece_.front() == kByteOrderUnit) position_ = 1;
}

Text TextReader::ReadLine() {
  if (!FillPiece()) Raise(RuntimeError::kPastEndOfFile);
  Text line;
  while (FillPiece()) {
    const std::size_t end = piece_.find(u'\n', position_);
    if (end == Text::npos) {
      line.append(piece_, position_);
      position_ = piece_.size();
      continue;
    }
    line.append(piece_, position_, end - position_);
    position_ = end + 1;
    if (line.ends_with(u'\r')) line.pop_back();
    break;
  }
  return line;
}

Text TextReader::Read(std::int32_t characters) {
  if (characters < 1) Raise(RuntimeError::kInvalidCall);
  if (!FillPiece()) Raise(RuntimeError::kPastEndOfFile);
  Text text;
  const auto wanted = static_cast<std::size_t>(characters);
  while (text.size() < wanted && FillPiece()) {
    const std::size_t count = std::min(wanted - text.size(), piece_.size() - position_);
    text.append(piece_, position_, count);
    position_ += count;
  }
  return text;
}

void TextReader::Close() {
  source_.reset();
  piece_.clear();
  position_ = 0;
}

Text TextReader::ReadAll() {
  Text text;
  while (FillPiece()) {
    text.append(piece_, position_);
    position_ = piece_.size();
  }
  return text;
}

}  // namespace zorkanca
