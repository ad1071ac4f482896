// The one line of a terminal that a running command keeps drawing anew: its progress.
#pragma once

#include <cstddef>
#include <string_view>

namespace zorkanca::cli {

/// A line on standard error. Whoever prints anything else erases it first, so that nothing is printed over it.
class StatusLine {
 public:
  StatusLine() = default;
  StatusLine(const StatusLine&) = delete;
  StatusLine& operator=(const StatusLine&) = delete;
  ~StatusLine() { Erase(); }

  /// @param text  fits a line, without a line end
  void Draw(std::string_view text);
  void Erase();

 private:
  std::size_t drawn_ = 0;  // bytes of the line, which has no more columns than these
};

}  // namespace zorkanca::cli
