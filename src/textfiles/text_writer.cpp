#include "textfiles/text_writer.h"

#include "runtime/error.h"
#include "textfiles/utf16.h"

namespace zorkanca {

namespace {

constexpr std::size_t kBufferSize = 64 * 1024;  // bytes for one call of the system
constexpr std::size_t kPieceSize = 16 * 1024;   // units encoded at a time, so that a long text needs no larger buffer

}  // namespace

TextWriter::TextWriter(std::unique_ptr<ByteSink> sink, TextFormat format, const CodePage& codePage)
    : sink_(std::move(sink)), format_(format), codePage_(codePage) {
  buffer_.reserve(kBufferSize + kPieceSize * sizeof(char16_t));
}

void TextWriter::Write(TextView text) {
  if (!sink_) Raise(RuntimeError::kBadFileName);
  while (!text.empty()) {
    const TextView piece = text.substr(0, kPieceSize);
    if (format_ == TextFormat::kAnsi) {
      codePage_.AppendEncoded(buffer_, piece);
    } else {
      AppendUtf16(buffer_, piece);
    }
    text.remove_prefix(piece.size());
    if (buffer_.size() >= kBufferSize) Flush();
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
