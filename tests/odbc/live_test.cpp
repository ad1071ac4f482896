// The drivers of this computer, tried with servers of the tests' own.
#include <sqlite3.h>

#include <chrono>
#include <thread>

#include "odbc/database_server.h"
#include "runtime/convert.h"
#include "runtime/locale.h"
#include "support/temporary_folder.h"

namespace zorkanca::testing {
namespace {

std::string ShownValue(const Value& value) {
  if (IsNull(value)) return "-";
  if (std::holds_alternative<Binary>(value)) return std::to_string(std::get<Binary>(value).size()) + " bytes";
  return ToUtf8(ToText(value, *FindLocale(u"cs-CZ")));
}

class LiveTest : public ::testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    if (!server().isThere()) GTEST_SKIP() << server().reason();
    database_.emplace(LoginOf(server().connectionString()), &interrupted_);
  }

  const DatabaseServer& server() const { return ServerOf(GetParam()); }
  bool IsPostgres() const { return std::string_view(GetParam()) == "postgres"; }
  std::unique_ptr<Recordset> Open(const std::string& sql, std::int16_t options = 0) {
    return database_->OpenRecordset(FromUtf8(sql), RecordsetType::kDynaset, options);
  }
  // Texts of the fields of all records, NULL as "-", records on lines.
  std::string Shown(const std::string& sql) {
    const auto recordset = Open(sql);
    std::string shown;
    for (; !recordset->Eof(); recordset->MoveNext()) {
      for (std::int32_t index = 0; index < recordset->FieldCount(); ++index) {
        shown += (index > 0 ? "|" : "") + ShownValue(recordset->FieldAt(index).Value());
      }
      shown += "\n";
    }
    return shown;
  }

  std::atomic<bool> interrupted_ = false;
  std::optional<OdbcDatabase> database_;
};

TEST_P(LiveTest, ValuesOfEachType) {
  struct Row {
    std::string type;
    std::string literal;
    FieldType field;
    std::string text;
  };
  using T = FieldType;
  const std::vector<Row> both = {
      {"integer", "2147483647", T::kLong, "2147483647"},
      {"smallint", "-32768", T::kInteger, "-32768"},
      {"bigint", "-9223372036854775808", T::kBigInteger, "-9223372036854775808"},
      {"decimal(10,2)", "12.50", T::kDecimal, "12,5"},
      {"decimal(19,4)", "-922337203685477.5807", T::kCurrency, "-922337203685477,5807"},
      {"decimal(9,0)", "7", T::kLong, "7"},
      {"decimal(38,10)", "1234567890123456789012345678.5", T::kDecimal, "1234567890123456789012345678.5000000000"},
      {"date", "'2026-03-01'", T::kDate, "1.3.2026"},
      {"date", "'9999-12-31'", T::kDate, "31.12.9999"},
      {"date", "'0099-12-31'", T::kDate, "0099-12-31"},
      {"time", "'23:59:59'", T::kTime, "23:59:59"},
      {"char(5)", "'ab'", T::kChar, "ab"},
      {"varchar(40)", "'Žluťoučký kůň 😀 ÚØ'", T::kText, "Žluťoučký kůň 😀 ÚØ"},
      {"varchar(300)", "''", T::kMemo, ""},
      {"double precision", "0.1", T::kDouble, "0,1"},
      {"double precision", "1.7976931348623157e308", T::kDouble, "1,79769313486232E+308"},
      {"integer", "NULL", T::kLong, "-"},
  };
  const std::vector<Row> postgres = {
      {"boolean", "true", T::kBoolean, "True"},
      {"text", "E'a\\r\\nb'", T::kMemo, "a\r\nb"},
      {"uuid", "'A0EEBC99-9C0B-4EF8-BB6D-6BB9BD380A11'", T::kGuid, "a0eebc99-9c0b-4ef8-bb6d-6bb9bd380a11"},
      {"real", "0.1", T::kSingle, "0,1"},
      {"numeric", "12.50", T::kNumeric, "12,5"},
      {"numeric", "123456789012345678901234567890.5", T::kNumeric, "123456789012345678901234567890.5"},
      {"numeric", "'NaN'", T::kNumeric, "NaN"},
      {"double precision", "'-Infinity'", T::kDouble, "-Infinity"},
      {"money", "-1234.5", T::kCurrency, "-1234,5"},
      {"timestamp", "'2026-03-01 18:00:00.999'", T::kDate, "1.3.2026 18:00:00"},
      {"timestamp", "'infinity'", T::kDate, "infinity"},
      {"date", "'0044-03-15 BC'", T::kDate, "0044-03-15 BC"},
      {"date", "'12000-01-01'", T::kDate, "12000-01-01"},
      {"timestamptz", "'2026-03-01 18:00+05'", T::kDate, "1.3.2026 13:00:00"},
      {"timetz", "'12:00+00'", T::kText, "12:00:00+00"},
      {"bytea", "'\\x00ff'", T::kLongBinary, "2 bytes"},
      {"bytea", "''", T::kLongBinary, "0 bytes"},
      {"varchar", "repeat('č', 5000)", T::kText, ""},
      {"jsonb", "'{\"a\": \":b\"}'", T::kText, "{\"a\": \":b\"}"},
      {"int[]", "'{1,2}'", T::kText, "{1,2}"},
  };
  const std::vector<Row> mariaDb = {
      {"bit(1)", "1", T::kBoolean, "True"},
      {"bit(1)", "0", T::kBoolean, "False"},
      {"text", "'a\\r\\nb'", T::kMemo, "a\r\nb"},
      {"uuid", "'A0EEBC99-9C0B-4EF8-BB6D-6BB9BD380A11'", T::kChar, "a0eebc99-9c0b-4ef8-bb6d-6bb9bd380a11"},
      {"float", "0.1", T::kSingle, "0,1"},
      {"tinyint unsigned", "255", T::kByte, "255"},
      {"integer unsigned", "4294967295", T::kBigInteger, "4294967295"},
      {"bigint unsigned", "18446744073709551615", T::kBigInteger, "18446744073709551615"},
      {"datetime(6)", "'2026-03-01 18:00:00.999'", T::kDate, "1.3.2026 18:00:00"},
      {"time", "'-838:59:59'", T::kTime, "-838:59:59"},
      {"varbinary(10)", "x'00ff'", T::kVarBinary, "2 bytes"},
      {"longblob", "repeat('x', 200000)", T::kLongBinary, "200000 bytes"},
      {"enum('a','b')", "'b'", T::kChar, "b"},
      {"year", "2026", T::kLong, "2026"},
  };
  server().Execute("DROP TABLE IF EXISTS typ");
  std::vector<Row> rows = both;
  const std::vector<Row>& own = IsPostgres() ? postgres : mariaDb;
  rows.insert(rows.end(), own.begin(), own.end());
  std::string columns;
  std::string values;
  for (std::size_t index = 0; index < rows.size(); ++index) {
    columns += (index > 0 ? ", c" : "c") + std::to_string(index) + " " + rows[index].type;
    values += (index > 0 ? ", " : "") + rows[index].literal;
  }
  server().Execute("CREATE TABLE typ (" + columns + "); INSERT INTO typ VALUES (" + values + ")");
  const auto recordset = Open("SELECT * FROM typ");
  for (std::size_t index = 0; index < rows.size(); ++index) {
    const std::string what = rows[index].type + " " + rows[index].literal.substr(0, 40);
    Field& field = recordset->FieldAt(static_cast<std::int32_t>(index));
    // psqlODBC calls all exact numbers NUMERIC.
    const bool isNumeric = field.Type() == T::kNumeric && rows[index].field == T::kDecimal;
    EXPECT_TRUE(field.Type() == rows[index].field || isNumeric) << what << " " << static_cast<int>(field.Type());
    std::string text = ShownValue(field.Value());
    if (rows[index].type == "char(5)" && text.ends_with("   ")) text.resize(text.size() - 3);  // as the server pads it
    if (rows[index].literal.starts_with("repeat('č'")) {
      EXPECT_EQ(text.size(), 10000u);
    } else {
      EXPECT_EQ(text, rows[index].text) << what;
    }
  }
}

TEST_P(LiveTest, CountsAndMovesAsDao) {
  server().Execute("DROP TABLE IF EXISTS cisla; CREATE TABLE cisla (n integer, s text, e " +
                   std::string(IsPostgres() ? "boolean" : "bit(1)") + ", PRIMARY KEY (n))");
  std::string values;
  for (int n = 1; n <= 1234; ++n)
    values += (n > 1 ? ", (" : "(") + std::to_string(n) + ", 'text', " + (IsPostgres() ? "" : "b") +
              (n % 3 == 0 ? "'1')" : "'0')");
  server().Execute("INSERT INTO cisla VALUES " + values);
  for (const std::string columns : {"n, e", "n, e, s", "n AS a, e AS a"}) {  // bound, piece by piece, of equal names
    const auto recordset = Open("SELECT " + columns + " FROM cisla ORDER BY n; -- all of them");
    const auto current = [&] { return std::get<std::int32_t>(recordset->FieldAt(0).Value()); };
    EXPECT_FALSE(recordset->Bof());
    recordset->MoveLast();
    EXPECT_EQ(recordset->RecordCount(), 1234) << columns;
    recordset->MoveFirst();
    for (int n = 1; n <= 1234; ++n, recordset->MoveNext()) {
      ASSERT_EQ(current(), n) << columns;
      ASSERT_EQ(recordset->FieldAt(1).Value(), Value(n % 3 == 0)) << columns << " " << n;
    }
    EXPECT_TRUE(recordset->Eof());
    EXPECT_EQ(ErrorOf([&] { current(); }).number(), 3021);
    EXPECT_EQ(ErrorOf([&] { recordset->MoveNext(); }).number(), 3021);
    recordset->MoveFirst();
    EXPECT_EQ(current(), 1) << "it ran again";
    recordset->MoveLast();
    EXPECT_EQ(current(), 1234);
    recordset->Close();
    EXPECT_EQ(ErrorOf([&] { recordset->MoveFirst(); }).number(), 91);
  }
  const auto empty = Open("SELECT n FROM cisla WHERE n > 5000");
  EXPECT_TRUE(empty->Bof() && empty->Eof());
  EXPECT_EQ(ErrorOf([&] { empty->MoveLast(); }).number(), 3021);
  const auto forward = Open("SELECT n FROM cisla", 256);
  EXPECT_EQ(ErrorOf([&] { forward->MoveLast(); }).number(), 3219);
  EXPECT_EQ(&forward->FieldNamed(u"N"), &forward->FieldAt(0));
  EXPECT_EQ(ErrorOf([&] { forward->FieldNamed(u"x"); }).number(), 3265);
}

TEST_P(LiveTest, ReadsOneMoment) {
  server().Execute("DROP TABLE IF EXISTS moment; CREATE TABLE moment (n integer); INSERT INTO moment VALUES (1), (2)");
  const auto recordset = Open("SELECT n FROM moment ORDER BY n");
  server().Execute("INSERT INTO moment VALUES (3)");
  recordset->MoveLast();
  EXPECT_EQ(recordset->RecordCount(), 2);
  recordset->MoveFirst();
  recordset->MoveNext();
  recordset->MoveFirst();
  int rows = 0;
  for (; !recordset->Eof(); recordset->MoveNext()) ++rows;
  EXPECT_EQ(rows, 2);
  recordset->Close();
  EXPECT_EQ(Shown("SELECT count(*) FROM moment"), "3\n");
}

TEST_P(LiveTest, DetailsOfEachRecord) {
  server().Execute(
      "DROP TABLE IF EXISTS faktura; DROP TABLE IF EXISTS polozka;"
      "CREATE TABLE faktura (cislo integer, kurs decimal(9,4), den date, firma varchar(40));"
      "CREATE TABLE polozka (faktura integer, radek integer, cena decimal(19,4), pozn text);"
      "INSERT INTO faktura VALUES (7, 19.99, '2026-03-01', 'Žluť, s. r. o.'), (8, 12, '2026-03-02', 'x'' OR 1=1 --'),"
      "  (9, NULL, NULL, NULL);"
      "INSERT INTO polozka VALUES (7, 1, 10, 'a'), (7, 2, 2.5, 'b'), (8, 1, 4, NULL)");
  const auto invoices = Open("SELECT * FROM faktura ORDER BY cislo");
  const auto find = [&](TextView name) -> Field* { return &invoices->FieldNamed(name); };
  const auto lines =
      database_->PrepareDetail(u"SELECT radek, cena, pozn FROM polozka WHERE faktura = :cislo ORDER BY 1");
  BoundDetail bound(*lines, find);
  const auto same = database_->PrepareDetail(
      u"SELECT cislo FROM faktura WHERE kurs = :kurs AND den = :den AND firma = :firma AND ':x' = ':x'");
  BoundDetail boundSame(*same, find);
  const std::vector<std::vector<std::int64_t>> prices = {{100000, 25000}, {40000}, {}};
  for (const std::vector<std::int64_t>& expected : prices) {
    bound.Run();
    std::vector<std::int64_t> found;
    while (lines->Next()) {
      found.push_back(std::get<Currency>(lines->FieldAt(1).Value()).tenThousandths);
      boundSame.Run();  // between two records of another one
      ASSERT_TRUE(same->Next());
      EXPECT_EQ(same->FieldAt(0).Value(), invoices->FieldAt(0).Value()) << "values find themselves";
      EXPECT_FALSE(same->Next());
    }
    EXPECT_EQ(found, expected);
    EXPECT_FALSE(lines->Next());
    invoices->MoveNext();
  }
  EXPECT_TRUE(invoices->Eof());
  EXPECT_EQ(lines->FindField(u"POZN"), &lines->FieldAt(2));
}

TEST_P(LiveTest, NothingIsChanged) {
  server().Execute("DROP TABLE IF EXISTS stav; CREATE TABLE stav (n integer); INSERT INTO stav VALUES (1)");
  server().Execute(
      IsPostgres()
          ? "CREATE OR REPLACE FUNCTION pise() RETURNS integer LANGUAGE sql AS 'INSERT INTO stav VALUES (2) RETURNING "
            "n'"
          : "DROP FUNCTION IF EXISTS pise;\nDELIMITER //\nCREATE FUNCTION pise() RETURNS integer MODIFIES SQL DATA "
            "BEGIN INSERT INTO stav VALUES (2); RETURN 1; END//\nDELIMITER ;\n"
            "CREATE SEQUENCE IF NOT EXISTS rada");
  for (const std::string sql :
       {"SELECT pise()", "SELECT pise() FROM stav", "DELETE FROM stav", "SELECT * INTO kopie FROM stav",
        "SELECT 1; DELETE FROM stav", "WITH x AS (SELECT pise() AS n) SELECT * FROM x", "DROP TABLE stav",
        "SELECT * FROM stav FOR UPDATE", "SELECT n FROM neni", "SELECT 1 AS a, FROM stav"}) {
    const Error error = ErrorOf([&] { Shown(sql); });
    EXPECT_EQ(error.number(), 3146) << sql;
  }
  EXPECT_EQ(Shown("SELECT count(*) FROM stav"), "1\n") << "usable after each failure";
}

TEST_P(LiveTest, WideTablesAndLongValues) {
  const int columns = IsPostgres() ? 1600 : 2000;
  std::string select = "SELECT ";
  for (int column = 0; column < columns; ++column) {
    select += (column > 0 ? ", " : "") + std::to_string(column) + " AS c" + std::to_string(column);
  }
  const auto wide = Open(select);
  EXPECT_EQ(wide->FieldCount(), columns);
  EXPECT_EQ(std::get<std::int32_t>(wide->FieldAt(columns - 1).Value()), columns - 1);
  wide->Close();
  const auto longs =
      Open(IsPostgres() ? "SELECT repeat('ž', 3000000) AS a, 7 AS b, repeat('x', 511), repeat('x', 512)"
                        : "SELECT repeat('ž', 3000000) AS a, 7 AS b, repeat('x', 511), repeat('x', 512)");
  EXPECT_EQ(std::get<Text>(longs->FieldAt(0).Value()).size(), 3000000u);
  EXPECT_EQ(std::get<Text>(longs->FieldAt(0).Value()).back(), u'ž');
  EXPECT_EQ(std::get<std::int32_t>(longs->FieldAt(1).Value()), 7);
  EXPECT_EQ(std::get<Text>(longs->FieldAt(2).Value()).size(), 511u);
  EXPECT_EQ(std::get<Text>(longs->FieldAt(3).Value()).size(), 512u);
}

TEST_P(LiveTest, AnInterruptionEndsWhateverRuns) {
  const std::string sleep = IsPostgres() ? "SELECT pg_sleep(20)" : "SELECT sleep(20)";
  std::chrono::steady_clock::time_point asked;
  std::thread asking([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    asked = std::chrono::steady_clock::now();
    interrupted_ = true;
  });
  EXPECT_EQ(ErrorOf([&] { Open(sleep); }).number(), 18);
  asking.join();
  EXPECT_LT(std::chrono::steady_clock::now() - asked, std::chrono::seconds(1));
}

TEST_P(LiveTest, TypesThatTheCallerSettles) {
  database_->SettleTypes({{u"A", FieldType::kCurrency}, {u"b", FieldType::kText}, {u"d", FieldType::kDate}});
  const auto recordset = Open("SELECT '12.5' AS a, 7 AS b, '2026-03-01' AS d");
  EXPECT_EQ(recordset->FieldAt(0).Value(), Value(Currency{125000}));
  EXPECT_EQ(recordset->FieldAt(1).Value(), Value(Text(u"7")));
  EXPECT_EQ(recordset->FieldAt(2).Value(), Value(Date{46082}));
  recordset->Close();
  database_->SettleTypes({{u"neni", FieldType::kText}});
  EXPECT_EQ(ErrorOf([&] { Open("SELECT 1 AS a"); }).number(), 3265);
}

INSTANTIATE_TEST_SUITE_P(Servers, LiveTest, ::testing::Values("postgres", "mariadb"),
                         [](const auto& test) { return std::string(test.param); });

TEST(LiveSqlite, ReadsAFileByItsDriver) {
  const OdbcInstallation installed = LookAtOdbc();
  const auto isSqlite = [](const OdbcSource& driver) { return driver.name == u"SQLite3"; };
  if (std::none_of(installed.drivers.begin(), installed.drivers.end(), isSqlite)) {
    GTEST_SKIP() << "libsqliteodbc is not installed";
  }
  const TemporaryFolder folder;
  const std::string path = folder.path() + "/a.db";
  sqlite3* writer = nullptr;
  sqlite3_open(path.c_str(), &writer);
  sqlite3_exec(writer, "CREATE TABLE t (n INTEGER, d DATE, s TEXT); INSERT INTO t VALUES (7, '2026-03-01', 'Žluť 😀')",
               nullptr, nullptr, nullptr);
  sqlite3_close(writer);
  OdbcDatabase database(LoginOf("DRIVER=SQLite3;Database=" + path));
  const auto recordset = database.OpenRecordset(u"SELECT n, d, [s] FROM t", RecordsetType::kDynaset, 0);
  recordset->MoveLast();
  EXPECT_EQ(recordset->RecordCount(), 1);
  EXPECT_EQ(recordset->FieldAt(0).Value(), Value(std::int32_t{7}));
  EXPECT_EQ(recordset->FieldAt(1).Value(), Value(Date{46082}));
  EXPECT_EQ(recordset->FieldAt(2).Value(), Value(Text(u"Žluť 😀")));
  const auto detail = database.PrepareDetail(u"SELECT s FROM t WHERE n = :n");
  BoundDetail bound(*detail, [&](TextView) { return &recordset->FieldAt(0); });
  bound.Run();
  EXPECT_TRUE(detail->Next());
  EXPECT_EQ(detail->FieldAt(0).Value(), Value(Text(u"Žluť 😀")));
}

}  // namespace
}  // namespace zorkanca::testing
