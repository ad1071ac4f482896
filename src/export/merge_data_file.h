// The data file of a mail merge, as Word reads it: UTF-16 with byte-order mark, values separated by ";", lines ended by
// CR LF. First the column names, unquoted, then blank records, then the data.
#pragma once

#include <cstdint>
#include <memory>

#include "export/export_session.h"
#include "platform/file_system.h"
#include "runtime/code_page.h"
#include "runtime/text.h"

namespace zorkanca {

/// The two characters that stand for a CR LF inside a value where each record has to be one line: characters 215 and
/// 182 of the ANSI page.
Text LineBreakPlaceholder(const CodePage& codePage);

class MergeDataFile {
 public:
  /// What becomes of a CR LF inside a value.
  enum class LineBreaks {
    kKept,          ///< it stays, within the value's quotes
    kPlaceholders,  ///< it becomes two characters, so that each record is one line: one document is made of each
  };

  /// @param stream    open for writing in `TextFormat::kUnicode`; outlives this object
  /// @param codePage  the ANSI page of the placeholders
  MergeDataFile(TextStream& stream, LineBreaks lineBreaks, const CodePage& codePage);

  /// Writes the line of column names, as they are.
  void WriteHeader(TextView names) { stream_.WriteLine(names); }
  /// Writes empty records.
  /// @param valueCount  values of a record, the bar code included
  void WriteBlankRecords(std::int16_t count, std::int32_t valueCount);

  /// Adds the next value to the current record, quoted where it has to be.
  void AppendValue(TextView value);
  /// Adds the text of a bar code: a quote before its first double quote only, enclosed when it holds ";".
  void AppendBarCode(TextView code);
  /// Writes the record so many times (0 or less: not at all) and starts the next one.
  void EndRecord(std::int32_t copies);

 private:
  void AppendSeparator();
  void ReplaceLineBreaks(std::size_t start);

  TextStream& stream_;
  LineBreaks lineBreaks_;
  Text placeholder_;
  Text line_;               // of the current record, kept for its room
  bool hasValues_ = false;  // of the current record
};

/// Creates the data file of an export.
/// @param rsSourceFile   path, settled by `OutputPathInWorkFolder`; receives the path
/// @param multiDocument  one document is made of each record
/// Errors: those of files.
MergeDataFile OpenMergeDataFile(ExportSession& session, Text& rsSourceFile, bool multiDocument);

/// Errors: 13 with a description for a file that is no text in UTF-16, least byte first, which reading it as Unicode
/// would take for a header without records; those of files.
void RequireUnicode(const Platform& platform, const Text& path);

/// Reads such a file line by line where each record is one line. The end of the header settles what ends a line: after
/// CR LF, a lone CR or LF belongs to its value; a header that ends with a lone LF is that of another program's file.
class MergeDataLines {
 public:
  /// Errors: those of files.
  MergeDataLines(FileSystem& files, const Text& path);

  /// Takes the next line, without its end. @return false when there is none. Errors: those of files.
  bool Next(Text& line);

 private:
  bool ReadPiece();

  std::unique_ptr<TextStream> stream_;
  TextView lineEnd_;  // unknown, empty, until the header was read
  Text piece_;
  std::size_t position_ = 0;  // of the next line in piece_
};

}  // namespace zorkanca
