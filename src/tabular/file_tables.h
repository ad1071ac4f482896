// Files of records as tables of a database: each file is read twice, once for the types of its columns, which follow
// from all values, and once to load it. Reading holds one record at a time; the tables lie in the connection's
// temporary database, which keeps them in memory as far as it is allowed and on the disk beyond that.
#pragma once

#include <atomic>
#include <optional>
#include <string>
#include <vector>

#include "runtime/locale.h"
#include "sqlite/sqlite_connection.h"
#include "sqlite/sqlite_database.h"
#include "tabular/table_reader.h"
#include "tabular/utf8_input.h"

namespace zorkanca {

enum class FileFormat : unsigned char { kCsv, kJson };

/// A file that is to be a table.
struct FileTable {
  std::string path;
  FileFormat format = FileFormat::kCsv;
  std::optional<char> separator{};  ///< nothing: it is found

  /// The name of its table: that of the file without folder and extension.
  std::string Name() const;
};

/// How all files of a database are read.
struct FileReading {
  const Locale* locale = nullptr;  ///< of numbers, dates, words and the ANSI page
  TextEncoding withoutMark = TextEncoding::kUtf8;
  SqliteColumnTypes types{};                       ///< that the user has told, by names of columns
  const std::atomic<bool>* interrupted = nullptr;  ///< error 18 once it is true
};

/// A table as it was loaded.
struct LoadedTable {
  struct Column {
    std::string name;
    const char* type;  ///< a word for users
  };
  std::string path;
  std::string name;
  std::vector<Column> columns;
};

/// Loads the tables.
/// Errors: those of `TableReader`, of `Utf8Input` and of `SqliteTableWriter`; 13 for a value that does not have the
/// type that was told; 3010 for two tables of one name; 18.
std::vector<LoadedTable> LoadFileTables(const std::vector<FileTable>& tables, const FileReading& reading,
                                        SqliteConnection& connection);

}  // namespace zorkanca
