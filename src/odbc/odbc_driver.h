// What is known of drivers: the options that a connection gets beside the user's own, how it begins to read, and the
// drivers' habits. Everything here was tried with the drivers of Debian 12; docs/formats/odbc.md tells it to users.
#pragma once

#include <span>
#include <string_view>
#include <utility>

#include "odbc/sql_reader.h"
#include "runtime/text.h"

namespace zorkanca {

struct OdbcDriver {
  /// Words of the driver's name or file, in lower case, by which it is known.
  std::span<const TextView> names;
  /// Added to the connection string where the user gave nothing else.
  std::span<const std::pair<TextView, TextView>> options;
  /// Those of `options` that a connection for details does without, whose results may be held by the driver so that
  /// several are read at a time.
  std::span<const TextView> streamingOptions;
  /// Begin a transaction that reads one moment and writes nothing. Empty: by the attributes of the connection.
  std::span<const TextView> begin;
  /// Run after connecting.
  std::span<const TextView> setup;

  SqlDialect dialect;
  /// SQL_C_CHAR gives UTF-8; else texts are read as SQL_C_WCHAR.
  bool givesUtf8 = false;
  /// No value is longer than the length that its column tells.
  bool lengthsHold = false;
  /// Values are given as texts only.
  bool givesTextsOnly = false;
  /// A query cannot stand in the FROM of another one.
  bool lacksSubqueries = false;
  /// After a failed statement the transaction takes no other.
  bool failureEndsTransaction = false;
  /// The query is put into another one that makes one text of each row: dates and amounts lose something on their way
  /// through the driver, and it takes its time for every value.
  bool rowsAsTexts = false;
};

/// @param name  of the driver, its file or the server, as known
const OdbcDriver& OdbcDriverNamed(TextView name);

}  // namespace zorkanca
