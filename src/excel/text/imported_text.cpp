// The file is read twice. The first walk counts rows and columns and refuses what no sheet holds, before anything is
// made; it notes where every 256th record begins. Afterwards records are read again whenever a row is asked for: the
// next ones one behind the other, others from the nearest note on, so that a row in the middle costs at most 256
// records.
//
// Fields are bytes of the file, or of a buffer where quotes and line ends were taken out; their values are put into one
// buffer that is reserved for the whole record before the first of them, so that views into it stay valid. ASCII is
// passed on as it is. Both walks are linear in the file and hold a window of it and one record.
#include "excel/text/imported_text.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "excel/grid/excel_errors.h"
#include "files/native_path.h"
#include "files/system_error.h"
#include "runtime/code_page.h"
#include "runtime/utf8.h"

namespace zorkanca::excel {

namespace {

constexpr std::int32_t kMarkDistance = 256;

std::shared_ptr<const OpenedText> OpenFile(const std::string& path, char delimiter, bool isUtf8) {
  const auto text = std::make_shared<OpenedText>();
  text->path = path;
  text->delimiter = delimiter;
  text->isUtf8 = isUtf8;
  text->file = FileDescriptor(Uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC); }));
  if (!text->file && errno == ENOENT) {
    RaiseExcelError(Text(u"The file ").append(FromNativePath(path)).append(u" could not be found."));
  }
  if (!text->file) RaisePathError(errno, path);
  struct stat status {};
  if (fstat(text->file.get(), &status) != 0) RaisePathError(errno, path);
  if (!S_ISREG(status.st_mode)) RaiseExcelError(Text(FromNativePath(path)).append(u" is no text file."));
  text->size = static_cast<std::uint64_t>(status.st_size);
  return text;
}

constexpr std::int32_t kUtf8Origin = 65001;

// The arguments that the exports never vary; another value would mean another result.
char RequireDelimiter(const OpenTextArguments& arguments) {
  if (arguments.Origin != 2 && arguments.Origin != kUtf8Origin)
    RaiseUnsupportedExcelMember(u"Workbooks.OpenText with another Origin");
  if (arguments.DataType != 1) RaiseUnsupportedExcelMember(u"Workbooks.OpenText with fixed widths");
  if (arguments.TextQualifier != 1) RaiseUnsupportedExcelMember(u"Workbooks.OpenText with another TextQualifier");
  if (arguments.ConsecutiveDelimiter) RaiseUnsupportedExcelMember(u"Workbooks.OpenText with ConsecutiveDelimiter");
  std::string delimiters;
  if (arguments.Tab) delimiters.push_back('\t');
  if (arguments.Semicolon) delimiters.push_back(';');
  if (arguments.Comma) delimiters.push_back(',');
  if (arguments.Space) delimiters.push_back(' ');
  if (arguments.Other && !arguments.OtherChar.empty() && arguments.OtherChar[0] < 128) {
    delimiters.push_back(static_cast<char>(arguments.OtherChar[0]));
  }
  if (delimiters.size() != 1) RaiseUnsupportedExcelMember(u"Workbooks.OpenText with other than one delimiter");
  return delimiters[0];
}

// The UTF-8 of each byte of a code page.
class Utf8Table {
 public:
  explicit Utf8Table(const CodePage& page) {
    for (std::size_t byte = 0; byte < 256; ++byte) {
      const char16_t unit = page.Decode(static_cast<std::uint8_t>(byte));
      const std::string bytes = ToUtf8(TextView(&unit, 1));
      entries_[byte].length = static_cast<std::uint8_t>(bytes.size());
      std::copy(bytes.begin(), bytes.end(), entries_[byte].bytes.begin());
    }
  }

  // Longest form of one byte.
  static constexpr std::size_t kWidest = 3;

  char* Put(char* out, std::string_view bytes) const {
    for (const char byte : bytes) {
      const Entry& entry = entries_[static_cast<unsigned char>(byte)];
      out = std::copy(entry.bytes.begin(), entry.bytes.begin() + entry.length, out);
    }
    return out;
  }

 private:
  struct Entry {
    std::array<char, kWidest> bytes{};
    std::uint8_t length = 0;
  };
  std::array<Entry, 256> entries_;
};

bool IsAscii(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

class ImportedText::TextCursor final : public Cursor {
 public:
  explicit TextCursor(std::shared_ptr<const ImportedText> block)
      : block_(std::move(block)), records_(block_->text_), utf8_(*block_->locale_.codePage) {}

  const std::vector<Content>& Row(std::int32_t row) override {
    if (row == current_ || block_->marks_.empty()) return contents_;
    if (row < next_ || row - next_ > kMarkDistance) {
      const std::int32_t mark = row / kMarkDistance;
      records_.Seek(block_->marks_[static_cast<std::size_t>(mark)]);
      next_ = mark * kMarkDistance;
    }
    for (; next_ < row; ++next_) records_.Next();
    ++next_;
    current_ = row;
    contents_.clear();
    if (records_.Next()) ReadContents();
    return contents_;
  }

 private:
  void ReadContents() {
    const std::vector<std::string_view>& fields = records_.fields();
    const std::size_t room =
        2 * Utf8Table::kWidest * records_.length() + GeneralReader::kLongestValue * (fields.size() + 1);
    if (bytes_.size() < room) bytes_.resize(2 * room);
    out_ = bytes_.data();
    for (std::size_t column = 0; column < fields.size(); ++column) {
      contents_.push_back(fields[column].empty() ? Content() : Read(fields[column], block_->IsText(column)));
    }
  }

  Content Read(std::string_view field, bool isTextColumn) {
    if (!isTextColumn) {
      Content content = block_->reader_.Read(block_->text_->isUtf8 ? InAnsi(field) : field, out_);
      if (content.kind != CellKind::kText) {
        out_ += content.text.size();
        content.shown = Shown(content, field);
        return content;
      }
    }
    const bool lines = field.find('\n') != field.npos;
    Content content{.kind = CellKind::kText, .hasLines = lines};
    content.format = isTextColumn ? (lines ? ContentFormat::kTextLines : ContentFormat::kText)
                                  : (lines ? ContentFormat::kGeneralLines : ContentFormat::kGeneral);
    content.text = content.shown = InUtf8(field);
    return content;
  }

  // What the cell shows, as far as the field tells it; nothing where its format may show more.
  std::string_view Shown(const Content& content, std::string_view field) {
    if (content.kind == CellKind::kBoolean) return content.text == "1" ? block_->trueWord_ : block_->falseWord_;
    if (content.format == ContentFormat::kGeneral) return content.text;
    return block_->ShowsAsSpelled(content.format, field) ? InUtf8(field) : std::string_view();
  }

  // What the reader of numbers and dates knows; a text is not taken from here.
  std::string_view InAnsi(std::string_view field) {
    if (IsAscii(field)) return field;
    ansi_.clear();
    block_->locale_.codePage->AppendEncoded(ansi_, FromUtf8(field));
    return ansi_;
  }

  std::string_view InUtf8(std::string_view field) {
    if (block_->text_->isUtf8 || IsAscii(field)) return field;
    const char* const start = out_;
    out_ = utf8_.Put(out_, field);
    return {start, static_cast<std::size_t>(out_ - start)};
  }

  std::shared_ptr<const ImportedText> block_;
  RecordReader records_;
  Utf8Table utf8_;
  std::vector<char> bytes_;
  std::string ansi_;
  char* out_ = nullptr;
  std::vector<Content> contents_;
  std::int32_t current_ = -1;
  std::int32_t next_ = kLastRow;  // behind every row: the first one is looked for
};

std::shared_ptr<const ImportedText> ImportedText::Open(const std::string& path, const OpenTextArguments& arguments,
                                                       const Locale& locale, const ExcelWatch& watch) {
  const char delimiter = RequireDelimiter(arguments);
  std::shared_ptr<ImportedText> block(
      new ImportedText(OpenFile(path, delimiter, arguments.Origin == kUtf8Origin), arguments, locale));
  block->Count(std::max(arguments.StartRow - 1, 0), watch);
  return block;
}

ImportedText::ImportedText(std::shared_ptr<const OpenedText> text, const OpenTextArguments& arguments,
                           const Locale& locale)
    : text_(std::move(text)),
      locale_(locale),
      reader_(locale, arguments.DecimalSeparator.value_or(locale.decimalSeparator),
              arguments.ThousandsSeparator.value_or(locale.groupSeparator)),
      trueWord_(ToUtf8(UpperCase(locale.trueWord))),
      falseWord_(ToUtf8(UpperCase(locale.falseWord))),
      shortDateIsShortest_(locale.shortDate.find(u' ') == Text::npos && locale.shortDate.find(u"dd") == Text::npos &&
                           locale.shortDate.find(u"mm") == Text::npos) {
  for (const ExcelColumnInfo& info : arguments.FieldInfo) {
    if (info.column < 1 || info.column > kLastColumn || info.type != ExcelColumnType::kText) continue;
    textColumns_.resize(std::max(textColumns_.size(), static_cast<std::size_t>(info.column)));
    textColumns_[static_cast<std::size_t>(info.column) - 1] = true;
  }
}

// Grouped numbers are shown with two decimals or none, dates with four digits of the year. Other formats show more than
// some of the fields that they are given for: 12E3 is 1.20E+04.
bool ImportedText::ShowsAsSpelled(ContentFormat format, std::string_view field) const {
  const auto isDigit = [&](std::size_t fromEnd) {
    return field.size() >= fromEnd && field[field.size() - fromEnd] >= '0' && field[field.size() - fromEnd] <= '9';
  };
  switch (format) {
    case ContentFormat::kGrouped:
      return true;
    case ContentFormat::kGroupedDecimals:
      return isDigit(1) && isDigit(2);
    case ContentFormat::kDate:
      return shortDateIsShortest_ && isDigit(1) && isDigit(2) && isDigit(3) && isDigit(4);
    default:
      return false;
  }
}

void ImportedText::Count(std::int32_t skippedRows, const ExcelWatch& watch) {
  RecordReader records(text_);
  for (std::int32_t skipped = 0; skipped < skippedRows && records.Next();) ++skipped;
  std::size_t widest = 1;
  std::size_t firstRowFilled = 0;
  WatchedWork work(watch, ExcelWork::kImporting, text_->size);
  for (std::uint64_t offset = records.offset(); records.Next(); offset = records.offset()) {
    work.Reach(offset);
    if (rows_ == kLastRow) RaiseExcelError(u"The data have more than 1048576 rows, which is more than a sheet holds.");
    if (rows_ % kMarkDistance == 0) marks_.push_back(offset);
    const std::vector<std::string_view>& fields = records.fields();
    if (fields.size() > std::size_t{kLastColumn}) {
      RaiseExcelError(u"The data have more than 16384 columns, which is more than a sheet holds.");
    }
    const auto isFilled = [](std::string_view field) { return !field.empty(); };
    widest = std::max(widest, fields.size());
    if (rows_ == 0) firstRowFilled = static_cast<std::size_t>(std::count_if(fields.begin(), fields.end(), isFilled));
    isConnected_ = isConnected_ && std::any_of(fields.begin(), fields.end(), isFilled);
    ++rows_;
  }
  columns_ = static_cast<std::int32_t>(widest);
  isConnected_ = isConnected_ && rows_ > 0 && firstRowFilled == widest;
}

std::string ImportedText::AmountPattern(bool decimals) const {
  const std::string number = CellSource::AmountPattern(decimals);
  const std::string symbol = '"' + ToUtf8(locale_.currencySymbol) + '"';
  const std::string space = locale_.currencySpaced ? "\\ " : "";
  return locale_.currencyAfterNumber ? number + space + symbol : symbol + space + number;
}

std::unique_ptr<CellSource::Cursor> ImportedText::Open() const {
  return std::make_unique<TextCursor>(shared_from_this());
}

}  // namespace zorkanca::excel
