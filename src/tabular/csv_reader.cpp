#include "tabular/csv_reader.h"

#include <cstring>
#include <utility>

#include "runtime/utf8.h"
#include "runtime/utf8_check.h"
#include "tabular/csv_separator.h"
#include "tabular/file_fault.h"
#include "tabular/file_limits.h"

namespace zorkanca {

namespace {

Text ReasonOf(CsvFault fault) {
  switch (fault) {
    case CsvFault::kOpenQuote:
      return u"the quotation mark that opens the field is never closed";
    case CsvFault::kTextBehindQuote:
      return u"text follows the closing quotation mark";
    case CsvFault::kQuoteInside:
      return u"a quotation mark stands inside a field that does not begin with one; such a field is written in "
             u"quotation "
             u"marks, those inside it twice";
    default:
      return u"a carriage return stands without a line feed outside of quotation marks";
  }
}

}  // namespace

CsvReader::CsvReader(Utf8Input input, std::optional<char> separator)
    : input_(std::move(input)), window_(input_), scanner_(separator ? *separator : SeparatorOfStart()) {
  ReadNames();
}

char CsvReader::SeparatorOfStart() {
  window_.Grow();
  window_.Grow();  // of a short file, to know that nothing follows
  return FindCsvSeparator(window_.text(), window_.isComplete());
}

void CsvReader::ReadNames() {
  if (!ScanRecord()) FailAt(1, 0, u"the file is empty: its first line names the columns");
  std::vector<std::string> names;
  for (const CsvField& field : scanner_.fields()) {
    names.emplace_back(Content(field));
    if (names.size() > kMostColumns) FailAt(line_, names.size(), MostColumnsText());
    if (names.back().size() > kLongestColumnName) FailAt(line_, names.size(), LongestColumnNameText());
  }
  names_.Add(names);
  isBehindNames_ = true;
}

void CsvReader::Restart() {
  window_.Restart();
  scanned_ = 0;
  nextLine_ = 1;
  isBehindNames_ = false;
  ScanRecord();
  isBehindNames_ = true;
}

void CsvReader::FailAt(std::int64_t line, std::size_t field, const Text& reason) const {
  const FilePlace place{.line = line, .unit = field == 0 ? u"" : u"field", .number = static_cast<std::int64_t>(field)};
  throw FaultAt(kUnexpectedFormat, u"CSV", input_.path(), place, reason);
}

Error CsvReader::Fault(std::size_t column, std::int32_t number, const Text& reason) const {
  const FilePlace place{.line = line_, .unit = u"field", .number = static_cast<std::int64_t>(column + 1)};
  return FaultAt(number, u"CSV", input_.path(), place, reason);
}

void CsvReader::FailScan() const {
  const bool isOpen = scanner_.fault() == CsvFault::kOpenQuote;
  FailAt(isOpen ? line_ + scanner_.lineEnds() : line_, scanner_.fields().size() + 1, ReasonOf(scanner_.fault()));
}

bool CsvReader::IsBlankLine() const {
  const CsvField& first = scanner_.fields().front();
  return scanner_.fields().size() == 1 && first.raw.empty() && !first.isQuoted;
}

// The next record that is no blank line; behind the names of a single column such a line is a record, too.
// @return false at the end
bool CsvReader::ScanRecord() {
  for (;;) {
    window_.Advance(std::exchange(scanned_, 0));
    line_ = nextLine_;
    CsvScan scan = CsvScan::kIncomplete;
    for (;;) {
      if (window_.text().empty() && window_.isComplete()) return false;
      if (!window_.text().empty()) scan = scanner_.Scan(window_.text(), window_.isComplete());
      if (scan != CsvScan::kIncomplete) break;
      if (!window_.Grow()) FailAt(line_, scanner_.fields().size() + 1, LongestRecordText());
    }
    if (scan == CsvScan::kFault) FailScan();
    scanned_ = scanner_.length();
    nextLine_ = line_ + scanner_.lineEnds() + 1;
    const bool isSingle = isBehindNames_ && names_.names().size() == 1;
    if (IsBlankLine() && !isSingle) continue;
    RequireCharacters(window_.text().substr(0, scanned_));
    return true;
  }
}

// Nothing but characters of UTF-8, and no NUL among them.
void CsvReader::RequireCharacters(std::string_view record) const {
  const bool hasNul = std::memchr(record.data(), 0, record.size()) != nullptr;
  if (!hasNul && (IsAscii(record) || ValidUtf8Length(record) == record.size())) return;
  std::size_t number = 0;
  for (const CsvField& field : scanner_.fields()) {
    ++number;
    if (field.raw.find('\0') != std::string_view::npos) FailAt(line_, number, NulText(input_.encoding()));
    if (ValidUtf8Length(field.raw) < field.raw.size()) FailAt(line_, number, NoCharacterText(input_.encoding()));
  }
}

// The text of a field without the marks that stand for others.
std::string_view CsvReader::Content(const CsvField& field) {
  if (!field.hasDoubled) return field.raw;
  const std::size_t start = unescaped_.size();
  for (std::string_view rest = field.raw; !rest.empty();) {
    const std::size_t mark = rest.find('"');
    if (mark == std::string_view::npos) {
      unescaped_.append(rest);
      break;
    }
    unescaped_.append(rest.substr(0, mark + 1));
    rest.remove_prefix(mark + 2);
  }
  return std::string_view(unescaped_).substr(start);
}

bool CsvReader::Next(std::vector<Cell>& cells) {
  if (!ScanRecord()) return false;
  const std::vector<CsvField>& fields = scanner_.fields();
  const std::size_t count = names_.names().size();
  if (fields.size() > count) {
    FailAt(line_, count + 1,
           u"the record has more fields than the first line, which names " +
               DecimalText(static_cast<std::int64_t>(count)));
  }
  unescaped_.clear();
  unescaped_.reserve(scanned_);  // so that texts in it stay where they are
  cells.resize(count);
  for (std::size_t index = 0; index < fields.size(); ++index) {
    const CsvField& field = fields[index];
    const bool isNull = field.raw.empty() && !field.isQuoted;
    cells[index] = isNull ? Cell() : Cell{.kind = CellKind::kUntyped, .text = Content(field)};
  }
  for (std::size_t index = fields.size(); index < count; ++index) cells[index] = Cell();
  return true;
}

}  // namespace zorkanca
