// Where the column names of an export come from: the caller, the SELECT list or the recordset's fields.
// Names travel as one text, separated by ";".
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/database.h"
#include "runtime/text.h"

namespace zorkanca {

/// Separates names, and values in the data files.
inline constexpr char16_t kExportSeparator = u';';

/// Where an export takes its column names from.
enum class ColumnNameSource {
  kFieldNames,  ///< the recordset's own field names, known once it is open
  kFieldList,   ///< `rsFieldNames`, as the caller gave it or as it was derived
};

/// Settles the source of the names before the query runs. Without names of the caller a SELECT that holds " * " takes
/// the field names, any other one has its names derived from its list.
/// @param rsFieldNames  the caller's names; receives the derived ones
/// @param preferFields  take the field names for any SELECT without names of the caller
/// Errors: stops the export when no name can be derived; 5 for a statement without "from".
ColumnNameSource ChooseColumnNames(TextView select, Text& rsFieldNames, bool preferFields = false);

/// The names that a SELECT list gives its columns, lower case, joined by the separator: the alias after " as ", else
/// what follows the first ".", else the item itself. Equal names are told apart by their qualifiers or by "_1", "_2",
/// ... For example "SELECT a.kod, b.kod, nazev AS jmeno FROM ..." gives a_kod;b_kod;jmeno. The scan is textual: a
/// literal cannot split the list, but a bracket can, and "from" ends it wherever it stands. Errors: 5 for a statement
/// without "from".
Text ColumnCaptionsFromSelect(TextView select, TextView separator);

/// The names of all fields in field order.
std::vector<Text> FieldNames(Recordset& recordset);
/// The same as the header of a data file, joined by ";".
/// @param quotes  quote a name that holds a separator, a quote or a line break; else it stands as it is
Text FieldNameHeader(Recordset& recordset, bool quotes);

/// The names of the columns of an export, trimmed: those of the list (quotes in it as in a data file), or of the
/// fields.
std::vector<Text> ColumnNamesOf(ColumnNameSource source, TextView rsFieldNames, Recordset& recordset);

/// Position (from 0) of the first element equal to the name, both trimmed and lower-cased.
/// @return -1 when there is none
std::int16_t IndexOfName(TextView name, std::span<const Text> names);

}  // namespace zorkanca
