// A row as PostgreSQL writes it as one text: "(1,\"a b\",,\"say \"\"x\"\"\")". Values stand between commas, in quotes
// where they hold anything but letters and digits; in quotes a quote and a backslash stand twice. Nothing at all is
// NULL.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zorkanca {

class RowText {
 public:
  /// @param row  outlives the values
  void Read(std::string_view row);

  std::size_t size() const { return values_.size(); }
  /// A value; one without data for NULL. Holds until the next row is read.
  std::string_view At(std::size_t column) const { return values_[column]; }

 private:
  std::size_t ReadQuoted(std::string_view row, std::size_t at);

  std::vector<std::string_view> values_;
  std::string unquoted_;  // of values in which something stands twice
};

}  // namespace zorkanca
