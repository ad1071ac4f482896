#include "barcode/bar_code_items.h"

#include <algorithm>
#include <cmath>

#include "platform/field_types.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr char16_t kFieldSeparator = u';';
constexpr char16_t kItemSeparator = u'|';
constexpr char16_t kKindSeparator = u',';
constexpr double kMaximalWidth = 32767;
constexpr std::size_t kNowhere = TextView::npos;

// A width as it is counted; fractions are rounded to even, nothing is shorter than no character.
std::size_t WidthOf(double number) {
  const double width = std::nearbyint(number);
  if (width > kMaximalWidth) Raise(RuntimeError::kOverflow, u"A width in the bar code's parameters is above 32767");
  return width > 0 ? static_cast<std::size_t>(width) : 0;
}

[[noreturn]] void RaiseMissingBracket(TextView kind) {
  Raise(RuntimeError::kInvalidCall, u"The bar code's item kind \"" + Text(kind) + u"\" lacks a bracket");
}

// The bracketed part of an alignment in its kind, and the padding character that it names.
struct Bracket {
  std::size_t open;
  std::size_t close;
  char16_t padding;
};

// Brackets may be padding characters themselves: the closing one is looked for behind the padding's place first.
Bracket RightBracket(TextView kind, std::size_t arrow) {
  std::size_t close = kind.find(u']', arrow + 4);
  if (close == kNowhere) close = kind.find(u']', arrow);
  if (close == kNowhere) RaiseMissingBracket(kind);
  return {.open = arrow, .close = close, .padding = kind[close - 1]};
}

Bracket LeftBracket(TextView kind, std::size_t arrow) {
  const bool adjacent = arrow >= 2 && kind[arrow - 2] == u'[';
  const std::size_t open = adjacent ? arrow - 2 : kind.substr(0, arrow).find(u'[');
  if (open == kNowhere) RaiseMissingBracket(kind);
  return {.open = open, .close = arrow + 2, .padding = kind[open + 1]};
}

void SetAlignment(BarCodeItem& item, BarCodeItemKind alignment, TextView kind, const Bracket& bracket) {
  const TextView width = bracket.open == 0 ? kind.substr(bracket.close + 1) : kind.substr(0, bracket.open);
  item.kind = alignment;
  item.width = std::max<std::size_t>(1, WidthOf(Val(width)));
  item.padding = bracket.padding;
}

// The first kind that fits counts: a text may contain the marks of several.
void SetKind(BarCodeItem& item, TextView kind, const Locale& locale) {
  if (kind == u"'") {
    item.kind = BarCodeItemKind::kLiteral;
  } else if (EqualsIgnoringCase(kind, u"trim")) {
    item.kind = BarCodeItemKind::kTrimmed;
  } else if (kind == u"[01]") {
    item.kind = BarCodeItemKind::kEvenLength;
  } else if (kind.find(u"[+a]") != kNowhere) {
    item.kind = BarCodeItemKind::kUpperAsPlus;
  } else if (kind.find(u"[+A]") != kNowhere) {
    item.kind = BarCodeItemKind::kLowerAsPlus;
  } else if (const std::size_t right = kind.find(u"[->"); right != kNowhere) {
    SetAlignment(item, BarCodeItemKind::kRightAligned, kind, RightBracket(kind, right));
  } else if (const std::size_t left = kind.find(u"<-]"); left != kNowhere) {
    SetAlignment(item, BarCodeItemKind::kLeftAligned, kind, LeftBracket(kind, left));
  } else if (const std::optional<double> number = ParseNumber(kind, locale)) {
    item.width = WidthOf(*number);
    if (item.width == 0) return;
    item.kind = BarCodeItemKind::kExactWidth;
    item.zeros.emplace(Text(item.width, u'0'));
  }
}

BarCodeItem ParseItem(TextView piece, const Locale& locale) {
  const std::size_t comma = piece.find(kKindSeparator);
  TextView text = Trim(piece.substr(0, comma));
  TextView kind = comma == kNowhere ? text : Trim(piece.substr(comma + 1));
  if (text.size() >= 2 && text.front() == u'\'' && text.back() == u'\'') {
    text = text.substr(1, text.size() - 2);
    kind = u"'";
  }
  BarCodeItem item;
  item.text = text;
  SetKind(item, kind, locale);
  return item;
}

std::vector<BarCodeItem> ParseItems(TextView list, const Locale& locale) {
  list = Trim(list);
  if (list.starts_with(kItemSeparator)) list.remove_prefix(1);
  if (list.ends_with(kItemSeparator)) list.remove_suffix(1);
  std::vector<BarCodeItem> items;
  for (const TextView piece : Split(list, kItemSeparator)) items.push_back(ParseItem(piece, locale));
  return items;
}

void TrimFrom(Text& text, std::size_t start) {
  const TextView trimmed = Trim(TextView(text).substr(start));
  const std::size_t length = trimmed.size();
  text.erase(start, static_cast<std::size_t>(trimmed.data() - text.data()) - start);
  text.resize(start + length);
}

void AppendTrimmed(Text& text, const Value& value, const Locale& locale) {
  if (IsNull(value)) return;
  if (const Text* stored = std::get_if<Text>(&value)) {
    text.append(Trim(*stored));
    return;
  }
  const std::size_t start = text.size();
  AppendText(text, value, locale);
  TrimFrom(text, start);
}

constexpr char16_t kCaseDistance = u'a' - u'A';

// Letters from `first` to its 25th successor, from `start` on, become "+" and the letter of the other case.
void MarkLetters(Text& text, std::size_t start, char16_t first) {
  const auto isMarked = [first](char16_t unit) { return unit >= first && unit < first + 26; };
  const Text plain = text.substr(start);
  text.resize(start);
  for (const char16_t unit : plain) {
    if (isMarked(unit)) text.push_back(u'+');
    text.push_back(isMarked(unit) ? static_cast<char16_t>(unit ^ kCaseDistance) : unit);
  }
}

std::size_t MissingTo(std::size_t width, std::size_t length) {
  return width > length ? width - length : 0;
}

void AppendExactWidth(Text& content, const BarCodeItem& item, const Value& value, FieldType type,
                      const Locale& locale) {
  const std::size_t start = content.size();
  if (!IsNull(value)) {
    if (IsNumericType(type)) {
      item.zeros->Append(content, value, locale);
    } else {
      AppendText(content, value, locale);
    }
  }
  // What has no value keeps its place in the content as blanks: zeros would claim a value.
  content.insert(start, MissingTo(item.width, content.size() - start), u' ');
  content.resize(start + item.width);
}

}  // namespace

BarCodeParameters ParseBarCodeParameters(TextView parameters, const Locale& locale) {
  const std::vector<TextView> fields = Split(parameters, kFieldSeparator);
  if (fields.size() < 4) {
    Raise(RuntimeError::kSubscriptOutOfRange,
          u"The bar code's parameters must be symbology;items;output column;check flag, not \"" + Text(parameters) +
              u"\"");
  }
  return {.symbology = Text(fields[0]),
          .items = ParseItems(fields[1], locale),
          .outputColumn = Text(fields[2]),
          .checkCharacter = Trim(fields[3]) == u"1"};
}

bool AppendBarCodeItem(Text& content, const BarCodeItem& item, const Value& value, FieldType type,
                       const Locale& locale) {
  const std::size_t start = content.size();
  switch (item.kind) {
    case BarCodeItemKind::kNothing:
    case BarCodeItemKind::kLiteral:
      break;
    case BarCodeItemKind::kTrimmed:
      if (IsNull(value)) return false;
      AppendTrimmed(content, value, locale);
      break;
    case BarCodeItemKind::kEvenLength:
      if (IsNull(value)) {
        content.push_back(u'0');
      } else {
        AppendTrimmed(content, value, locale);
      }
      content.insert(start, (content.size() - start) % 2, u'0');
      break;
    case BarCodeItemKind::kUpperAsPlus:
      AppendTrimmed(content, value, locale);
      MarkLetters(content, start, u'A');
      break;
    case BarCodeItemKind::kLowerAsPlus:
      AppendTrimmed(content, value, locale);
      MarkLetters(content, start, u'a');
      break;
    case BarCodeItemKind::kRightAligned:
      AppendTrimmed(content, value, locale);
      content.insert(start, MissingTo(item.width, content.size() - start), item.padding);
      break;
    case BarCodeItemKind::kLeftAligned:
      AppendTrimmed(content, value, locale);
      content.append(MissingTo(item.width, content.size() - start), item.padding);
      break;
    case BarCodeItemKind::kExactWidth:
      AppendExactWidth(content, item, value, type, locale);
      break;
  }
  return true;
}

}  // namespace zorkanca
