#include "xmltemplate/tagged_text.h"

#include "xmltemplate/grid_expansion.h"
#include "xmltemplate/start_tags.h"
#include "xmltemplate/template_text.h"

namespace zorkanca {

MarkedText& TaggedText::Marked() {
  if (!marked_) marked_ = std::make_unique<MarkedText>(std::move(text_));
  return *marked_;
}

TextPiece* TaggedText::FindCell(const TaggedCell& cell) {
  const Text column = IndexText(cell.ColIndex);
  const Text row = IndexText(cell.RowIndex);
  const TextView indices[][2] = {{column, row}, {kAnyIndex, kAnyIndex}, {kAnyIndex, row}, {column, kAnyIndex}};
  for (const auto& [colIndex, rowIndex] : indices) {
    AssignCellSymbol(symbol_, cell.ColSign, cell.RowSign, colIndex, rowIndex);
    if (TextPiece* marker = Marked().FirstMarker(symbol_)) return marker;
  }
  return nullptr;
}

void TaggedText::SetData(TextView data, const TaggedCell& cell) {
  TextPiece* marker = FindCell(cell);
  if (!marker) return;
  Marked().Replace(MarkedText::Before(marker), Marked().After(marker), Utf8Encode(data, *codePage_));
}

void TaggedText::RemoveData(const TaggedCell& cell) {
  constexpr std::size_t kEndTagLength = TextView(u"</data>").size();
  TextPiece* marker = FindCell(cell);
  if (!marker) return;
  const auto start = Marked().LastToken(kDataStart, marker);
  const auto end = Marked().FirstToken(kDataEnd, Marked().After(marker));
  if (start && end) Marked().Replace(*start, Marked().Advance(*end, kEndTagLength), {});
}

std::optional<TaggedText::Tag> TaggedText::TagAt(std::optional<TextPlace> start) {
  if (!start) return std::nullopt;
  const auto end = Marked().Find(u">", *start, MarkedText::End());
  if (!end) return std::nullopt;
  return Tag{*start, Marked().Advance(*end, 1)};
}

std::optional<TaggedText::Tag> TaggedText::CellTag(const TaggedCell& cell) {
  const TextPiece* marker = FindCell(cell);
  return marker ? TagAt(Marked().LastToken(kCellStart, marker)) : std::nullopt;
}

void TaggedText::SetTagAttribute(const std::optional<Tag>& tag, TextView name, TextView value) {
  if (!tag) return;
  Text changed = SetAttribute(Marked().Copy(tag->start, tag->end), name, value);
  Marked().Replace(tag->start, tag->end, std::move(changed));
}

Text TaggedText::GetTagAttribute(const std::optional<Tag>& tag, TextView name) {
  return tag ? GetAttribute(Marked().Copy(tag->start, tag->end), name) : Text();
}

void TaggedText::SetCellAttribute(TextView name, TextView value, const TaggedCell& cell) {
  if (LowerCase(name) == u"ss:styleid" && IsBlank(value)) return;
  SetTagAttribute(CellTag(cell), name, value);
}

Text TaggedText::GetCellAttribute(TextView name, const TaggedCell& cell) {
  return GetTagAttribute(CellTag(cell), name);
}

void TaggedText::SetTableAttribute(TextView name, TextView value) {
  SetTagAttribute(TagAt(Marked().FirstToken(kTableStart, Marked().Begin())), name, value);
}

Text TaggedText::GetTableAttribute(TextView name) {
  return GetTagAttribute(TagAt(Marked().FirstToken(kTableStart, Marked().Begin())), name);
}

void TaggedText::ExpandGrid(GridDirection direction, std::int16_t sign, std::int16_t count) {
  GridExpansion(Marked(), direction, sign, count, kMaximumSize).Run();
}

}  // namespace zorkanca
