#include "odbc/odbc_driver.h"

#include <algorithm>

namespace zorkanca {

namespace {

using Option = std::pair<TextView, TextView>;

// Without a cursor psqlODBC holds the whole result; its booleans are texts unless told otherwise.
constexpr TextView kPostgresNames[] = {u"postgres", u"psqlodbc"};
constexpr Option kPostgresOptions[] = {
    {u"BoolsAsChar", u"0"}, {u"UseDeclareFetch", u"1"}, {u"Fetch", u"500"}, {u"LFConversion", u"0"}};
constexpr TextView kPostgresBegin[] = {u"START TRANSACTION ISOLATION LEVEL REPEATABLE READ READ ONLY"};

// OPTION: no cache of the result (1 << 20), cursors that go forward only (1 << 21).
constexpr TextView kMariaDbNames[] = {u"mariadb", u"mysql", u"maodbc", u"myodbc"};
constexpr Option kMariaDbOptions[] = {{u"OPTION", u"3145728"}, {u"CHARSET", u"utf8mb4"}};
constexpr TextView kMariaDbStreaming[] = {u"OPTION"};
constexpr TextView kMariaDbBegin[] = {u"SET TRANSACTION ISOLATION LEVEL REPEATABLE READ",
                                      u"START TRANSACTION WITH CONSISTENT SNAPSHOT, READ ONLY"};

constexpr TextView kSqliteNames[] = {u"sqlite"};
constexpr TextView kSqliteSetup[] = {u"PRAGMA query_only = ON"};

constexpr TextView kSqlServerNames[] = {u"sql server", u"msodbcsql", u"freetds", u"tdsodbc"};
constexpr TextView kAccessNames[] = {u"mdb", u"access"};

constexpr OdbcDriver kDrivers[] = {
    {.names = kPostgresNames,
     .options = kPostgresOptions,
     .streamingOptions = {},
     .begin = kPostgresBegin,
     .setup = {},
     .dialect = {.dollarTexts = true, .nestedComments = true},
     .givesUtf8 = true,
     .failureEndsTransaction = true,
     .rowsAsTexts = true},
    {.names = kMariaDbNames,
     .options = kMariaDbOptions,
     .streamingOptions = kMariaDbStreaming,
     .begin = kMariaDbBegin,
     .setup = {},
     .dialect = {.backslashes = true, .quotesAreTexts = true, .hashComments = true, .commentsThatRun = true},
     .givesUtf8 = true,
     .lengthsHold = true},
    {.names = kSqliteNames,
     .options = {},
     .streamingOptions = {},
     .begin = {},
     .setup = kSqliteSetup,
     .dialect = {.bracketNames = true},
     .givesUtf8 = true},
    {.names = kSqlServerNames,
     .options = {},
     .streamingOptions = {},
     .begin = {},
     .setup = {},
     .dialect = {.bracketNames = true, .nestedComments = true},
     .lengthsHold = true},
    {.names = kAccessNames,
     .options = {},
     .streamingOptions = {},
     .begin = {},
     .setup = {},
     .dialect = {.bracketNames = true},
     .givesUtf8 = true,
     .givesTextsOnly = true,
     .lacksSubqueries = true},
};

constexpr OdbcDriver kOther = {};

}  // namespace

const OdbcDriver& OdbcDriverNamed(TextView name) {
  const Text lower = LowerCase(name);
  for (const OdbcDriver& driver : kDrivers) {
    const auto isIn = [&](TextView word) { return lower.find(word) != Text::npos; };
    if (std::any_of(driver.names.begin(), driver.names.end(), isIn)) return driver;
  }
  return kOther;
}

}  // namespace zorkanca
