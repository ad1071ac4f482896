// A cell is a byte of kind and flags, the length of its text in groups of seven bits, and the text; formulas are kept
// aside and named by number. The offset of each row is noted, so that any row can be read, and a row is read from left
// to right. Nothing is ever changed, only added at the end.
#include "excel/sheet/packed_contents.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>

#include "excel/grid/excel_errors.h"
#include "excel/text/general_reader.h"
#include "opc/xml_escape.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::excel {

namespace {

constexpr unsigned char kQuoted = 0x40;
constexpr unsigned char kMissing = 0x80;
constexpr unsigned char kLines = 0x20;
constexpr unsigned char kKindBits = 0x0F;

struct ErrorName {
  std::int32_t number;
  std::string_view text;
};
constexpr std::array kErrors = std::to_array<ErrorName>({{2000, "#NULL!"},
                                                         {2007, "#DIV/0!"},
                                                         {2015, "#VALUE!"},
                                                         {2023, "#REF!"},
                                                         {2029, "#NAME?"},
                                                         {2036, "#NUM!"},
                                                         {2042, "#N/A"}});

const GeneralReader& EnglishReader() {
  static const Locale& english = *FindLocale(u"en-US");
  static const GeneralReader reader(english, english.decimalSeparator, english.groupSeparator);
  return reader;
}

}  // namespace

std::string_view ErrorTextOf(std::int32_t number) {
  const auto* found =
      std::find_if(kErrors.begin(), kErrors.end(), [&](const ErrorName& one) { return one.number == number; });
  return found == kErrors.end() ? std::string_view("#N/A") : found->text;
}

std::int32_t ErrorNumberOf(std::string_view text) {
  const auto* found =
      std::find_if(kErrors.begin(), kErrors.end(), [&](const ErrorName& one) { return one.text == text; });
  return found == kErrors.end() ? 2042 : found->number;
}

void PackedContents::Add(const CellGrid& contents) {
  const std::size_t bytesBefore = bytes_.size();
  const std::size_t rowsBefore = rowOffsets_.size();
  try {
    for (std::int32_t row = 0; row < contents.rows(); ++row) {
      rowOffsets_.push_back(bytes_.size());
      for (std::int32_t column = 0; column < columns_; ++column) AddCell(contents.At(row, column));
    }
  } catch (...) {
    bytes_.resize(bytesBefore);
    rowOffsets_.resize(rowsBefore);
    throw;
  }
}

void PackedContents::AddPiece(CellKind kind, bool quotePrefix, std::string_view text) {
  const bool hasLines = kind == CellKind::kText && text.find('\n') != text.npos;
  bytes_.push_back(
      static_cast<char>(static_cast<unsigned>(kind) | (quotePrefix ? kQuoted : 0U) | (hasLines ? kLines : 0U)));
  std::size_t length = text.size();
  for (; length >= 0x80; length >>= 7) bytes_.push_back(static_cast<char>(0x80 | (length & 0x7F)));
  bytes_.push_back(static_cast<char>(length));
  bytes_ += text;
}

void PackedContents::AddCell(const Value& value) {
  if (IsEmptyValue(value)) return AddPiece(CellKind::kBlank, false, {});
  if (IsNull(value)) {
    AddPiece(CellKind::kBlank, false, {});
    bytes_[bytes_.size() - 2] = static_cast<char>(kMissing);
    return;
  }
  if (const auto* text = std::get_if<Text>(&value)) return AddText(*text);
  if (const auto* truth = std::get_if<bool>(&value)) return AddPiece(CellKind::kBoolean, false, *truth ? "1" : "0");
  if (const auto* object = std::get_if<ObjectReference>(&value)) {
    const auto* error = dynamic_cast<const CellError*>(object->get());
    if (!error) Raise(RuntimeError::kTypeMismatch);
    return AddPiece(CellKind::kError, false, ErrorTextOf(error->number));
  }
  const double number = ToDouble(value, *FindLocale(u"en-US"));
  if (!std::isfinite(number)) Raise(RuntimeError::kOverflow);
  char digits[32];
  const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
  AddPiece(CellKind::kNumber, false, {digits, static_cast<std::size_t>(end - digits)});
}

Entry ReadEntry(TextView text) {
  const bool quoted = text.starts_with(u'\'');
  const TextView content = text.substr(quoted ? 1 : 0);
  if (content.size() > kLongestText) {
    RaiseExcelError(u"A value has more than 32767 characters, which is more than a cell holds.");
  }
  if (content.empty()) return {};
  std::string utf8 = XmlCharacters(content);
  if (quoted) return {.kind = CellKind::kText, .quotePrefix = true, .content = std::move(utf8)};
  if (content.starts_with(u'=') && content.size() > 1) return {.kind = CellKind::kFormula, .content = utf8.substr(1)};
  char buffer[GeneralReader::kLongestValue];
  const Content read = EnglishReader().Read(utf8, buffer);
  if (read.kind != CellKind::kText) return {.kind = read.kind, .content = std::string(read.text)};
  return {.kind = CellKind::kText, .content = std::move(utf8)};
}

void PackedContents::AddText(const Text& text) {
  const Entry entry = ReadEntry(text);
  if (entry.kind != CellKind::kFormula) return AddPiece(entry.kind, entry.quotePrefix, entry.content);
  AddPiece(entry.kind, false, std::to_string(formulas_.size()));
  formulas_.push_back(Formula::FromR1C1(entry.content));
}

class PackedContents::PackedCursor final : public Cursor {
 public:
  explicit PackedCursor(const PackedContents& block) : block_(block) {}

  const std::vector<Content>& Row(std::int32_t row) override {
    contents_.clear();
    std::string_view rest =
        std::string_view(block_.bytes_).substr(block_.rowOffsets_.at(static_cast<std::size_t>(row)));
    for (std::int32_t column = 0; column < block_.columns_; ++column) contents_.push_back(Take(rest));
    return contents_;
  }

 private:
  Content Take(std::string_view& rest) const {
    const auto flags = static_cast<unsigned char>(rest.front());
    std::size_t length = 0;
    std::size_t at = 1;
    for (unsigned shift = 0;; shift += 7) {
      const auto byte = static_cast<unsigned char>(rest[at++]);
      length |= std::size_t{byte & 0x7FU} << shift;
      if (byte < 0x80) break;
    }
    Content content{.kind = static_cast<CellKind>(flags & kKindBits),
                    .quotePrefix = (flags & kQuoted) != 0,
                    .missing = (flags & kMissing) != 0,
                    .text = rest.substr(at, length)};
    content.shown = content.text;
    content.hasLines = (flags & kLines) != 0;
    rest.remove_prefix(at + length);
    if (content.kind != CellKind::kFormula) return content;
    std::size_t index = 0;
    std::from_chars(content.text.data(), content.text.data() + content.text.size(), index);
    content.formula = &block_.formulas_[index];
    return content;
  }

  const PackedContents& block_;
  std::vector<Content> contents_;
};

std::unique_ptr<CellSource::Cursor> PackedContents::Open() const {
  return std::make_unique<PackedCursor>(*this);
}

}  // namespace zorkanca::excel
