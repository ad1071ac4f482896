// --db 'ODBC;…': a connection string in the place of a file, and where its password comes from.
#pragma once

#include <memory>
#include <string>

#include "cli/command_line.h"
#include "odbc/odbc_database.h"

namespace zorkanca::cli {

/// Whether --db names a connection string.
bool IsConnectionString(const std::string& database);

/// The database of a connection string. Its password is that of --db-password-file, else of the string itself (with a
/// warning: it shows in the list of processes), else of $ZORKANCA_DB_PASSWORD; where the server asks for one and there
/// is none of these, the person at the terminal is asked.
/// Errors: `UsageError` for a string that is none; 70 when others may read the password's file; 53, 57.
std::unique_ptr<OdbcDatabase> OpenOdbc(const CommandContext& context, const std::string& database,
                                       const std::string& passwordFile);

/// What may be told of --db: no password is in it.
std::string ShownDatabase(const std::string& database);

}  // namespace zorkanca::cli
