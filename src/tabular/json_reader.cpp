#include "tabular/json_reader.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "runtime/utf8_check.h"
#include "tabular/file_limits.h"
#include "tabular/json_extent.h"

namespace zorkanca {

JsonReader::JsonReader(Utf8Input input) : input_(std::move(input)), window_(input_), parser_(*this) {}

void JsonReader::Restart() {
  window_.Restart();
  form_ = Form::kUnknown;
  isFirst_ = true;
  line_ = character_ = 1;
  scanned_ = 0;
}

FilePlace JsonReader::PlaceOf(std::size_t offset) const {
  std::string_view before = window_.text().substr(0, offset);
  std::int64_t line = line_;
  std::int64_t character = character_;
  for (const char byte : before) {
    if (byte == '\n') {
      ++line;
      character = 1;
    } else {
      character += (byte & 0xC0) != 0x80;
    }
  }
  return {.line = line, .unit = u"column", .number = character};
}

void JsonReader::Skip(std::size_t count) {
  const FilePlace place = PlaceOf(count);
  line_ = place.line;
  character_ = place.number;
  window_.Advance(count);
}

Error JsonReader::FaultIn(std::size_t offset, const Text& reason) const {
  return FaultAt(kUnexpectedFormat, u"JSON", input_.path(), PlaceOf(offset), reason);
}

Error JsonReader::Fault(std::size_t column, std::int32_t number, const Text& reason) const {
  return FaultAt(number, u"JSON", input_.path(), PlaceOf(offsets_[column]), reason);
}

// The next character that is no blank, at which the window begins then; -1 at the end.
int JsonReader::Peek() {
  for (;;) {
    const std::string_view text = window_.text();
    const std::size_t blanks = std::min(text.find_first_not_of(" \t\r\n"), text.size());
    Skip(blanks);
    if (blanks < text.size()) return static_cast<unsigned char>(text[blanks]);
    if (window_.isComplete()) return -1;
    window_.Grow();
  }
}

bool JsonReader::GoToRecordOfArray() {
  if (isFirst_ && Peek() == ']') {
    Skip(1);
  } else if (isFirst_ || Peek() == ',') {
    if (!isFirst_) Skip(1);
    if (Peek() != '{') FailAt(0, u"an object is expected, for every item of the array is a record");
    return true;
  } else if (Peek() == ']') {
    Skip(1);
  } else {
    FailAt(0, Peek() < 0 ? u"the file ends inside the array" : u"\",\" or \"]\" is expected");
  }
  if (Peek() >= 0) FailAt(0, u"something follows the array");
  return false;
}

bool JsonReader::GoToRecord() {
  if (form_ == Form::kUnknown) {
    const int first = Peek();
    if (first != '[' && first != '{') FailAt(0, u"an array of objects, or objects one a line, are expected");
    form_ = first == '[' ? Form::kArray : Form::kLines;
    if (form_ == Form::kArray) Skip(1);
  }
  if (form_ == Form::kArray) return GoToRecordOfArray();
  const int next = Peek();
  if (next >= 0 && next != '{') FailAt(0, u"an object is expected");
  return next >= 0;
}

// The text of the object that the window begins with, or all of the file when it has no end: the parser knows why.
std::string_view JsonReader::Object() {
  JsonExtent extent;
  std::optional<std::size_t> length;
  while (!(length = extent.Find(window_.text())) && !window_.isComplete()) {
    if (!window_.Grow()) FailAt(0, LongestRecordText());
  }
  const std::string_view object = window_.text().substr(0, length.value_or(window_.text().size()));
  if (const std::size_t valid = ValidUtf8Length(object); valid < object.size()) {
    FailAt(valid, NoCharacterText(input_.encoding()));
  }
  return object;
}

// @param expected  the column of a file whose objects all have the same names in the same order
std::size_t JsonReader::ColumnOf(const JsonMember& member, std::size_t expected) {
  if (expected < keys_.size() && keys_[expected] == member.name) return expected;
  const auto known = columnsByKey_.find(member.name);
  if (known != columnsByKey_.end()) return known->second;
  if (keys_.size() == kMostColumns) FailAt(member.offset, MostColumnsText());
  if (member.name.size() > kLongestColumnName) FailAt(member.offset, LongestColumnNameText());
  const std::size_t column = keys_.size();
  keys_.emplace_back(member.name);
  columnsByKey_.emplace(member.name, column);
  names_.Add(keys_.back());
  lastRecords_.push_back(0);
  offsets_.push_back(0);
  return column;
}

bool JsonReader::Next(std::vector<Cell>& cells) {
  Skip(std::exchange(scanned_, 0));
  if (!GoToRecord()) {
    if (keys_.empty()) FailAt(0, u"there is no object with a value, so that the table would have no columns");
    return false;
  }
  isFirst_ = false;
  const std::string_view object = Object();
  ++record_;
  cells.assign(keys_.size(), Cell());
  std::size_t expected = 0;
  for (const JsonMember& member : parser_.Parse(object)) {
    const std::size_t column = ColumnOf(member, expected);
    if (cells.size() <= column) cells.resize(column + 1);
    if (std::exchange(lastRecords_[column], record_) == record_) {
      FailAt(member.offset, u"the object has this name twice");
    }
    offsets_[column] = member.offset;
    cells[column] = member.value;
    expected = column + 1;
  }
  scanned_ = object.size();
  return true;
}

}  // namespace zorkanca
