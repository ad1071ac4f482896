#include "export/excel_cell_pattern.h"

#include <algorithm>

#include "export/quoting.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

[[noreturn]] void RaiseNotClosed(TextView text, TextView address) {
  Text description = u"Nothing closes the brace in cell ";
  Raise(RuntimeError::kInvalidCall, description.append(address).append(u" of the template: ").append(text));
}

// What would end the cell, its line, or the whole order of cells in the data file.
bool BreaksTheFile(TextView cell) {
  return cell.find_first_of(u";\r\n") != TextView::npos;
}

}  // namespace

ExcelCellPattern::ExcelCellPattern(TextView text, TextView address) {
  TextView rest = text;
  for (std::size_t open; (open = rest.find(u'{')) != TextView::npos;) {
    if (open > 0) pieces_.push_back({.text = Text(rest.substr(0, open))});
    const std::size_t close = rest.find(u'}', open);
    if (close == TextView::npos) RaiseNotClosed(text, address);
    pieces_.push_back(ReadPlaceholder(rest.substr(open + 1, close - open - 1)));
    rest.remove_prefix(close + 1);
  }
  if (!rest.empty() || pieces_.empty()) pieces_.push_back({.text = Text(rest)});
}

ExcelCellPattern::Piece ExcelCellPattern::ReadPlaceholder(TextView body) {
  if (EqualsIgnoringCase(body, u"code")) return {.kind = Piece::Kind::kCode};
  const std::size_t separator = body.find(u';');
  if (separator == TextView::npos) return {.kind = Piece::Kind::kValue, .text = Text(body)};
  Piece piece{.text = Text(Trim(body.substr(0, separator)))};
  const TextView format = Trim(body.substr(separator + 1));
  if (EqualsIgnoringCase(format, u"trim")) {
    piece.kind = Piece::Kind::kTrimmedValue;
  } else {
    piece.kind = Piece::Kind::kFormattedValue;
    piece.format.emplace(format);
  }
  return piece;
}

std::vector<Text> ExcelCellPattern::ColumnNames() const {
  std::vector<Text> names;
  for (const Piece& piece : pieces_) {
    if (ReadsColumn(piece)) names.push_back(piece.text);
  }
  return names;
}

bool ExcelCellPattern::HasCode() const {
  return std::any_of(pieces_.begin(), pieces_.end(),
                     [](const Piece& piece) { return piece.kind == Piece::Kind::kCode; });
}

void ExcelCellPattern::Bind(PatternSource& source) {
  source_ = &source;
  for (Piece& piece : pieces_) {
    if (ReadsColumn(piece)) piece.column = source.Column(piece.text);
  }
}

Text ExcelCellPattern::TextOf(const Piece& piece, const Locale& locale) const {
  if (piece.kind == Piece::Kind::kCode) return source_->Code();
  if (!piece.column) return Text();
  const Value& value = piece.column->Value();
  if (IsNull(value)) return Text();
  switch (piece.kind) {
    case Piece::Kind::kTrimmedValue:
      return Text(Trim(ToText(value, locale)));
    case Piece::Kind::kFormattedValue:
      return piece.format->Apply(value, locale);
    default:
      return ToText(value, locale);
  }
}

void ExcelCellPattern::Compose(Text& cell, bool quotesValues, const Locale& locale) const {
  cell.clear();
  for (const Piece& piece : pieces_) {
    if (piece.kind == Piece::Kind::kLiteral) {
      cell.append(piece.text);
    } else if (quotesValues && piece.kind != Piece::Kind::kCode) {
      AppendQuotedIfHasQuotes(cell, TextOf(piece, locale));
    } else {
      cell.append(TextOf(piece, locale));
    }
  }
}

void ExcelCellPattern::AddTo(ExcelDataFile& file, const Locale& locale) {
  const bool isLiteral = pieces_.size() == 1 && pieces_.front().kind == Piece::Kind::kLiteral;
  if (isLiteral) return file.AddText(pieces_.front().text);
  Compose(shown_, /*quotesValues=*/false, locale);
  CheckCellText(shown_);
  const auto add = [&file](const Text& text) {
    if (BreaksTheFile(text)) return AppendEnclosedValue(file.BeginCell(), text);
    file.BeginCell().append(text);
  };
  if (shown_.find(u'"') == Text::npos) return add(shown_);
  // Each value has quotes of its own, in whatever company. A cell that begins with one has to be quoted as a whole, or
  // the rest of the file would belong to it.
  Compose(spelled_, /*quotesValues=*/true, locale);
  if (spelled_.front() == u'"') return AppendEnclosedValue(file.BeginCell(), shown_);
  add(spelled_);
}

}  // namespace zorkanca
