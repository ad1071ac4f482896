// The records of a query written as the data file of a mail merge: the step that all Word exports over a query begin
// with.
#pragma once

#include <vector>

#include "barcode/bar_code.h"
#include "export/column_names.h"
#include "export/export_session.h"
#include "export/merge_data_file.h"
#include "export/query_reader.h"
#include "formats/column_formats.h"

namespace zorkanca {

struct QueryMergeDataOptions {
  bool multiDocument = false;  ///< one document per record: line breaks become placeholders, no percent is reported
  std::span<const Text> formats{};           ///< of the columns
  cBarCode* barCode = nullptr;               ///< encodes the last column; its recordset is that of the query
  std::int16_t* checkpointNumber = nullptr;  ///< follows the steps of the writing from 3 to 7; null: nobody asks
};

/// Writes the file.
/// @param reader        stands on the first record of its query
/// @param rsFieldNames  column names separated by ";"; receives the header as it was written
/// @param rsSourceFile  path of the file, settled by `OutputPathInWorkFolder`; receives the path
/// Errors: those of the file, the values and the formats; stops the export when the caller cancels.
void WriteQueryMergeData(ExportSession& session, QueryReader& reader, ColumnNameSource names, Text& rsFieldNames,
                         Text& rsSourceFile, const QueryMergeDataOptions& options);

}  // namespace zorkanca
