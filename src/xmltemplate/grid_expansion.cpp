// The grids of the sign are taken from the first one on, until no begin with an end behind it is left: a grid that lay
// in the body of another one is met again in each of its copies. A copy is numbered by replacing the open index in the
// first prototype that its body still holds; the first copy is changed where it stands, the others are written as one
// text. Of grids within grids the part up to `searched_` is known to hold no prototype, and is not read again. The size
// of all copies is checked before anything is written; the work grows with the text that comes of it.
#include "xmltemplate/grid_expansion.h"

#include "runtime/error.h"
#include "xmltemplate/template_text.h"

namespace zorkanca {

namespace {

Text PrototypeStart(GridDirection direction, std::int16_t sign) {
  Text text(direction == GridDirection::kColumns ? u"#GD-C" : u"]-R");
  AppendDecimal(text, sign);
  return text.append(direction == GridDirection::kColumns ? u"-c[" : u"-r[");
}

}  // namespace

GridExpansion::GridExpansion(MarkedText& text, GridDirection direction, std::int16_t sign, std::int16_t count,
                             std::size_t maximumSize)
    : text_(text),
      count_(count),
      maximumSize_(maximumSize),
      beginSymbol_(GridBeginSymbol(direction, sign)),
      endSymbol_(GridEndSymbol(direction, sign)),
      indent_(direction == GridDirection::kColumns ? u"\t" : u"   "),
      prototype_(PrototypeStart(direction, sign)),
      openIndex_(prototype_.size()) {
  prototype_.append(kAnyIndex).append(direction == GridDirection::kColumns ? u"]-R" : u"]-#");
}

void GridExpansion::Run() {
  std::size_t cursor = 0;
  while (TextPiece* begin = text_.FirstMarker(beginSymbol_)) {
    TextPiece* end = text_.FirstMarkerAfter(endSymbol_, begin, cursor);
    if (!end) return;
    Expand(begin, end);
  }
}

void GridExpansion::Expand(TextPiece* begin, TextPiece* end) {
  const TextPlace before = text_.SkipBlankLinesBack(MarkedText::Before(begin));
  const TextPlace body = text_.SkipBlanks(text_.SkipBlankLines(text_.After(begin)));
  const TextPlace bodyEnd = text_.SkipBlankLinesBack(MarkedText::Before(end));
  const TextPlace behind = text_.SkipBlankLines(text_.After(end));
  if (count_ < 1) {
    text_.Replace(before, behind, Text(kCrLf));
    return;
  }
  if (body.piece == end) {  // nothing between the borders
    text_.Replace(before, behind, Text(kCrLf).append(OtherCopies({})).append(kCrLf));
    return;
  }
  Text others;
  if (count_ > 1) {
    CheckSize(text_.Length(body, bodyEnd));
    others = OtherCopies(indent_ + text_.Copy(body, bodyEnd));
  }
  const TextPlace firstCopy = text_.Replace(before, body, Text(kCrLf).append(indent_));
  const bool isNumbered = NumberFirstCopy(firstCopy, end);
  const TextPlace lastCopyEnd = text_.SkipBlankLinesBack(MarkedText::Before(end));
  const TextPlace rest = text_.Replace(lastCopyEnd, behind, std::move(others.insert(0, kCrLf)));
  if (!isNumbered) searched_ = rest;
}

// Copies 2 and later, each with its line end.
Text GridExpansion::OtherCopies(TextView body) const {
  Text copies;
  const std::size_t found = FindIgnoringCase(body, prototype_);
  for (std::int16_t number = 2; number <= count_; ++number) {
    if (number == 2) copies.reserve((body.size() + kCrLf.size() + 1) * (static_cast<std::size_t>(count_) - 1));
    if (found == TextView::npos) {
      copies.append(body);
    } else {
      const std::size_t index = found + openIndex_;
      copies.append(body.substr(0, index)).append(IndexText(number)).append(body.substr(index + kAnyIndex.size()));
    }
    copies.append(kCrLf);
    if (number == count_) break;  // 32767 has no successor
  }
  return copies;
}

// True when there was something to number.
bool GridExpansion::NumberFirstCopy(TextPlace firstCopy, TextPiece* end) {
  TextPlace from = firstCopy;
  const bool isKnown = searched_.piece && searched_.piece->block;
  if (isKnown && text_.IsBefore(from.piece, searched_.piece)) from = searched_;
  if (!text_.IsBefore(from.piece, end)) return false;
  const auto found = text_.Find(prototype_, from, MarkedText::Before(end));
  if (!found) return false;
  const TextPlace index = text_.Advance(*found, openIndex_);
  searched_ = text_.StartBefore(text_.Replace(index, text_.Advance(index, kAnyIndex.size()), IndexText(1)));
  return true;
}

void GridExpansion::CheckSize(std::size_t bodySize) const {
  const std::size_t copySize = bodySize + indent_.size() + kCrLf.size();
  const auto otherCopies = static_cast<std::size_t>(count_) - 1;
  if (text_.size() > maximumSize_ || copySize > (maximumSize_ - text_.size()) / otherCopies) {
    Raise(RuntimeError::kOutOfMemory);
  }
}

}  // namespace zorkanca
