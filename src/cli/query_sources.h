// Where the records of a command's query come from: what --db names, once or several times.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/query_arguments.h"
#include "tabular/file_tables.h"

namespace zorkanca::cli {

/// One database of all sources: the tables of an SQLite file, or of none, and a table of each other file; or a server.
struct QuerySources {
  std::optional<std::string> connection;  ///< then there is nothing else
  std::optional<std::string> sqliteFile;
  std::vector<FileTable> files;
};

/// @param query  with --db and --separator
/// Errors: `UsageError` for two SQLite files, for a connection string beside anything else, and for a separator that
/// can be none.
QuerySources SourcesOf(const QueryOptions& query);

/// The encoding of files without a byte-order mark, as --encoding gave it.
TextEncoding EncodingOf(const QueryOptions& query);

}  // namespace zorkanca::cli
