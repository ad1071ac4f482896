// What may be sent to a server: one statement that reads. A read-only transaction stops most of what writes; what it
// lets through (files of the server, large objects, settings, a second statement) is known by its words and refused
// here.
#pragma once

#include <cstddef>
#include <vector>

#include "odbc/sql_reader.h"
#include "runtime/text.h"

namespace zorkanca {

/// A statement that was looked through.
struct SqlQuery {
  Text text;                        ///< without the ";" that ended it, "?" in the place of each parameter
  std::vector<Text> parameters;     ///< names without ":", each once, in the order of their first places
  std::vector<std::size_t> places;  ///< for each "?" the parameter it stands for
  bool isSelect = false;            ///< SELECT, WITH, VALUES or TABLE: it can stand in a FROM clause
};

/// Whether ":name" is a parameter, or a fault.
enum class SqlParameters { kNone, kNamed };

/// Errors, source "ODBC": 3146 for no or several statements, one that is no query, and one that writes, with the word
/// that tells; 3061 for parameters, or for "?" where they are named.
SqlQuery ReadSqlQuery(TextView sql, const SqlDialect& dialect, SqlParameters parameters);

}  // namespace zorkanca
