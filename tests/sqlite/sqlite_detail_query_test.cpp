#include "sqlite/sqlite_detail_query.h"

#include <gtest/gtest.h>

#include "sqlite/sqlite_support.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

constexpr char kInvoices[] =
    "CREATE TABLE faktura (cislo INTEGER, kurs DECIMAL(9,4), den DATE, firma TEXT, mala FLOAT4, znak BLOB, ano BIT);"
    "INSERT INTO faktura VALUES (7, 19.99, '2026-03-01', 'Žluť, s. r. o.', 0.1, x'00FF', 1),"
    "  (8, 12, '2026-03-01 18:00:00', 'x'' OR 1=1 --', 2.5, x'', 0), (9, NULL, NULL, NULL, NULL, NULL, NULL);"
    "CREATE TABLE polozka (faktura INTEGER, radek INTEGER, cena MONEY, pozn);"
    "INSERT INTO polozka VALUES (7, 1, 10, 1), (7, 2, 2.5, 1.5), (7, 3, NULL, 'c'), (8, 1, 4, NULL)";

class SqliteDetailQueryTest : public ::testing::Test {
 protected:
  std::unique_ptr<DetailQuery> Prepare(const std::string& sql) { return database_.PrepareDetail(FromUtf8(sql)); }

  BoundDetail::FindColumn ColumnsOf(Recordset& recordset) {
    return [&recordset](TextView name) -> Field* {
      for (std::int32_t index = 0; index < recordset.FieldCount(); ++index) {
        if (EqualsIgnoringCase(recordset.FieldAt(index).Name(), name)) return &recordset.FieldAt(index);
      }
      return nullptr;
    };
  }

  SqliteFile file_{kInvoices};
  SqliteDatabase database_{file_.path()};
};

TEST_F(SqliteDetailQueryTest, RunsForEachRecordAround) {
  const auto invoices = Open(database_, "SELECT * FROM faktura ORDER BY cislo");
  const auto lines = Prepare("SELECT radek, cena, pozn FROM polozka WHERE faktura = :Cislo ORDER BY radek");
  BoundDetail bound(*lines, ColumnsOf(*invoices));
  EXPECT_FALSE(lines->Next()) << "not yet run";
  const std::vector<std::vector<std::int64_t>> prices = {{100000, 25000, -1}, {40000}, {}};
  for (const std::vector<std::int64_t>& expected : prices) {
    bound.Run();
    std::vector<std::int64_t> found;
    while (lines->Next()) {
      const Value& price = lines->FieldAt(1).Value();
      found.push_back(IsNull(price) ? -1 : std::get<Currency>(price).tenThousandths);
    }
    EXPECT_EQ(found, expected);
    EXPECT_FALSE(lines->Next()) << "behind the last one it stays";
    EXPECT_EQ(ErrorOf([&] { lines->FieldAt(0).Value(); }).number(), 3021);
    invoices->MoveNext();
  }
}

TEST_F(SqliteDetailQueryTest, AValueFindsItselfAgain) {
  const auto invoices = Open(database_, "SELECT * FROM faktura ORDER BY cislo");
  for (; !invoices->Eof(); invoices->MoveNext()) {
    for (std::int32_t column = 0; column < invoices->FieldCount(); ++column) {
      const std::string name = ToUtf8(invoices->FieldAt(column).Name());
      const auto same = Prepare("SELECT group_concat(cislo) AS n FROM faktura WHERE " + name + " IS :" + name);
      BoundDetail bound(*same, ColumnsOf(*invoices));
      bound.Run();
      ASSERT_TRUE(same->Next());
      const Value& found = same->FieldAt(0).Value();
      EXPECT_EQ(std::get<Text>(found), DecimalText(std::get<std::int32_t>(invoices->FieldAt(0).Value()))) << name;
    }
  }
}

TEST_F(SqliteDetailQueryTest, ParametersStandOutsideOfTextsNamesAndComments) {
  struct Row {
    std::string sql;
    std::string parameters;
  };
  const Row rows[] = {
      {"SELECT :b, :a, :b", "b a"},
      {"SELECT ':x' AS \":y\", 1 AS [:z], `radek` /* :c */ FROM polozka -- :d\n WHERE faktura=:e;", "e"},
      {"SELECT :číslo_1, :B", "číslo_1 B"},
      {"SELECT 1", ""},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Shown(Join(Prepare(row.sql)->Parameters(), u" ")), row.parameters) << row.sql;
  }
}

TEST_F(SqliteDetailQueryTest, FieldsAreKnownFromTheBeginning) {
  const auto lines = Prepare("SELECT cena, pozn, radek * 2 AS Dvakrát FROM polozka WHERE faktura = :f ORDER BY radek");
  EXPECT_EQ(lines->FieldCount(), 3);
  EXPECT_EQ(lines->FieldAt(0).Type(), FieldType::kCurrency);
  EXPECT_EQ(lines->FindField(u"dvakrát"), &lines->FieldAt(2));
  EXPECT_EQ(lines->FindField(u"cislo"), nullptr);
  EXPECT_EQ(ErrorOf([&] { lines->FieldAt(3); }).number(), 3265);
  const Value seven = std::int32_t{7};
  const Value* const values[] = {&seven};
  lines->Run(values);
  const FieldType types[] = {FieldType::kLong, FieldType::kDouble, FieldType::kText};
  for (const FieldType type : types) {
    ASSERT_TRUE(lines->Next());
    EXPECT_EQ(lines->FieldAt(1).Type(), type) << "a column without a type has that of each value";
  }
  lines->Run(values);  // the records that are left unread are given up
  ASSERT_TRUE(lines->Next());
  EXPECT_EQ(std::get<std::int32_t>(lines->FieldAt(2).Value()), 2);
}

TEST_F(SqliteDetailQueryTest, RefusesWhatIsNoQueryOfDetails) {
  struct Row {
    std::string sql;
    std::int32_t number;
    std::string description;
  };
  const Row rows[] = {
      {"SELECT * FROM polozka WHERE faktura = ?", 3061, "a parameter is written \":column\", not \"?\""},
      {"SELECT * FROM polozka WHERE faktura = ?2", 3061, "a parameter is written \":column\", not \"?\""},
      {"SELECT * FROM polozka WHERE faktura = @cislo", 3061, "a parameter is written \":column\", not \"@cislo\""},
      {"SELECT * FROM polozka WHERE faktura = $cislo", 3061, "a parameter is written \":column\", not \"$cislo\""},
      {"DELETE FROM polozka WHERE faktura = :cislo", 3146, "the statement would change the database"},
      {"SELECT 1; SELECT :cislo", 3146, "more than one statement"},
  };
  for (const Row& row : rows) {
    const Error error = ErrorOf([&] { Prepare(row.sql); });
    EXPECT_EQ(error.number(), row.number) << row.sql;
    EXPECT_EQ(ToUtf8(error.description()), row.description) << row.sql;
  }
  const auto invoices = Open(database_, "SELECT cislo FROM faktura");
  const auto lines = Prepare("SELECT * FROM polozka WHERE faktura = :čislo");
  const Error unknown = ErrorOf([&] { BoundDetail(*lines, ColumnsOf(*invoices)); });
  EXPECT_EQ(unknown.number(), 3265);
  EXPECT_EQ(ToUtf8(unknown.description()), "The parameter \":čislo\" names no column of the enclosing record");
  const Value object = ObjectReference();
  const Value* const values[] = {&object};
  EXPECT_EQ(ErrorOf([&] { lines->Run(values); }).number(), 13);
}

TEST_F(SqliteDetailQueryTest, AWriterDoesNotDisturbTheRecordsOfOneMoment) {
  file_.Execute("PRAGMA journal_mode = WAL");
  const auto lines = Prepare("SELECT count(*) FROM polozka WHERE faktura = :f");
  const Value seven = std::int32_t{7};
  const Value* const values[] = {&seven};
  for (int run = 0; run < 3; ++run) {
    lines->Run(values);
    ASSERT_TRUE(lines->Next());
    EXPECT_EQ(std::get<std::int32_t>(lines->FieldAt(0).Value()), 3) << run;
    file_.Execute("INSERT INTO polozka VALUES (7, 4, 1, NULL)");
  }
}

}  // namespace
}  // namespace zorkanca::testing
