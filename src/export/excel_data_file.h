// The data file that Excel imports as text: ANSI, cells separated by ";", lines ended by CR LF. A record has as many
// lines as it takes rows in the sheet.
//
//   file   = [captions CR LF] {blank record} {record}
//   record = one line per row: cell {";" cell}
//   blank  = the same lines with a blank for the first cell and nothing for the others; nothing at all without cells
//   cell   = text, quoted as quoting.h says
#pragma once

#include <cstdint>

#include "platform/file_system.h"
#include "runtime/text.h"

namespace zorkanca {

/// Rows of a sheet, and UTF-16 units of the text in one cell, that Excel can take.
inline constexpr std::int64_t kSheetRowLimit = 1048576;
inline constexpr std::size_t kCellTextLimit = 32767;

/// Errors: 6 with a description when a sheet cannot hold so many rows.
void CheckSheetRows(std::int64_t rows);

class ExcelDataFile {
 public:
  /// @param stream  open for writing in `TextFormat::kAnsi`; outlives this object
  explicit ExcelDataFile(TextStream& stream) : stream_(stream) {}

  /// Writes the line of captions, as they are. Errors: those of the stream, here and below.
  void WriteHeader(TextView captions);
  /// Writes one line of a blank record.
  void WriteBlankLine(std::int32_t cellCount);

  /// Begins the next cell of the current record.
  /// @return the place to append what the file shall hold; it never holds a separator, a quote or a line break
  Text& BeginCell();
  /// Adds a cell with a text, quoted where it has to be. Errors: 6 when no cell can hold it.
  void AddText(TextView text);
  /// Ends a line of the current record.
  void EndLine();

  /// Writes the lines of the current record. Errors: 6 when the file has more lines than a sheet has rows.
  void WriteRecord();
  /// Begins the next record.
  void ClearRecord();

 private:
  void CountLines(std::int64_t lines);

  TextStream& stream_;
  std::int64_t lines_ = 0;        // written
  Text record_;                   // lines of the current one, kept for its room
  std::int64_t recordLines_ = 0;  // of the current one
  bool lineHasCells_ = false;
};

/// Errors: 6 with a description when no cell can hold the text.
void CheckCellText(TextView text);

}  // namespace zorkanca
