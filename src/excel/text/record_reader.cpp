#include "excel/text/record_reader.h"

#include <cstring>

#include "excel/grid/cell_address.h"
#include "excel/grid/excel_errors.h"
#include "files/file_bytes.h"
#include "runtime/error.h"

namespace zorkanca::excel {

namespace {
constexpr std::size_t kWindow = 256 * 1024;
// No field may be longer; quotes may double its bytes.
constexpr std::size_t kLongestRecord = std::size_t{kLastColumn} * (2 * kLongestText + 3);

bool EndsField(const char* at, const char* end, char delimiter) {
  return *at == delimiter || (*at == '\r' && at + 1 != end && at[1] == '\n');
}

// UTF-16 units of valid UTF-8: one for each first byte of a character, two for that of four bytes.
std::size_t UnitsOf(std::string_view utf8) {
  std::size_t units = 0;
  for (const char byte : utf8) {
    units += (byte & 0xC0) != 0x80;
    units += (byte & 0xF8) == 0xF0;
  }
  return units;
}

// Copies up to the end of the field, lone carriage returns as line feeds. @return the end of the copy
char* CopyUnquoted(const char*& at, const char* end, char delimiter, char* out) {
  for (; at != end && !EndsField(at, end, delimiter); ++at) *out++ = *at == '\r' ? '\n' : *at;
  return out;
}
}  // namespace

RecordReader::RecordReader(std::shared_ptr<const OpenedText> text) : text_(std::move(text)), window_(kWindow) {}

void RecordReader::Seek(std::uint64_t offset) {
  if (offset >= windowOffset_ && offset <= windowOffset_ + filled_) {
    at_ = offset - windowOffset_;
    return;
  }
  windowOffset_ = offset;
  filled_ = at_ = 0;
}

// Moves what is left to the front and reads on; a record that fills the window makes it larger.
bool RecordReader::Refill() {
  const std::uint64_t next = windowOffset_ + filled_;
  if (next >= text_->size) return false;
  std::memmove(window_.data(), window_.data() + at_, filled_ - at_);
  filled_ -= at_;
  windowOffset_ += at_;
  at_ = 0;
  if (filled_ == window_.size()) {
    if (filled_ > kLongestRecord) RaiseExcelError(u"A line of the text file is longer than a row of a sheet.");
    window_.resize(window_.size() * 2);
  }
  const std::size_t count = ReadAt(text_->file, next, window_.data() + filled_, window_.size() - filled_);
  if (count == 0) Raise(RuntimeError::kDeviceIo);  // the file had more when it was opened
  filled_ += count;
  return true;
}

bool RecordReader::Next() {
  for (;;) {
    switch (Parse()) {
      case Outcome::kRecord:
        return true;
      case Outcome::kEnd:
        return false;
      case Outcome::kNeedMore:
        Refill();
    }
  }
}

RecordReader::Outcome RecordReader::Parse() {
  fields_.clear();
  unquotedSize_ = 0;
  const bool complete = windowOffset_ + filled_ >= text_->size;
  const char* const begin = window_.data() + at_;
  const char* const end = window_.data() + filled_;
  if (unquoted_.size() < filled_ - at_) unquoted_.resize(window_.size());
  if (begin == end) return complete ? Outcome::kEnd : Outcome::kNeedMore;
  const char* at = begin;
  for (;;) {
    const bool closed = ParseField(at, end);
    if (at == end) {
      if (!complete) return Outcome::kNeedMore;
      break;
    }
    if (!closed) return Outcome::kNeedMore;
    if (*at != text_->delimiter) break;
    ++at;
  }
  if (at < end) at += 2;  // CR LF
  if (fields_.size() == 1 && fields_[0].empty()) fields_.clear();
  length_ = static_cast<std::size_t>(at - begin);
  at_ += length_;
  return Outcome::kRecord;
}

// Leaves `at` at the delimiter or line end behind the field, or at the end of the window.
bool RecordReader::ParseField(const char*& at, const char* end) {
  const char delimiter = text_->delimiter;
  const char* start = at;
  if (at == end || *at != '"') {
    while (at != end && *at != delimiter && *at != '\r') ++at;
    if (at != end && !EndsField(at, end, delimiter)) {
      char* const field = unquoted_.data() + unquotedSize_;
      at = start;
      const char* const out = CopyUnquoted(at, end, delimiter, field);
      unquotedSize_ += static_cast<std::size_t>(out - field);
      fields_.emplace_back(field, static_cast<std::size_t>(out - field));
    } else {
      fields_.emplace_back(start, static_cast<std::size_t>(at - start));
    }
  } else {
    char* const field = unquoted_.data() + unquotedSize_;
    char* out = field;
    ++at;
    for (;; ++at) {
      if (at == end) break;
      if (*at == '"') {
        if (at + 1 != end && at[1] == '"') {
          ++at;
        } else {
          ++at;
          break;
        }
      } else if (*at == '\r') {
        *out++ = '\n';
        if (at + 1 != end && at[1] == '\n') ++at;
        continue;
      }
      *out++ = *at;
    }
    out = CopyUnquoted(at, end, delimiter, out);
    unquotedSize_ += static_cast<std::size_t>(out - field);
    fields_.emplace_back(field, static_cast<std::size_t>(out - field));
  }
  const std::string_view field = fields_.back();
  if (field.size() > kLongestText && (!text_->isUtf8 || UnitsOf(field) > kLongestText)) {
    RaiseExcelError(u"A value has more than 32767 characters, which is more than a cell holds.");
  }
  return at != end;
}

}  // namespace zorkanca::excel
