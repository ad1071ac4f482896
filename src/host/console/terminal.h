// A terminal, or what stands in its place: two descriptors on which lines are printed and read.
#pragma once

#include <unistd.h>

#include <string>
#include <string_view>

#include "runtime/text.h"

namespace zorkanca {

/// Descriptors that others own and that stay open as long as the object lives.
class Terminal {
 public:
  explicit Terminal(int input = STDIN_FILENO, int output = STDERR_FILENO) : input_(input), output_(output) {}

  /// A person can be asked: both sides are a terminal.
  bool Interactive() const { return isatty(input_) && isatty(output_); }
  bool Prints() const { return isatty(output_); }
  /// Output that cannot be written is lost: nowhere is left to report it.
  void Print(std::string_view bytes) const;
  /// Prints texts as UTF-8, their line ends as the terminal has them.
  void Print(TextView text) const;
  /// The next line with its end; empty at the end of input.
  std::string ReadLine() const;
  /// The next line without its end and the blanks around it. @return false at the end of input
  bool Ask(TextView prompt, Text& answer) const;

 private:
  int input_;
  int output_;
};

}  // namespace zorkanca
