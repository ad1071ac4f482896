// Where the fields of a CSV record begin and end, by RFC 4180:
//
//   record = field { separator field } line-end        line-end: LF, CR LF, or the end of the text
//   field  = quoted | plain
//   quoted = '"' { any character but '"', or '""' } '"'
//   plain  = { any character but the separator, '"', CR and LF }
//
// One pass from left to right over bytes of UTF-8, in which no byte of another character is taken for one of these.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace zorkanca {

struct CsvField {
  std::string_view raw;  ///< without the outer quotation marks; those inside are still doubled
  bool isQuoted = false;
  bool hasDoubled = false;  ///< `""` stands in it
};

enum class CsvFault : std::uint8_t { kNone, kOpenQuote, kTextBehindQuote, kQuoteInside, kLoneReturn };

/// What stands at the start of a text.
enum class CsvScan : std::uint8_t {
  kRecord,
  kIncomplete,  ///< more of the text must be known
  kFault,
};

class CsvScanner {
 public:
  /// @param separator  a character of ASCII that is no quotation mark and no line end
  explicit CsvScanner(char separator);

  /// Scans one record.
  /// @param text        from the start of the record on, not empty
  /// @param isComplete  no text follows
  CsvScan Scan(std::string_view text, bool isComplete);

  /// Of the last record; they hold while its text does.
  const std::vector<CsvField>& fields() const { return fields_; }
  /// Bytes of the last record with its line end.
  std::size_t length() const { return length_; }
  /// Line ends inside its fields; up to the mark, after `kOpenQuote`.
  std::int64_t lineEnds() const { return lineEnds_; }
  /// After `CsvScan::kFault`: what, in the field behind those of `fields`.
  CsvFault fault() const { return fault_; }

 private:
  enum class Step : std::uint8_t { kSeparator, kLineEnd, kIncomplete, kFault };

  Step ScanQuoted(const char*& next, const char* end);
  Step ScanPlain(const char*& next, const char* end);
  Step ScanEnd(const char*& next, const char* end);
  Step Fail(CsvFault fault);

  char separator_;
  std::array<bool, 256> endsPlain_{};
  bool isComplete_ = false;
  std::vector<CsvField> fields_;
  std::size_t length_ = 0;
  std::int64_t lineEnds_ = 0;
  CsvFault fault_ = CsvFault::kNone;
};

}  // namespace zorkanca
