#include "tabular/text_window.h"

#include <algorithm>
#include <utility>

namespace zorkanca {

namespace {

constexpr std::size_t kBlock = 256 * 1024;

}  // namespace

TextWindow::TextWindow(Utf8Input& input)
    : input_(input), capacity_(kBlock), buffer_(std::make_unique_for_overwrite<char[]>(kBlock)) {}

void TextWindow::Restart() {
  input_.Restart();
  start_ = end_ = 0;
  isComplete_ = false;
}

// The record in hand moves to the front. A buffer that it fills by half is doubled: all that a long record costs by
// being looked at again and again is then linear in its length.
void TextWindow::MakeRoom() {
  const std::size_t known = end_ - start_;
  if (known <= capacity_ / 2) {
    std::copy_n(buffer_.get() + start_, known, buffer_.get());
  } else {
    auto larger = std::make_unique_for_overwrite<char[]>(2 * capacity_);
    std::copy_n(buffer_.get() + start_, known, larger.get());
    buffer_ = std::move(larger);
    capacity_ *= 2;
  }
  start_ = 0;
  end_ = known;
}

bool TextWindow::Grow() {
  if (isComplete_) return true;
  if (text().size() > kLongestRecord) return false;
  MakeRoom();
  const std::size_t count = input_.Read({buffer_.get() + end_, capacity_ - end_});
  end_ += count;
  isComplete_ = count == 0;
  return true;
}

}  // namespace zorkanca
