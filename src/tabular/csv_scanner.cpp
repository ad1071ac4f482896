#include "tabular/csv_scanner.h"

#include <algorithm>
#include <cstring>

namespace zorkanca {

CsvScanner::CsvScanner(char separator) : separator_(separator) {
  for (const char byte : {separator, '"', '\r', '\n'}) endsPlain_[static_cast<std::uint8_t>(byte)] = true;
}

CsvScanner::Step CsvScanner::Fail(CsvFault fault) {
  fault_ = fault;
  return Step::kFault;
}

CsvScan CsvScanner::Scan(std::string_view text, bool isComplete) {
  isComplete_ = isComplete;
  fields_.clear();
  lineEnds_ = 0;
  fault_ = CsvFault::kNone;
  const char* next = text.data();
  const char* const end = next + text.size();
  for (;;) {
    const bool isQuoted = next != end && *next == '"';
    switch (isQuoted ? ScanQuoted(next, end) : ScanPlain(next, end)) {
      case Step::kSeparator:
        break;
      case Step::kLineEnd:
        length_ = static_cast<std::size_t>(next - text.data());
        return CsvScan::kRecord;
      case Step::kIncomplete:
        return CsvScan::kIncomplete;
      case Step::kFault:
        return CsvScan::kFault;
    }
  }
}

// From the opening mark to behind what ends the field.
CsvScanner::Step CsvScanner::ScanQuoted(const char*& next, const char* end) {
  const char* const start = next + 1;
  bool hasDoubled = false;
  for (const char* from = start;;) {
    const auto* const mark =
        from == end ? nullptr : static_cast<const char*>(std::memchr(from, '"', static_cast<std::size_t>(end - from)));
    if (mark == nullptr) return isComplete_ ? Fail(CsvFault::kOpenQuote) : Step::kIncomplete;
    if (mark + 1 == end && !isComplete_) return Step::kIncomplete;
    if (mark + 1 == end || mark[1] != '"') {
      next = mark + 1;
      const Step step = ScanEnd(next, end);
      if (step == Step::kSeparator || step == Step::kLineEnd) {
        lineEnds_ += std::count(start, mark, '\n');
        fields_.push_back({.raw = {start, mark}, .isQuoted = true, .hasDoubled = hasDoubled});
      }
      return step;
    }
    hasDoubled = true;
    from = mark + 2;
  }
}

CsvScanner::Step CsvScanner::ScanPlain(const char*& next, const char* end) {
  const char* const start = next;
  const char* stop = start;
  while (stop != end && !endsPlain_[static_cast<std::uint8_t>(*stop)]) ++stop;
  if (stop == end && !isComplete_) return Step::kIncomplete;
  if (stop != end && *stop == '"') return Fail(CsvFault::kQuoteInside);
  next = stop;
  const Step step = ScanEnd(next, end);
  if (step == Step::kSeparator || step == Step::kLineEnd) fields_.push_back({.raw = {start, stop}});
  return step;
}

// Behind a field: the separator or a line end.
CsvScanner::Step CsvScanner::ScanEnd(const char*& next, const char* end) {
  if (next == end) return Step::kLineEnd;
  if (*next == separator_) return ++next, Step::kSeparator;
  if (*next == '\n') return ++next, Step::kLineEnd;
  if (*next != '\r') return Fail(CsvFault::kTextBehindQuote);
  if (next + 1 == end && !isComplete_) return Step::kIncomplete;
  if (next + 1 == end || next[1] != '\n') return Fail(CsvFault::kLoneReturn);
  next += 2;
  return Step::kLineEnd;
}

}  // namespace zorkanca
