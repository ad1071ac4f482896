#include "odbc/row_text.h"

#include <algorithm>

namespace zorkanca {

void RowText::Read(std::string_view row) {
  values_.clear();
  unquoted_.clear();
  unquoted_.reserve(row.size());  // the values point into it
  if (row.size() < 2) return;
  const std::size_t end = row.size() - 1;  // of the closing bracket
  for (std::size_t at = 1;; ++at) {
    if (at < end && row[at] == '"') {
      at = ReadQuoted(row, at + 1);
    } else {
      const std::size_t next = std::min(row.find(',', at), end);
      values_.push_back(next == at ? std::string_view() : row.substr(at, next - at));
      at = next;
    }
    if (at >= end) return;
  }
}

// @param at  behind the opening quote. @return where the value's comma stands, or the bracket
std::size_t RowText::ReadQuoted(std::string_view row, std::size_t at) {
  const std::size_t begin = at;
  const std::size_t kept = unquoted_.size();
  std::size_t copied = at;  // the value up to here is in `unquoted_`
  for (;;) {
    at = std::min(row.find_first_of("\"\\", at), row.size() - 1);
    if (at + 1 >= row.size() || row[at + 1] != row[at]) break;
    unquoted_.append(row, copied, at + 1 - copied);
    at += 2;
    copied = at;
  }
  if (copied == begin) {
    values_.push_back(row.substr(begin, at - begin));
  } else {
    unquoted_.append(row, copied, at - copied);
    values_.push_back(std::string_view(unquoted_).substr(kept));
  }
  return std::min(at + 1, row.size() - 1);
}

}  // namespace zorkanca
