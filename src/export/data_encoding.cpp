#include "export/data_encoding.h"

#include <memory>
#include <optional>
#include <string>

#include "platform/paths.h"
#include "runtime/code_page.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

constexpr std::int32_t kPiece = 64 * 1024;  // characters

// The bytes of a file: the ANSI page takes each one there and back.
class FileBytes {
 public:
  FileBytes(const ExportContext& context, const Text& path)
      : page_(*context.platform.locale.codePage),
        stream_(context.platform.files.OpenTextFile(path, IoMode::kForReading, /*create=*/false, TextFormat::kAnsi)) {}

  // Appends the next piece. False at the end.
  bool Append(std::string& bytes) {
    if (stream_->AtEndOfStream()) return false;
    page_.AppendEncoded(bytes, stream_->Read(kPiece));
    return true;
  }

 private:
  const CodePage& page_;
  std::unique_ptr<TextStream> stream_;
};

std::optional<TextFormat> FormatOfMark(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE")) return TextFormat::kUnicode;
  if (bytes.starts_with("\xEF\xBB\xBF")) return TextFormat::kUtf8;
  return std::nullopt;
}

enum class Utf8 { kNone, kAscii, kLetters };

// Whole characters of valid UTF-8, some of them beyond ASCII. What a piece has only begun counts for nothing.
Utf8 Utf8Of(FileBytes& file, std::string bytes) {
  bool beyondAscii = false;
  do {
    std::size_t end = bytes.rfind('\n');  // whole lines are whole characters
    end = end == std::string::npos ? 0 : end + 1;
    const std::string_view lines = std::string_view(bytes).substr(0, end);
    Text ignored;
    if (!AppendUtf8(ignored, lines)) return Utf8::kNone;
    beyondAscii = beyondAscii || ignored.size() < lines.size();
    bytes.erase(0, end);
  } while (file.Append(bytes));
  Text rest;
  if (!AppendUtf8(rest, bytes)) return Utf8::kNone;
  return beyondAscii || rest.size() < bytes.size() ? Utf8::kLetters : Utf8::kAscii;
}

[[noreturn]] void RaiseOtherEncoding(TextView reason, const Text& path) {
  Raise(RuntimeError::kTypeMismatch, Text(reason).append(u": ").append(path));
}

}  // namespace

TextFormat EncodingOfFile(const ExportContext& context, const Text& path) {
  const DataEncoding preferred = context.preferences.dataEncoding;
  if (preferred == DataEncoding::kUtf8) return TextFormat::kUtf8;
  if (preferred == DataEncoding::kUtf16) return TextFormat::kUnicode;
  const bool somebodyListens = context.report && context.report->HasListener();
  if (preferred == DataEncoding::kAnsi && !somebodyListens) return TextFormat::kAnsi;
  FileBytes file(context, path);
  std::string bytes;
  file.Append(bytes);
  if (preferred == DataEncoding::kByMark) {
    if (const std::optional<TextFormat> marked = FormatOfMark(bytes)) return *marked;
    if (Utf8Of(file, std::move(bytes)) == Utf8::kLetters) {
      context.Warn(Text(u"The file is read as ANSI, but it looks like UTF-8; --encoding utf-8 reads it so: ") + path);
    }
  }
  return TextFormat::kAnsi;
}

void RequireEncoding(const ExportContext& context, const Text& path, TextFormat format) {
  if (!context.report || !context.report->HasListener()) return;
  FileBytes file(context, path);
  std::string bytes;
  file.Append(bytes);
  if (bytes.empty()) return;
  const bool hasNul = bytes.find('\0') != std::string::npos;  // every line end of UTF-16 has, and no other text
  if (format == TextFormat::kUnicode) {
    if (!hasNul) RaiseOtherEncoding(u"The file is read as UTF-16, and is none", path);
  } else if (bytes.starts_with("\xFE\xFF")) {
    RaiseOtherEncoding(u"The file is UTF-16 with the most significant byte first, which is not read", path);
  } else if (hasNul) {
    RaiseOtherEncoding(u"The file holds NUL characters: no text, or UTF-16, which --encoding utf-16 reads", path);
  } else if (format == TextFormat::kUtf8 && Utf8Of(file, std::move(bytes)) == Utf8::kNone) {
    RaiseOtherEncoding(u"The file is read as UTF-8, and is none; --encoding ansi reads it by the ANSI page", path);
  }
}

Text MergeableFile(const ExportContext& context, const Text& path, bool oneLineEach) {
  FileSystem& files = context.platform.files;
  const bool somebodyListens = context.report && context.report->HasListener();
  if (context.preferences.dataEncoding == DataEncoding::kAnsi && !(oneLineEach && somebodyListens)) return path;
  if (!files.FileExists(path)) return path;  // the merge says so in its own words
  const TextFormat format = EncodingOfFile(context, path);
  std::string start;
  FileBytes(context, path).Append(start);
  const std::optional<TextFormat> marked = FormatOfMark(start);
  const bool isReadSo = marked ? marked == format : format == TextFormat::kAnsi;
  if (marked == TextFormat::kUnicode || (!oneLineEach && isReadSo)) return path;
  RequireEncoding(context, path, format);
  const Text copy = BuildPath(files, context.workFolder, files.GetTempName());
  const auto from = files.OpenTextFile(path, IoMode::kForReading, /*create=*/false, format);
  const auto to = files.OpenTextFile(copy, IoMode::kForWriting, /*create=*/true, TextFormat::kUnicode);
  while (!from->AtEndOfStream()) to->Write(from->Read(kPiece));
  to->Close();
  return copy;
}

}  // namespace zorkanca
