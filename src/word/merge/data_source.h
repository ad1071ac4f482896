// The data file of a mail merge, as the merge data file of the exports is written:
//
//   file     header, records; UTF-16 with byte-order mark, UTF-8 with byte-order mark, or the ANSI code page
//   header   names with ";" between them, up to the first line end
//   record   values with ";" between them, ended by CR LF or the end of the file; a short one leaves columns empty
//   value    "..." with quotes doubled, holding anything, or plain text, in which a lone CR or LF is text
//
// A file whose header ends with a lone LF has records ended by LF. A quote inside a quoted value that no ";" and no
// line end follows is text. Doubled quotes count as one in plain text too.
#pragma once

#include <string>
#include <vector>

#include "runtime/code_page.h"
#include "runtime/text.h"
#include "word/merge/record_store.h"

namespace zorkanca::word {

class DataSource {
 public:
  /// Reads the file once, from front to back.
  /// @param path      native path
  /// @param codePage  of a file without byte-order mark
  /// Errors: 5174 when it is missing, 5 when it has no header or ends inside a quoted value; 70, 75, 57.
  DataSource(const std::string& path, const CodePage& codePage);

  const std::string& path() const { return path_; }

  const std::vector<Text>& columns() const { return columns_; }
  const RecordStore& records() const { return records_; }

  /// The column of a field name: spelled exactly so, else ignoring case, else with "_" for the blanks of the column.
  /// @return -1 when there is none
  std::ptrdiff_t ColumnOf(TextView fieldName) const;

 private:
  void Read(const CodePage& codePage);

  std::string path_;
  std::vector<Text> columns_;
  RecordStore records_;
};

}  // namespace zorkanca::word
