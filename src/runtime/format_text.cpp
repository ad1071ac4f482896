// Texts written by compiled text sections.
#include <algorithm>

#include "runtime/format_pattern.h"

namespace zorkanca {

namespace {

// The source stands in the same text, in front of the result: no second text is needed. It is read by position,
// because the text moves while it grows.
class PlaceholderWriter {
 public:
  PlaceholderWriter(Text& text, std::size_t start, const TextSection& section)
      : text_(text), section_(section), next_(start), end_(text.size()) {
    const std::size_t length = end_ - start;
    const std::size_t missing = section.places > length ? section.places - length : 0;
    firstFilled_ = section.fromLeft ? 0 : missing;
  }

  void Write() {
    std::size_t literal = 0;
    for (const TextStep& step : section_.steps) {
      if (step.kind == TextStep::Kind::kLiteral) {
        text_.append(section_.literals, literal, step.size);
        literal += step.size;
      } else {
        WritePlaces(step);
      }
    }
    WriteCharacters(end_ - next_);
  }

 private:
  void WritePlaces(const TextStep& step) {
    const bool spaces = step.kind == TextStep::Kind::kCharacterOrSpace;
    const std::size_t before = std::min(step.size, firstFilled_ - std::min(firstFilled_, place_));
    const std::size_t filled = std::min(step.size - before, end_ - next_);
    const std::size_t behind = step.size - before - filled;
    place_ += step.size;
    if (spaces) text_.append(before, u' ');
    WriteCharacters(filled);
    if (spaces) text_.append(behind, u' ');
  }

  void WriteCharacters(std::size_t count) {
    const std::size_t start = text_.size();
    text_.append(text_, next_, count);
    next_ += count;
    if (!section_.lower && !section_.upper) return;
    for (std::size_t index = start; index < text_.size(); ++index) {
      text_[index] = section_.lower ? LowerCase(text_[index]) : UpperCase(text_[index]);
    }
  }

  Text& text_;
  const TextSection& section_;
  std::size_t next_;             // of the source
  std::size_t end_;              // of the source
  std::size_t place_ = 0;        // placeholders behind us
  std::size_t firstFilled_ = 0;  // placeholders before it stay without a character
};

}  // namespace

void FormatTail(Text& text, std::size_t start, const PlaceholderFormat& format) {
  const std::size_t end = text.size();
  const bool forEmpty = end == start && format.sections.size() > 1 && format.sections[1].given;
  PlaceholderWriter(text, start, format.sections[forEmpty ? 1 : 0]).Write();
  text.erase(start, end - start);
}

}  // namespace zorkanca
