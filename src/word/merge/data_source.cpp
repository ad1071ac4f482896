#include "word/merge/data_source.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "files/system_error.h"
#include "runtime/error.h"
#include "runtime/utf8.h"
#include "word/merge/delimited_parser.h"
#include "word/xml/word_errors.h"

namespace zorkanca::word {

namespace {

constexpr std::size_t kPiece = 256 * 1024;

enum class Encoding { kUnknown, kAnsi, kUtf8, kUtf16Little, kUtf16Big };

// Turns pieces of bytes into units; what a piece leaves unfinished waits for the next one.
class Decoder {
 public:
  explicit Decoder(const CodePage& codePage) : codePage_(codePage) {}

  void Decode(std::string_view piece, bool last, Text& units) {
    bytes_.append(piece);
    if (encoding_ == Encoding::kUnknown) {
      if (bytes_.size() < 3 && !last) return;
      Detect();
    }
    const std::size_t taken = encoding_ == Encoding::kAnsi   ? DecodeAnsi(units)
                              : encoding_ == Encoding::kUtf8 ? DecodeUtf8(last, units)
                                                             : DecodeUtf16(units);
    bytes_.erase(0, taken);
  }

 private:
  void Detect() {
    const auto skip = [&](std::string_view mark, Encoding encoding) {
      if (encoding_ != Encoding::kUnknown || !bytes_.starts_with(mark)) return;
      bytes_.erase(0, mark.size());
      encoding_ = encoding;
    };
    skip("\xFF\xFE", Encoding::kUtf16Little);
    skip("\xFE\xFF", Encoding::kUtf16Big);
    skip("\xEF\xBB\xBF", Encoding::kUtf8);
    skip("", Encoding::kAnsi);
  }

  std::size_t DecodeAnsi(Text& units) {
    codePage_.AppendDecoded(units, bytes_);
    return bytes_.size();
  }

  std::size_t DecodeUtf8(bool last, Text& units) {
    std::size_t end = bytes_.size();
    if (!last) end = bytes_.rfind('\n') + 1;  // whole lines are whole characters; npos + 1 is none of them
    AppendUtf8(units, std::string_view(bytes_).substr(0, end));
    return end;
  }

  std::size_t DecodeUtf16(Text& units) {
    const std::size_t low = encoding_ == Encoding::kUtf16Little ? 0 : 1;
    std::size_t i = 0;
    for (; i + 1 < bytes_.size(); i += 2) {
      const auto byte = [&](std::size_t at) { return static_cast<unsigned>(static_cast<unsigned char>(bytes_[at])); };
      units += static_cast<char16_t>(byte(i + low) | byte(i + 1 - low) << 8);
    }
    return i;
  }

  const CodePage& codePage_;
  Encoding encoding_ = Encoding::kUnknown;
  std::string bytes_;
};

FileDescriptor OpenSource(const std::string& path) {
  FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (file) return file;
  if (errno == ENOENT || errno == ENOTDIR) {
    RaiseWordError(WordError::kFileNotFound, u"The data source " + FromUtf8(path) + u" could not be found.");
  }
  RaisePathError(errno, path);
}

}  // namespace

DataSource::DataSource(const std::string& path, const CodePage& codePage) : path_(path) {
  try {
    Read(codePage);
  } catch (const Error& error) {  // what is wrong inside does not name the file
    constexpr TextView kStart = u"The data source ";
    const Text& description = error.description();
    const Text named = FromUtf8(path);
    if (!description.starts_with(kStart) || description.find(named) != Text::npos) throw;
    throw Error(error.number(), error.source(), Text(kStart) + named + u" " + description.substr(kStart.size()));
  }
}

void DataSource::Read(const CodePage& codePage) {
  const std::string& path = path_;
  const FileDescriptor file = OpenSource(path);
  Decoder decoder(codePage);
  DelimitedParser parser(columns_, records_);
  std::string piece(kPiece, '\0');
  Text units;
  for (bool last = false; !last;) {
    const ssize_t count = Uninterrupted([&] { return read(file.get(), piece.data(), piece.size()); });
    if (count < 0) RaisePathError(errno, path);
    last = count == 0;
    units.clear();
    decoder.Decode(std::string_view(piece).substr(0, static_cast<std::size_t>(count)), last, units);
    // No text has one: this is a file of another kind, or UTF-16 that does not say so.
    if (units.find(u'\0') != Text::npos) {
      Raise(RuntimeError::kInvalidCall, u"The data source " + FromUtf8(path) + u" is no text file.");
    }
    parser.Feed(units);
  }
  parser.Finish();
}

std::ptrdiff_t DataSource::ColumnOf(TextView fieldName) const {
  const auto find = [&](const auto& matches) -> std::ptrdiff_t {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      if (matches(columns_[i])) return static_cast<std::ptrdiff_t>(i);
    }
    return -1;
  };
  std::ptrdiff_t column = find([&](const Text& name) { return name == fieldName; });
  if (column < 0) column = find([&](const Text& name) { return EqualsIgnoringCase(name, fieldName); });
  if (column < 0) {
    column = find([&](const Text& name) { return EqualsIgnoringCase(Replace(name, u" ", u"_"), fieldName); });
  }
  return column;
}

}  // namespace zorkanca::word
