#include "tabular/file_tables.h"

#include <gtest/gtest.h>

#include <atomic>
#include <fstream>

#include "sqlite/sqlite_database.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"
#include "tabular/column_writer.h"
#include "tabular/tabular_support.h"

namespace zorkanca::testing {
namespace {

TEST(FileTables, AreNamedAsTheirFiles) {
  struct Row {
    std::string path;
    std::string name;
  };
  const Row rows[] = {{"zbozi.csv", "zbozi"},
                      {"/a.b/ceník 2026.csv", "ceník 2026"},
                      {"x.tar.json", "x.tar"},
                      {"dir/data", "data"},
                      {".csv", ".csv"}};
  for (const auto& [path, name] : rows) EXPECT_EQ(FileTable{.path = path}.Name(), name);
}

class FileTablesOfFolder : public ::testing::Test {
 protected:
  FileTable Table(const std::string& name, const std::string& bytes) const {
    folder_.Write(name, bytes);
    return {.path = folder_.Path(name), .format = name.ends_with("json") ? FileFormat::kJson : FileFormat::kCsv};
  }

  // The first value of a query over all tables, and over the database of a path.
  std::string First(const std::vector<FileTable>& tables, const std::string& sql,
                    const std::optional<std::string>& path = std::nullopt) const {
    SqliteDatabase database(path);
    database.BeforeFirstQuery([&](SqliteConnection& connection) {
      LoadFileTables(tables, reading_, connection);
      return std::vector<Text>();
    });
    const auto records = database.OpenRecordset(FromUtf8(sql), RecordsetType::kDynaset, 0);
    return ToUtf8(ToText(records->FieldAt(0).Value(), *reading_.locale));
  }

  TemporaryFolder folder_;
  FileReading reading_{.locale = FindLocale(u"cs-CZ")};
};

TEST_F(FileTablesOfFolder, StandInOneDatabase) {
  const std::string path = folder_.Path("own.db");
  sqlite3* own = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &own), SQLITE_OK);
  sqlite3_exec(own, "CREATE TABLE own (id, x); INSERT INTO own VALUES (1, 'own'); CREATE VIEW seen AS SELECT 1",
               nullptr, nullptr, nullptr);
  sqlite3_close(own);
  const std::string before = folder_.Read("own.db");
  const FileTable csv = Table("zboží 1.csv", "id,x\n1,csv\n");
  const FileTable json = Table("j.json", R"([{"id":1,"x":"json"}])");
  EXPECT_EQ(
      First({csv, json}, "SELECT a.x || b.x || c.x FROM own a JOIN \"zboží 1\" b USING (id) JOIN j c USING (id)", path),
      "owncsvjson");
  EXPECT_EQ(folder_.Read("own.db"), before);

  const auto nameTaken = [&](const std::vector<FileTable>& tables) {
    const Error error = ErrorOf([&] { First(tables, "SELECT 1", path); });
    EXPECT_EQ(error.number(), 3010);
    return ToUtf8(error.description());
  };
  std::filesystem::create_directory(folder_.Path("sub"));
  EXPECT_EQ(
      nameTaken({json, Table("sub/J.csv", "a\n1\n")}),
      "There would be two tables of the name \"J\": " + folder_.Path("j.json") + " and " + folder_.Path("sub/J.csv"));
  for (const std::string name : {"OWN.csv", "seen.csv"}) {
    EXPECT_NE(nameTaken({Table(name, "a\n1\n")}).find("that of the database and"), std::string::npos);
  }
}

// SQL sees numbers where the files have numbers.
TEST_F(FileTablesOfFolder, CountAndCompareByType) {
  const FileTable table = Table("t.csv",
                                "i,d,l,t,a\n"
                                "10,\"5,0\",\"9,5\",1.3.2026,Ano\n"
                                "9,\"7,0\",\"12345678901234567890,25\",28.2.2026,Ne\n"
                                "8,,\"-3,1234567890123456789\",,\n");
  const std::pair<const char*, const char*> rows[] = {
      {"SELECT max(i) FROM t", "10"},
      {"SELECT d / 2 FROM t WHERE i = 10", "2,5"},
      {"SELECT i FROM t WHERE d > 6", "9"},
      {"SELECT max(l) FROM t", "12345678901234567890.25"},
      {"SELECT min(l) FROM t", "-3.1234567890123456789"},
      {"SELECT count(*) FROM t WHERE l > 9", "2"},
      {"SELECT count(*) FROM t WHERE l = 9.5", "1"},
      {"SELECT i FROM t ORDER BY l DESC LIMIT 1", "9"},
      {"SELECT i FROM t WHERE t >= '2026-03-01'", "10"},
      {"SELECT max(t) FROM t", "2026-03-01"},
      {"SELECT i FROM t WHERE a", "10"},
      {"SELECT count(d) FROM t", "2"},
      {"SELECT length(i) FROM t", "2"},
  };
  for (const auto& [sql, expected] : rows) EXPECT_EQ(First({table}, sql), expected) << sql;
}

TEST_F(FileTablesOfFolder, HaveTypesWithoutRecords) {
  LoadedFile file("t.csv", "a,b\n");
  file.reading().types = {{u"b", FieldType::kCurrency}};
  EXPECT_EQ(file.Shown(), "a text, b currency");
}

// A file may change between its two readings: no value of another type gets into the table.
TEST_F(FileTablesOfFolder, TakeNoValueOfAnotherType) {
  struct Row {
    ColumnType type;
    std::string text;
    bool isTaken;
  };
  const Row rows[] = {{ColumnType::kInteger, "12", true},    {ColumnType::kInteger, "1.5", false},
                      {ColumnType::kBigInteger, "x", false}, {ColumnType::kDecimal, "1.5", true},
                      {ColumnType::kDecimal, "1,5", false},  {ColumnType::kLongDecimal, "", false},
                      {ColumnType::kDouble, "1e400", false}, {ColumnType::kDate, "2026-03-01", true},
                      {ColumnType::kDate, "1.3.26", false},  {ColumnType::kYesNo, "ano", true},
                      {ColumnType::kYesNo, "2", false},      {ColumnType::kText, "x", true}};
  SqliteConnection connection(std::nullopt, nullptr);
  SqliteTableWriter table(connection, "t", {{"a", "TEXT"}});
  const ValueForms forms(*reading_.locale);
  for (const Row& row : rows) {
    ColumnWriter writer(forms, {.type = row.type}, 0);
    EXPECT_EQ(writer.Write({.kind = CellKind::kUntyped, .text = row.text}, table), row.isTaken) << row.text;
  }
}

TEST_F(FileTablesOfFolder, FilesThatCannotBeRead) {
  const std::pair<std::string, std::int32_t> rows[] = {
      {folder_.Path("none.csv"), 53}, {folder_.Path("none/x.csv"), 76}, {folder_.path(), 75}};
  for (const auto& [path, number] : rows) {
    EXPECT_EQ(ErrorOf([&] { First({{.path = path}}, "SELECT 1"); }).number(), number) << path;
  }
}

TEST_F(FileTablesOfFolder, EndWhenInterrupted) {
  const std::atomic<bool> interrupted = true;
  reading_.interrupted = &interrupted;
  EXPECT_EQ(ErrorOf([&] { First({Table("t.csv", "a\n1\n")}, "SELECT 1"); }).number(), 18);
}

}  // namespace
}  // namespace zorkanca::testing
