#include "export/merge_data_file.h"

#include "export/column_names.h"
#include "export/quoting.h"

namespace zorkanca {

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

}  // namespace zorkanca
