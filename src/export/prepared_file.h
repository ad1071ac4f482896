// Data that the caller has prepared instead of handing over a query: a file with the column names, and one with a
// record per line. Both are ANSI texts, unless the caller prefers another encoding.
//
//   header   = names separated by ";", may be followed by a bar-code specification
//   data     = {record CR LF}     one blank line at the end is no record; a lone CR or LF belongs to its value
//   record   = value {";" value}
//   value    = any characters; '"' switches quoting on and off wherever it stands, within quotes '""' is a '"' and
//              ";" is an ordinary character
//
// Example: the line a;"x;""y""";  has the values a, x;"y" and an empty one.
#pragma once

#include <vector>

#include "export/export_context.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace zorkanca {

/// The header file is missing, or holds nothing but blanks.
inline constexpr TextView kHeaderFileNotFound = u"Hlavičkový soubor nebyl nalezen !";
inline constexpr TextView kHeaderFileEmpty = u"Hlavičkový soubor je prázdný !";
/// The data file is missing.
inline constexpr TextView kDataFileNotFound = u"Datový soubor nebyl nalezen !";

/// The text of a header file, trimmed. Errors: stops the export when the file is missing or blank; those of files.
Text ReadPreparedHeader(const ExportContext& context, const Text& path);

/// The records of a data file, one line each; read whole, because their number has to be known before the first.
class PreparedData {
 public:
  /// Errors: stops the export when the file is missing, cannot be read or has no records.
  PreparedData(const ExportContext& context, const Text& path);
  PreparedData(const PreparedData&) = delete;
  PreparedData& operator=(const PreparedData&) = delete;

  const std::vector<TextView>& lines() const { return lines_; }

 private:
  void SplitLines();

  Text text_;
  std::vector<TextView> lines_;  // of text_
};

/// Error 9 that tells of a line with fewer values than there are columns, by its number.
/// @param line  one of `data.lines()`
Error ShortLine(const PreparedData& data, TextView line, TextView path, std::size_t values, std::size_t columns);

/// Splits one line into its values, at least one; `values` is overwritten and keeps its room.
void SplitColumnsFromDataRow(TextView row, std::vector<Text>& values);

}  // namespace zorkanca
