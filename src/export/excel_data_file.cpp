#include "export/excel_data_file.h"

#include "export/column_names.h"
#include "export/quoting.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

[[noreturn]] void RaiseTooMuch(TextView what, std::int64_t size, TextView holder, std::int64_t limit) {
  Text description(what);
  AppendDecimal(description.append(u" "), size);
  AppendDecimal(description.append(u"; ").append(holder).append(u" "), limit);
  Raise(RuntimeError::kOverflow, std::move(description));
}

}  // namespace

void CheckSheetRows(std::int64_t rows) {
  if (rows > kSheetRowLimit) RaiseTooMuch(u"Rows of the result:", rows, u"a sheet has", kSheetRowLimit);
}

void CheckCellText(TextView text) {
  if (text.size() <= kCellTextLimit) return;
  RaiseTooMuch(u"Characters of a text:", static_cast<std::int64_t>(text.size()), u"a cell holds",
               static_cast<std::int64_t>(kCellTextLimit));
}

void ExcelDataFile::CountLines(std::int64_t lines) {
  lines_ += lines;
  CheckSheetRows(lines_);
}

void ExcelDataFile::WriteHeader(TextView captions) {
  CountLines(1);
  stream_.WriteLine(captions);
}

void ExcelDataFile::WriteBlankLine(std::int32_t cellCount) {
  CountLines(1);
  Text line;
  if (cellCount > 0) line.push_back(u' ');
  if (cellCount > 1) line.append(static_cast<std::size_t>(cellCount) - 1, kExportSeparator);
  stream_.WriteLine(line);
}

Text& ExcelDataFile::BeginCell() {
  if (lineHasCells_) record_.push_back(kExportSeparator);
  lineHasCells_ = true;
  return record_;
}

void ExcelDataFile::AddText(TextView text) {
  CheckCellText(text);
  AppendQuotedValue(BeginCell(), text);
}

void ExcelDataFile::EndLine() {
  record_.append(kCrLf);
  ++recordLines_;
  lineHasCells_ = false;
}

void ExcelDataFile::WriteRecord() {
  CountLines(recordLines_);
  stream_.Write(record_);
}

void ExcelDataFile::ClearRecord() {
  record_.clear();
  recordLines_ = 0;
  lineHasCells_ = false;
}

}  // namespace zorkanca
