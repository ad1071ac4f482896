// An anchor is cut where its copies differ: rows, ids, the number behind a name, the identifier. A copy is then the
// pieces put out one behind the other with its own numbers, so that a hundred thousand copies need no tree and cost
// what they are long. Ids go on behind the greatest that the part has; connections between shapes of one anchor keep
// pointing at each other, because ids are replaced by their index within the anchor.
#include "excel/drawing/drawing_repeats.h"

#include <charconv>
#include <cstdio>

#include "excel/grid/xml_buffer.h"
#include "excel/grid/xml_scanner.h"
#include "excel/tables/cell_reader.h"
#include "opc/office_error.h"
#include "opc/xml_names.h"
#include "runtime/ascii.h"

namespace zorkanca::excel {

namespace {

using Token = XmlScanner::Token;

bool IsAnchor(std::string_view local) {
  return local == "twoCellAnchor" || local == "oneCellAnchor" || local == "absoluteAnchor";
}

std::string_view WithoutNumber(std::string_view name) {
  while (!name.empty() && IsDigit(name.back())) name.remove_suffix(1);
  while (!name.empty() && name.back() == ' ') name.remove_suffix(1);
  return name;
}

}  // namespace

// Cuts the text of one anchor where copies differ.
class AnchorReader {
 public:
  AnchorReader(DrawingPart& part, XmlScanner& scanner) : part_(part), scanner_(scanner) {}

  // The scanner has just passed the start tag of the anchor.
  DrawingPart::Anchor Read() {
    mayRepeat_ =
        LocalName(scanner_.name()) != "absoluteAnchor" && AttributeText(scanner_.attributes(), "editAs") != "absolute";
    copied_ = scanner_.begin();
    std::vector<std::string_view> open{LocalName(scanner_.name())};
    while (!open.empty()) {
      const Token token = scanner_.Next();
      if (token == Token::kDone) break;
      if (token == Token::kText && open.back() == "row" && open.size() == 3) ReadRow(open[1]);
      if (token == Token::kStart || token == Token::kEmpty) ReadElement(LocalName(scanner_.name()));
      if (token == Token::kStart) open.push_back(LocalName(scanner_.name()));
      if (token == Token::kEnd) open.pop_back();
    }
    Text(scanner_.end());
    anchor_.objects = static_cast<std::int32_t>(ids_.size());
    if (!mayRepeat_) anchor_.row = 0;
    return std::move(anchor_);
  }

 private:
  using Kind = DrawingPart::PieceKind;

  void Text(std::size_t end) {
    if (end > copied_) {
      anchor_.pieces.push_back({.begin = static_cast<std::uint32_t>(copied_), .end = static_cast<std::uint32_t>(end)});
    }
    copied_ = end;
  }

  // Leaves out the text between two places and puts something that differs there.
  void Hole(std::size_t begin, std::size_t end, Kind kind, std::int32_t number) {
    Text(begin);
    anchor_.pieces.push_back({.kind = kind, .number = number});
    copied_ = end;
  }

  std::size_t OffsetOf(std::string_view part) const {
    return static_cast<std::size_t>(part.data() - part_.xml_.data());
  }

  void ReadRow(std::string_view corner) {
    const std::string_view text =
        std::string_view(part_.xml_).substr(scanner_.begin(), scanner_.end() - scanner_.begin());
    const std::optional<std::uint32_t> row = WholeNumberOf(text);
    if (!row || *row >= std::uint32_t{kLastRow}) {
      mayRepeat_ = false;
      return;
    }
    const auto number = static_cast<std::int32_t>(*row);
    if (corner == "from") anchor_.row = number + 1;
    Hole(scanner_.begin(), scanner_.end(), corner == "from" ? Kind::kFromRow : Kind::kToRow, number);
  }

  void ReadElement(std::string_view local) {
    if (local == "graphicFrame" || local == "contentPart") mayRepeat_ = false;
    const bool isObject = local == "cNvPr";
    const bool isEnd = local == "stCxn" || local == "endCxn";
    if (isObject || isEnd) {
      std::string_view attributes = scanner_.attributes();
      std::string_view name;
      std::string_view value;
      std::int32_t index = -1;
      while (TakeAttribute(attributes, name, value)) {
        if (name == "id") index = IndexOf(value);
        if (name == "id" && index >= 0) Hole(OffsetOf(value), OffsetOf(value) + value.size(), Kind::kId, index);
        if (isObject && name == "name" && index >= 0) NameHole(value, index);
      }
    } else if (local == "creationId") {
      const std::string_view id = AttributeText(scanner_.attributes(), "id");
      constexpr std::size_t kDigits = 8;
      if (id.size() > kDigits + 1 && id.front() == '{') {
        Hole(OffsetOf(id) + 1, OffsetOf(id) + 1 + kDigits, Kind::kUnique, 0);
      }
    }
  }

  void NameHole(std::string_view name, std::int32_t index) {
    const std::string_view kept = WithoutNumber(name);
    Hole(OffsetOf(name) + kept.size(), OffsetOf(name) + name.size(), Kind::kName, index);
  }

  std::int32_t IndexOf(std::string_view id) {
    const std::optional<std::uint32_t> number = WholeNumberOf(id);
    if (!number) return -1;
    part_.lastId_ = std::max<std::int64_t>(part_.lastId_, *number);
    const auto found = std::find(ids_.begin(), ids_.end(), *number);
    if (found != ids_.end()) return static_cast<std::int32_t>(found - ids_.begin());
    ids_.push_back(*number);
    return static_cast<std::int32_t>(ids_.size()) - 1;
  }

  DrawingPart& part_;
  XmlScanner& scanner_;
  DrawingPart::Anchor anchor_;
  std::vector<std::uint32_t> ids_;
  std::size_t copied_ = 0;
  bool mayRepeat_ = true;
};

DrawingPart::DrawingPart(std::string xml, const XmlSource& source) : xml_(std::move(xml)) {
  RequireSoundXml(xml_, source);
  if (!xml_.starts_with("<") && !xml_.starts_with("\xEF\xBB\xBF")) xml_ = XmlBytes(ParseXml(xml_, source));
  XmlScanner scanner(xml_);
  Token token = scanner.Next();
  while (token != Token::kStart && token != Token::kEmpty && token != Token::kDone) token = scanner.Next();
  if (token == Token::kDone || LocalName(scanner.name()) != "wsDr") {
    RaiseBadPart(source.file, source.part, "it is no drawing of a sheet");
  }
  rootEnd_ = scanner.end();
  if (token == Token::kEmpty) return;
  for (token = scanner.Next(); token != Token::kEnd && token != Token::kDone; token = scanner.Next()) {
    if (token != Token::kStart) continue;
    if (IsAnchor(LocalName(scanner.name()))) {
      anchors_.push_back(AnchorReader(*this, scanner).Read());
    } else {  // a choice between versions: controls and the like
      scanner.SkipElement();
      anchors_.emplace_back();
    }
  }
  rootEnd_ = scanner.begin();
}

std::vector<DrawingPart::Copy> DrawingPart::CopiesFor(const std::vector<RowRepeat>& repeats) const {
  std::vector<Copy> all;
  for (std::uint32_t i = 0; i < anchors_.size(); ++i) all.push_back({.anchor = i});
  const std::size_t originals = all.size();
  for (const RowRepeat& repeat : repeats) {
    const std::size_t count = all.size();
    for (std::size_t i = 0; i < count; ++i) {
      const Copy one = all[i];
      const std::int32_t row = anchors_[one.anchor].row;
      if (row == 0 || !repeat.Source().HasRow(row + one.shift)) continue;
      for (std::int32_t copy = 0; copy < repeat.copies; ++copy) {
        all.push_back({one.anchor, one.shift + repeat.first - repeat.top + copy * repeat.rows});
      }
    }
  }
  all.erase(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(originals));
  return all;
}

bool DrawingPart::IsRepeated(const std::vector<RowRepeat>& repeats) const {
  return !CopiesFor(repeats).empty();
}

void DrawingPart::Write(PartSink& sink, const std::vector<RowRepeat>& repeats, const ExcelWatch& watch) const {
  XmlBuffer out(sink);
  out.Put(std::string_view(xml_).substr(0, rootEnd_));
  std::int64_t id = lastId_ + 1;
  const std::vector<Copy> copies = CopiesFor(repeats);
  WatchedWork work(watch, ExcelWork::kSaving, copies.size());
  for (const Copy& copy : copies) {
    work.Reach(static_cast<std::uint64_t>(&copy - copies.data()));
    const Anchor& anchor = anchors_[copy.anchor];
    for (const Piece& piece : anchor.pieces) {
      switch (piece.kind) {
        case PieceKind::kText:
          out.Put(std::string_view(xml_).substr(piece.begin, piece.end - piece.begin));
          break;
        case PieceKind::kFromRow:
        case PieceKind::kToRow:
          out.PutNumber(std::min(piece.number + copy.shift, kLastRow - 1));
          break;
        case PieceKind::kName:
          out.Put(' ');
          [[fallthrough]];
        case PieceKind::kId:
          out.PutNumber(id + piece.number);
          break;
        case PieceKind::kUnique: {
          char digits[16];
          std::snprintf(digits, sizeof digits, "%08X", static_cast<unsigned>(id));
          out.Put(std::string_view(digits, 8));
          break;
        }
      }
    }
    id += std::max(anchor.objects, 1);
  }
  out.Put(std::string_view(xml_).substr(rootEnd_));
  out.Flush();
}

}  // namespace zorkanca::excel
