#include "textfiles/text_writer.h"

#include "runtime/error.h"
#include "runtime/utf8.h"
#include "textfiles/utf16.h"

namespace zorkanca {

namespace {

constexpr std::size_t kBufferSize = 64 * 1024;  // bytes for one call of the system
constexpr std::size_t kPieceSize = 16 * 1024;   // units encoded at a time, so that a long text needs no larger buffer

}  // namespace

TextWriter::TextWriter(std::unique_ptr<ByteSink> sink, TextFormat format, const CodePage& codePage)
    : sink_(std::move(sink)), format_(format), codePage_(codePage) {
  buffer_.reserve(kBufferSize + kPieceSize * 3);  // a unit is three bytes of UTF-8 at the most
}

void TextWriter::Write(TextView text) {
  if (!sink_) Raise(RuntimeError::kBadFileName);
  while (!text.empty()) {
    TextView piece = text.substr(0, kPieceSize);
    // The two halves of a character stay together.
    if (piece.size() < text.size() && (piece.back() & 0xFC00) == 0xD800) piece.remove_suffix(1);
    Encode(piece);
    text.remove_prefix(piece.size());
    if (buffer_.size() >= kBufferSize) Flush();
  }
}

void TextWriter::Encode(TextView piece) {
  switch (format_) {
    case TextFormat::kAnsi:
      lost_ += static_cast<std::int64_t>(codePage_.AppendEncoded(buffer_, piece));
      break;
    case TextFormat::kUnicode:
      AppendUtf16(buffer_, piece);
      break;
    case TextFormat::kUtf8:
      AppendAsUtf8(buffer_, piece);
      break;
  }
}

void TextWriter::WriteLine(TextView text) {
  Write(text);
  Write(kCrLf);
}

Text TextWriter::ReadLine() {
  Raise(RuntimeError::kBadFileName, u"The file is open for writing");
}

Text TextWriter::ReadAll() {
  return ReadLine();
}

Text TextWriter::Read(std::int32_t) {
  return ReadLine();
}

void TextWriter::Flush() {
  sink_->Write(buffer_);
  buffer_.clear();
}

void TextWriter::Close() {
  if (!sink_) return;
  const std::unique_ptr<ByteSink> sink = std::move(sink_);
  sink->Write(buffer_);
  sink->Commit();
}

}  // namespace zorkanca
