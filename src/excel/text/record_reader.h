// Delimited text files, taken apart record by record over a small window of the file.
//
// A field that begins with a double quote ends at the next one that is not doubled; what follows up to the delimiter
// belongs to it too. Inside quotes delimiters are text and line ends are line feeds. Elsewhere a quote is a character.
// Records end with CR LF; a lone CR or LF belongs to its field, as a line feed, for the exports write such values
// without quotes.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "files/file_descriptor.h"

namespace zorkanca::excel {

/// A text file that stays open; readers of it are independent.
struct OpenedText {
  std::string path;
  FileDescriptor file;
  std::uint64_t size = 0;
  char delimiter = ';';
  bool isUtf8 = false;  ///< else each byte is a character
};

class RecordReader {
 public:
  explicit RecordReader(std::shared_ptr<const OpenedText> text);

  /// Goes to a place of the file where a record begins.
  void Seek(std::uint64_t offset);
  /// Where the next record begins.
  std::uint64_t offset() const { return windowOffset_ + at_; }
  /// Reads the next record. Errors: 57 when the file cannot be read or has become shorter; 1004 for a field beyond the
  /// longest text of a cell.
  /// @return false at the end of the file
  bool Next();
  /// The fields of the record, without quotes; valid until the next call. An empty line has none.
  const std::vector<std::string_view>& fields() const { return fields_; }
  /// Bytes of the record with its line end.
  std::size_t length() const { return length_; }

 private:
  enum class Outcome { kRecord, kNeedMore, kEnd };

  Outcome Parse();
  bool ParseField(const char*& at, const char* end);
  bool Refill();

  std::shared_ptr<const OpenedText> text_;
  std::vector<char> window_;
  std::uint64_t windowOffset_ = 0;  // of the window in the file
  std::size_t filled_ = 0;
  std::size_t at_ = 0;
  std::vector<std::string_view> fields_;
  std::vector<char> unquoted_;  // fields whose quotes or line ends had to change
  std::size_t unquotedSize_ = 0;
  std::size_t length_ = 0;
};

}  // namespace zorkanca::excel
