// Takes the units of a delimited text one by one and gives out names and values; data_source.h says what is accepted.
#pragma once

#include <vector>

#include "runtime/text.h"
#include "word/merge/record_store.h"

namespace zorkanca::word {

class DelimitedParser {
 public:
  /// @param columns  gets the names of the header
  /// @param records  gets the records
  DelimitedParser(std::vector<Text>& columns, RecordStore& records) : columns_(columns), records_(records) {}

  void Feed(TextView units);
  /// Ends the text. Errors: 5 without header or inside a quoted value.
  void Finish();

 private:
  enum class State {
    kHeader,       ///< before the first line end
    kStart,        ///< before a value
    kPlain,        ///< in a value without quotes
    kPlainQuote,   ///< after a quote there
    kPlainCr,      ///< after a CR there, which may end the record
    kQuoted,       ///< in a quoted value
    kQuotedQuote,  ///< after a quote there, which may end the value
    kQuotedCr,     ///< after such a quote and a CR
  };

  void Take(char16_t unit);
  void TakeHeader(char16_t unit);
  void TakeStart(char16_t unit);
  void TakePlain(char16_t unit);
  void TakeAfterQuote(char16_t unit);
  void EndHeader();
  void EndValue();
  void EndRecord();

  std::vector<Text>& columns_;
  RecordStore& records_;
  State state_ = State::kHeader;
  bool endsWithLf_ = false;  // records end with a lone LF
  bool inRecord_ = false;    // some value of the record has ended
  Text value_;
};

}  // namespace zorkanca::word
