#include "odbc/connection_string.h"

#include <gtest/gtest.h>

#include "odbc/odbc_driver.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(ConnectionString, PairsOfKeysAndValues) {
  struct Row {
    std::string given;
    std::string text;  // without the password
    std::string password;
  };
  const Row rows[] = {
      {"DSN=sklad", "DSN=sklad;", "-"},
      {"dsn = sklad ; uid= jan ", "dsn=sklad;uid=jan;", "-"},
      {"DRIVER=PostgreSQL Unicode;PWD=a", "DRIVER={PostgreSQL Unicode};", "a"},
      {"DRIVER={SQLite3};Database=/a b.db;;", "DRIVER={SQLite3};Database=/a b.db;", "-"},
      {"DSN=x;Pwd={a;b}}c=d};Port=1", "DSN=x;Port=1;", "a;b}c=d"},
      {"DSN=x;Password=;PWD=z", "DSN=x;", ""},
      {"DSN=x;ConnSettings={set a='{b}}'}", "DSN=x;ConnSettings={set a='{b}}'};", "-"},
      {"DSN=x;UID=a@b", "DSN=x;UID={a@b};", "-"},
  };
  for (const Row& row : rows) {
    ConnectionString string(FromUtf8(row.given));
    const std::optional<Text> password = string.TakePassword();
    EXPECT_EQ(ToUtf8(string.AsText()), row.text) << row.given;
    EXPECT_EQ(password ? ToUtf8(*password) : "-", row.password) << row.given;
  }
  ConnectionString string(u"DSN=x;option=3");
  string.AddIfMissing(u"OPTION", u"7");
  string.AddIfMissing(u"CHARSET", u"utf8mb4");
  EXPECT_EQ(ToUtf8(string.AsText()), "DSN=x;option=3;CHARSET=utf8mb4;") << "the user's own option stays";
}

TEST(ConnectionString, FaultsAreNamedWithoutTheString) {
  for (const std::string given : {"DSN=x;tajne", "DSN=x;PWD={tajne", "", "UID=tajne", "tajne"}) {
    const Error error = ErrorOf([&] { ConnectionString(FromUtf8(given)); });
    EXPECT_EQ(error.number(), 3151) << given;
    EXPECT_EQ(ToUtf8(error.description()).find("tajne"), std::string::npos) << given;
  }
}

TEST(OdbcDriver, IsKnownByNameFileAndServer) {
  EXPECT_TRUE(OdbcDriverNamed(u"PostgreSQL Unicode").rowsAsTexts);
  EXPECT_TRUE(OdbcDriverNamed(u"/usr/lib/odbc/psqlodbcw.so").rowsAsTexts);
  EXPECT_TRUE(OdbcDriverNamed(u"libmaodbc.so").dialect.backslashes);
  EXPECT_FALSE(OdbcDriverNamed(u"SQLite3").setup.empty());
  EXPECT_TRUE(OdbcDriverNamed(u"ODBC Driver 18 for SQL Server").dialect.bracketNames);
  EXPECT_TRUE(OdbcDriverNamed(u"Oracle").names.empty());
}

}  // namespace
}  // namespace zorkanca::testing
