#include "word/merge/merged_copies.h"

namespace zorkanca::word {

MergedCopies::MergedCopies(std::shared_ptr<const DataSource> source, Program program, std::size_t firstRecord,
                           MergeInput input)
    : source_(std::move(source)),
      program_(std::move(program)),
      firstRecord_(firstRecord),
      endRecord_(input.endRecord),
      runner_(std::move(input)) {
  if (!TraitsOf(program_).movesRecords) {
    count_ = endRecord_ - firstRecord_;
    return;
  }
  for (std::size_t record = firstRecord_; record < endRecord_;) {
    const CopyEnd end = runner_.Skim(program_, {starts_.size(), record, false});
    if (!end.skipped) starts_.push_back(record);
    record = end.nextRecord;
  }
  count_ = starts_.size();
}

CopyStart MergedCopies::StartOf(std::size_t copy) const {
  return {copy, starts_.empty() ? firstRecord_ + copy : starts_[copy], copy + 1 == count_};
}

void MergedCopies::AppendText(std::size_t copy, Text& units) const {
  runner_.AppendText(program_, StartOf(copy), units);
}

void MergedCopies::AppendXml(std::size_t copy, std::string& xml) const {
  AppendXml(program_, copy, xml);
}

void MergedCopies::AppendXml(const Program& program, std::size_t copy, std::string& xml) const {
  runner_.AppendXml(program, StartOf(copy), xml);
}

void MergedCopies::UseHeaders(const HeaderIds& headers) {
  runner_.UseHeaders(headers);
}

}  // namespace zorkanca::word
