// A formula is read once into pieces: references, and the texts between them. A relative coordinate is kept as its
// distance from the cell, an absolute one as its place, so that writing the formula for another cell only adds: no
// formula is read again however often it is copied. What looks like a reference but is a name, a function or a sheet
// stays text; see formula_scanner.h for the stretches that are passed over.
#include "excel/grid/formula.h"

#include <charconv>
#include <optional>

#include "excel/grid/formula_scanner.h"

namespace zorkanca::excel {

void Formula::AddText(std::string_view text) {
  if (text.empty()) return;
  texts_ += text;
  if (!pieces_.empty() && pieces_.back().shape == Shape::kText) {
    pieces_.back().length += text.size();
  } else {
    pieces_.push_back({.length = text.size(), .first = {}, .last = {}});
  }
}

void Formula::AddReference(Shape shape, const Corner& first, const Corner& last) {
  pieces_.push_back({.shape = shape, .first = first, .last = last});
}

// References as files write them. A name is one only when no "(" and no "!" follows it.
class Formula::A1Reader {
 public:
  A1Reader(std::string_view text, CellAddress at) : rest_(text), at_(at) {}

  Formula Read() {
    while (!rest_.empty()) {
      const std::size_t opaque = OpaqueLength(rest_);
      if (opaque > 0) {
        Pass(opaque);
      } else if (!ReadReference()) {
        const std::size_t number = NumberLength(rest_);
        const std::size_t name = number > 0 ? number : NameLength(rest_);
        Pass(name > 0 ? name : 1);
      }
    }
    return std::move(formula_);
  }

 private:
  // A corner as written; a missing coordinate is 0.
  struct WrittenCorner {
    std::int32_t row = 0;
    std::int32_t column = 0;
    bool rowAbsolute = false;
    bool columnAbsolute = false;
  };

  void Pass(std::size_t length) {
    formula_.AddText(rest_.substr(0, length));
    rest_.remove_prefix(length);
  }

  static std::optional<WrittenCorner> ReadCorner(std::string_view name) {
    WrittenCorner corner;
    const auto takeDollar = [&] {
      if (!name.starts_with('$')) return false;
      name.remove_prefix(1);
      return true;
    };
    const bool dollar = takeDollar();
    corner.column = TakeColumn(name);
    corner.columnAbsolute = corner.column > 0 && dollar;
    corner.rowAbsolute = corner.column > 0 ? takeDollar() : dollar;
    corner.row = TakeRow(name);
    if (!name.empty() || (corner.row == 0 && (corner.column == 0 || corner.rowAbsolute))) return std::nullopt;
    return corner;
  }

  static bool IsNoReference(std::string_view behind) {
    return behind.starts_with('(') || behind.starts_with('!') || behind.starts_with('[');
  }

  bool ReadReference() {
    const std::size_t length = NameLength(rest_);
    if (length == 0) return false;
    const std::optional<WrittenCorner> first = ReadCorner(rest_.substr(0, length));
    if (!first) return false;
    std::string_view behind = rest_.substr(length);
    if (behind.starts_with(':')) {
      const std::size_t secondLength = NameLength(behind.substr(1));
      const std::optional<WrittenCorner> last = ReadCorner(behind.substr(1, secondLength));
      const std::string_view end = behind.substr(1 + secondLength);
      if (end.starts_with('!')) return false;  // names of sheets: Jan:Dec!A1
      const bool alike = last && (first->row == 0) == (last->row == 0) && (first->column == 0) == (last->column == 0);
      if (alike && !IsNoReference(end)) {
        const Shape shape = first->row == 0 ? Shape::kColumns : first->column == 0 ? Shape::kRows : Shape::kArea;
        return Take(length + 1 + secondLength, shape, *first, *last);
      }
    }
    if (first->row == 0 || first->column == 0 || IsNoReference(behind)) return false;
    return Take(length, Shape::kCell, *first, *first);
  }

  bool Take(std::size_t length, Shape shape, const WrittenCorner& first, const WrittenCorner& last) {
    const auto corner = [&](const WrittenCorner& written) {
      return Corner{{written.rowAbsolute ? written.row : written.row - at_.row, written.rowAbsolute},
                    {written.columnAbsolute ? written.column : written.column - at_.column, written.columnAbsolute}};
    };
    formula_.AddReference(shape, corner(first), corner(last));
    rest_.remove_prefix(length);
    return true;
  }

  std::string_view rest_;
  CellAddress at_;
  Formula formula_;
};

// R and C with a number, with a distance in brackets, or alone for "this row", "this column".
class Formula::R1C1Reader {
 public:
  explicit R1C1Reader(std::string_view text) : rest_(text) {}

  Formula Read() {
    while (!rest_.empty()) {
      if (ReadReference()) continue;
      const std::size_t opaque = OpaqueLength(rest_);
      const std::size_t number = opaque > 0 ? opaque : NumberLength(rest_);
      const std::size_t name = number > 0 ? number : NameLength(rest_);
      const std::size_t length = name > 0 ? name : 1;
      formula_.AddText(rest_.substr(0, length));
      rest_.remove_prefix(length);
    }
    return std::move(formula_);
  }

 private:
  struct WrittenCorner {
    std::optional<Coordinate> row, column;
  };

  static std::optional<Coordinate> TakeCoordinate(std::string_view& text, char upper, char lower) {
    if (!text.starts_with(upper) && !text.starts_with(lower)) return std::nullopt;
    text.remove_prefix(1);
    Coordinate coordinate;
    const bool bracket = text.starts_with('[');
    const char* const first = text.data() + (bracket ? 1 : 0);
    const auto [end, failure] = std::from_chars(first, text.data() + text.size(), coordinate.number);
    if (failure != std::errc()) return coordinate;
    const auto length = static_cast<std::size_t>(end - text.data());
    if (bracket && (length >= text.size() || text[length] != ']')) return coordinate;
    if (!bracket && coordinate.number < 1) return Coordinate();  // "RC-1" is a difference
    coordinate.absolute = !bracket;
    text.remove_prefix(length + (bracket ? 1 : 0));
    return coordinate;
  }

  static std::optional<WrittenCorner> TakeCorner(std::string_view& text) {
    std::string_view rest = text;
    WrittenCorner corner;
    corner.row = TakeCoordinate(rest, 'R', 'r');
    corner.column = TakeCoordinate(rest, 'C', 'c');
    const bool ends = rest.empty() || (!IsNameCharacter(rest[0]) && rest[0] != '(' && rest[0] != '!');
    if ((!corner.row && !corner.column) || !ends) return std::nullopt;
    text = rest;
    return corner;
  }

  bool ReadReference() {
    std::string_view rest = rest_;
    const std::optional<WrittenCorner> first = TakeCorner(rest);
    if (!first) return false;
    std::optional<WrittenCorner> last = first;
    Shape shape = !first->row ? Shape::kColumns : !first->column ? Shape::kRows : Shape::kCell;
    if (rest.starts_with(':')) {
      std::string_view behind = rest.substr(1);
      const std::optional<WrittenCorner> second = TakeCorner(behind);
      if (second && second->row.has_value() == first->row.has_value() &&
          second->column.has_value() == first->column.has_value()) {
        last = second;
        rest = behind;
        if (shape == Shape::kCell) shape = Shape::kArea;
      }
    }
    const auto corner = [](const WrittenCorner& written) {
      return Corner{written.row.value_or(Coordinate()), written.column.value_or(Coordinate())};
    };
    formula_.AddReference(shape, corner(*first), corner(*last));
    rest_ = rest;
    return true;
  }

  std::string_view rest_;
  Formula formula_;
};

Formula Formula::FromA1(std::string_view text, CellAddress at) {
  return A1Reader(text, at).Read();
}

Formula Formula::FromR1C1(std::string_view text) {
  return R1C1Reader(text).Read();
}

void Formula::AppendA1(std::string& text, CellAddress at) const {
  const auto row = [&](const Coordinate& coordinate) {
    if (coordinate.absolute) text.push_back('$');
    AppendNumber(text, coordinate.From(at.row));
  };
  const auto column = [&](const Coordinate& coordinate) {
    if (coordinate.absolute) text.push_back('$');
    AppendColumn(text, coordinate.From(at.column));
  };
  const auto corner = [&](const Piece& piece, const Corner& which) {
    if (piece.shape != Shape::kRows) column(which.column);
    if (piece.shape != Shape::kColumns) row(which.row);
  };
  const auto isInSheet = [&](const Piece& piece, const Corner& which) {
    return IsInSheet(piece.shape == Shape::kColumns ? 1 : which.row.From(at.row),
                     piece.shape == Shape::kRows ? 1 : which.column.From(at.column));
  };
  std::size_t start = 0;
  for (const Piece& piece : pieces_) {
    if (piece.shape == Shape::kText) {
      text.append(texts_, start, piece.length);
      start += piece.length;
    } else if (!isInSheet(piece, piece.first) || !isInSheet(piece, piece.last)) {
      text += "#REF!";
    } else {
      corner(piece, piece.first);
      if (piece.shape == Shape::kCell) continue;
      text.push_back(':');
      corner(piece, piece.last);
    }
  }
}

void Formula::AppendR1C1(std::string& text) const {
  const auto coordinate = [&](char letter, const Coordinate& which) {
    text.push_back(letter);
    if (!which.absolute && which.number == 0) return;
    if (!which.absolute) text.push_back('[');
    AppendNumber(text, which.number);
    if (!which.absolute) text.push_back(']');
  };
  const auto corner = [&](const Piece& piece, const Corner& which) {
    if (piece.shape != Shape::kColumns) coordinate('R', which.row);
    if (piece.shape != Shape::kRows) coordinate('C', which.column);
  };
  std::size_t start = 0;
  for (const Piece& piece : pieces_) {
    if (piece.shape == Shape::kText) {
      text.append(texts_, start, piece.length);
      start += piece.length;
    } else {
      corner(piece, piece.first);
      const bool isOneLine = piece.shape != Shape::kArea && piece.first == piece.last;  // "C2", not "C2:C2"
      if (piece.shape == Shape::kCell || isOneLine) continue;
      text.push_back(':');
      corner(piece, piece.last);
    }
  }
}

}  // namespace zorkanca::excel
