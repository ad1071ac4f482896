// The part of a text file that is being looked at: from the record in hand to as far as the file was read. It moves on
// record by record and grows while a record is not complete, so that memory follows the longest record, not the file.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "tabular/utf8_input.h"

namespace zorkanca {

class TextWindow {
 public:
  /// No record is longer, in bytes of UTF-8.
  static constexpr std::size_t kLongestRecord = 64 << 20;

  /// @param input  outlives the window
  explicit TextWindow(Utf8Input& input);

  /// What is known of the text from the record in hand on.
  std::string_view text() const { return {buffer_.get() + start_, end_ - start_}; }
  /// True when nothing follows the known text.
  bool isComplete() const { return isComplete_; }

  /// Reads on behind the known text. @return false when a record would become longer than `kLongestRecord`
  bool Grow();
  /// Goes on behind so many bytes of the known text.
  void Advance(std::size_t count) { start_ += count; }
  /// Goes back to the start of the file.
  void Restart();

 private:
  void MakeRoom();

  Utf8Input& input_;
  std::size_t capacity_;
  std::unique_ptr<char[]> buffer_;
  std::size_t start_ = 0;
  std::size_t end_ = 0;
  bool isComplete_ = false;
};

}  // namespace zorkanca
