#include "export/merge_data_file.h"

#include <string>

#include "export/column_names.h"
#include "export/quoting.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr std::int32_t kPieceSize = 64 * 1024;  // characters
constexpr std::int32_t kRecognisedFrom = 4096;  // characters of a file that show its encoding

}  // namespace

Text LineBreakPlaceholder(const CodePage& codePage) {
  return {codePage.Decode(215), codePage.Decode(182)};
}

MergeDataFile::MergeDataFile(TextStream& stream, LineBreaks lineBreaks, const CodePage& codePage)
    : stream_(stream), lineBreaks_(lineBreaks), placeholder_(LineBreakPlaceholder(codePage)) {}

void MergeDataFile::WriteBlankRecords(std::int16_t count, std::int32_t valueCount) {
  if (valueCount < 1) return;
  const Text line(static_cast<std::size_t>(valueCount) - 1, kExportSeparator);
  for (; count > 0; --count) stream_.WriteLine(line);
}

void MergeDataFile::AppendSeparator() {
  if (hasValues_) line_.push_back(kExportSeparator);
  hasValues_ = true;
}

void MergeDataFile::AppendValue(TextView value) {
  AppendSeparator();
  const std::size_t start = line_.size();
  AppendQuotedValue(line_, value);
  if (lineBreaks_ == LineBreaks::kPlaceholders) ReplaceLineBreaks(start);
}

void MergeDataFile::ReplaceLineBreaks(std::size_t start) {
  // A CR LF and its placeholder are both two units long.
  for (std::size_t at = line_.find(kCrLf, start); at != Text::npos; at = line_.find(kCrLf, at + kCrLf.size())) {
    line_.replace(at, kCrLf.size(), placeholder_);
  }
}

void MergeDataFile::AppendBarCode(TextView code) {
  AppendSeparator();
  const bool encloses = code.find(kExportSeparator) != TextView::npos;
  if (encloses) line_.push_back(u'"');
  const std::size_t quote = code.find(u'"');
  if (quote != TextView::npos) line_.append(code.substr(0, quote)).push_back(u'"');
  line_.append(quote == TextView::npos ? code : code.substr(quote));
  if (encloses) line_.push_back(u'"');
}

void MergeDataFile::EndRecord(std::int32_t copies) {
  line_.append(kCrLf);
  for (; copies > 0; --copies) stream_.Write(line_);
  line_.clear();
  hasValues_ = false;
}

MergeDataFile OpenMergeDataFile(ExportSession& session, Text& rsSourceFile, bool multiDocument) {
  const ExportContext& context = session.context();
  rsSourceFile = OutputPathInWorkFolder(context, rsSourceFile);
  return MergeDataFile(session.OpenOutput(rsSourceFile, TextFormat::kUnicode),
                       multiDocument ? MergeDataFile::LineBreaks::kPlaceholders : MergeDataFile::LineBreaks::kKept,
                       *context.platform.locale.codePage);
}

void RequireUnicode(const Platform& platform, const Text& path) {
  const auto stream = platform.files.OpenTextFile(path, IoMode::kForReading, /*create=*/false, TextFormat::kAnsi);
  if (stream->AtEndOfStream()) return;
  std::string bytes;
  platform.locale.codePage->AppendEncoded(bytes, stream->Read(kRecognisedFrom));
  const std::size_t zero = bytes.find('\0');  // the upper half of a Latin letter, a separator or a line end
  if (bytes.starts_with("\xFF\xFE") || (zero != std::string::npos && zero % 2 == 1)) return;
  Raise(RuntimeError::kTypeMismatch, u"Soubor \"" + path + u"\" není text v kódování Unicode (UTF-16).");
}

MergeDataLines::MergeDataLines(FileSystem& files, const Text& path)
    : stream_(files.OpenTextFile(path, IoMode::kForReading, /*create=*/false, TextFormat::kUnicode)) {}

bool MergeDataLines::ReadPiece() {
  if (stream_->AtEndOfStream()) return false;
  piece_.erase(0, position_);
  position_ = 0;
  piece_.append(stream_->Read(kPieceSize));
  return true;
}

bool MergeDataLines::Next(Text& line) {
  std::size_t searched = 0;  // characters of the line that hold no end
  for (;;) {
    const std::size_t end = piece_.find(lineEnd_.empty() ? u"\n" : lineEnd_, position_ + searched);
    if (end != Text::npos) {
      if (lineEnd_.empty()) {
        const bool crLf = TextView(piece_).substr(0, end).ends_with(u'\r');
        lineEnd_ = crLf ? kCrLf : kCrLf.substr(1);
        if (crLf) continue;
      }
      line.assign(piece_, position_, end - position_);
      position_ = end + lineEnd_.size();
      return true;
    }
    const std::size_t held = piece_.size() - position_;
    if (!ReadPiece()) {
      line.assign(piece_, position_);
      position_ = piece_.size();
      return held > 0;
    }
    searched = held > 0 ? held - 1 : 0;  // a CR at the end may be half of one
  }
}

}  // namespace zorkanca
