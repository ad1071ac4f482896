#include "export/excel_export.h"

#include <gtest/gtest.h>

#include "export/zor_office.h"
#include "support/journal_events.h"
#include "support/memory_database.h"
#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

constexpr const char* kTitle = "message 48 [Export dat do aplikace MS Excel] ";

class ExcelExportTest : public ::testing::Test {
 protected:
  ExcelExportTest() {
    office.Advise(&events);
    office.PercentInterval(100);
  }

  bool Run(TextView select = u"SELECT * FROM t") {
    computer.journal.clear();
    return office.XlExport(database, Text(select), arguments);
  }
  std::string DataFile() { return computer.files.Bytes(arguments.rsSourceFile).value_or("none"); }
  // Lines of the journal that begin like this.
  Journal Lines(std::string_view start) {
    Journal lines;
    for (const std::string& line : computer.journal) {
      if (line.starts_with(start)) lines.push_back(line);
    }
    return lines;
  }

  MemoryPlatform computer;
  MemoryDatabase database;
  cZorOffice office{computer.platform};
  JournalEvents events{computer.journal};
  XlExportArguments arguments;
};

TEST_F(ExcelExportTest, StepsInTheirOrder) {
  database.columns = {{u"Kód", FieldType::kText, 5}, {u"cena", FieldType::kCurrency}};
  database.rows = {{Text(u"AB"), Currency{12345000}}, {Null(), Null()}};
  office.BlankRecordsBefore(2);
  arguments.ri_rsOptions = 4;
  ASSERT_TRUE(Run());
  EXPECT_EQ(DataFile(),
            "K\xF3"
            "d;cena\r\n ;\r\n ;\r\nAB;1\xA0"
            "234,50\r\n;\r\n");
  EXPECT_EQ(computer.journal, (Journal{"pointer 11",
                                       "percent 100",
                                       "percent 100",
                                       "pointer 0",
                                       "pointer 11",
                                       "state 1 Otvírá se nový sešit v aplikaci MS Excel ...",
                                       "pointer 11",
                                       "excel start",
                                       "excel updating off",
                                       "excel add ",
                                       "state 0 Dokončeno otvírání nového sešitu aplikaci MS Excel",
                                       "pointer 0",
                                       "excel import 1t 2g ,\u00A0",
                                       "excel copy A1:B5 to A1",
                                       "excel align A -4131",
                                       "excel align B -4152",
                                       "excel close rad00001.tmp",
                                       "excel fit A1:B4",
                                       "excel bold 1:1",
                                       "excel align 1:1 -4108",
                                       "excel activate Sešit1",
                                       "excel activate Sešit1",
                                       "excel select A1",
                                       "pointer 0",
                                       "excel updating on",
                                       "excel visible on",
                                       "excel window -4137"}));
  EXPECT_EQ(arguments.rsSourceFile, u"C:\\Temp\\Zorix\\rad00001.tmp");
  EXPECT_EQ(database.lastOptions, 4);
  EXPECT_EQ(office.BlankRecordsBefore(), 0);
  EXPECT_EQ(CellsOf(*arguments.roRetXls).at(3), (std::vector<Text>{u"AB", u"1\u00A0234,50"}));

  // A running Excel that is left as it is; an old one that does not know the separators.
  computer.excel.knowsSeparators = false;
  arguments.rbSetAppVisible = false;
  arguments.rsFieldNames.clear();
  ASSERT_TRUE(Run(u"SELECT a, b AS cena FROM t"));
  EXPECT_EQ(Lines("excel import"), (Journal{"excel import 1t 2g ,\u00A0", "excel import 1t 2g"}));
  EXPECT_EQ(Lines("excel start"), Journal{});
  EXPECT_EQ(Lines("excel window"), Journal{});
  EXPECT_TRUE(DataFile().starts_with("a;cena\r\n"));
  EXPECT_EQ(arguments.rsFieldNames, u"a;cena");
}

TEST_F(ExcelExportTest, ValuesAndLooksOfColumns) {
  struct Row {
    TextView name;
    FieldType type;
    std::int32_t size;
    std::vector<Value> values;
    std::string cells;
    std::string look;  // import type and alignment
  };
  const std::vector<Row> rows = {
      {u"x", FieldType::kLong, 0, {std::int32_t{-20}, Null()}, "-20|", "g -4152"},
      {u"x",
       FieldType::kDouble,
       0,
       {1234.5, Text(u"bez;")},
       "1\xA0"
       "234,50|\"bez;\"",
       "g -4152"},
      {u"ico", FieldType::kDouble, 0, {12345678.0, 0.0}, "12345678|", "g -4152"},
      {u"x", FieldType::kDate, 0, {Date{46342}}, "16.11.2026", "g -4152"},
      {u"x", FieldType::kBoolean, 0, {true, false}, "True|False", "g -4152"},
      {u"x", FieldType::kText, 2, {Null(), Text(u"  "), Text(u"AB"), Text(u" 7")}, "|  |AB| 7", "t -4152"},
      {u"x", FieldType::kText, 2, {Text(u"AB"), Text(u"CD")}, "AB|CD", "t 1"},
      {u"x",
       FieldType::kMemo,
       0,
       {Text(u"a;b"), Text(u"a\"b;"), Text(u"a\r\nb"), Text(u"a\nb")},
       "\"a;b\"|\"a\"\"b;\"|\"a|b\"|a\nb",
       "t -4131"},
      {u"x", FieldType::kChar, 9, {Text(u"=1+1")}, "=1+1", "t -4131"},
      // A column of another type is read as text as soon as something in it could be calculated.
      {u"x", FieldType::kLong, 0, {Text(u"=1+1"), std::int32_t{2}}, "=1+1|2", "t -4152"},
      {u"x", FieldType::kLong, 0, {Text(u"+A1")}, "+A1", "t -4152"},
      {u"x", FieldType::kGuid, 0, {Text(u"@A1")}, "@A1", "t -4152"},
      {u"x", FieldType::kDouble, 0, {Text(u"-5")}, "-5,00", "g -4152"},
  };
  for (const Row& row : rows) {
    database.columns = {{Text(row.name), row.type, row.size}};
    database.rows.clear();
    arguments.rsFieldNames.clear();
    for (const Value& value : row.values) database.rows.push_back({value});
    EXPECT_TRUE(Run());
    std::string file = ToUtf8(row.name).append("\r\n");
    for (const char byte : row.cells + "|") byte == '|' ? file.append("\r\n") : file.append(1, byte);
    EXPECT_EQ(DataFile(), file);
    EXPECT_EQ(Lines("excel import").at(0), std::string("excel import 1").append(row.look, 0, 1).append(" ,\u00A0"))
        << row.cells;
    EXPECT_EQ(Lines("excel align A").at(0), std::string("excel align A").append(row.look, 1)) << row.cells;
  }
}

TEST_F(ExcelExportTest, MultiplierAndProgress) {
  database.columns = {{u"pocet", FieldType::kDouble}, {u"x", FieldType::kText}};
  database.rows = {{3.0, Text(u"a")}, {0.0, Text(u"b")}};
  office.Multiplier(u"pocet");
  ASSERT_TRUE(Run());
  EXPECT_EQ(DataFile(), "pocet;x\r\n1;a\r\n1;a\r\n1;a\r\n");
  office.Multiplier(u"chybi");
  ASSERT_TRUE(Run());
  EXPECT_EQ(office.Multiplier(), u"");

  database.rows.assign(10, {1.0, Text(u"a")});
  office.PercentInterval(25);
  ASSERT_TRUE(Run());
  EXPECT_EQ(Lines("percent"),
            (Journal{"percent 25", "percent 50", "percent 50", "percent 75", "percent 100", "percent 100"}));
}

TEST_F(ExcelExportTest, FailuresShowTheirMessageAndLeaveNothingBehind) {
  database.columns = {{u"a", FieldType::kText}, {u"b", FieldType::kBinary}};
  database.rows = {{Text(u"x"), Binary(3)}};
  const auto expect = [&](const std::string& message, bool done) {
    EXPECT_FALSE(done);
    EXPECT_EQ(Lines("message"), Journal{kTitle + message});
    EXPECT_EQ(computer.PathsBesideLog(), std::vector<Text>{});
    EXPECT_EQ(office.BlankRecordsBefore(), 0);
    EXPECT_EQ(database.openRecordsets, 0);
    office.BlankRecordsBefore(1);
    arguments.rsSourceFile.clear();
    arguments.rsFieldNames.clear();
  };
  expect("Chyba při sestavování hlavičky souboru !", Run(u"SELECT FROM t"));
  expect("Neočekávaná chyba: \r\n13 - Type mismatch.\r\nZpracovávaná datová položka: \"b\"", Run());
  expect("Neočekávaná chyba: \r\n5 - Invalid procedure call or argument.\r\nZpracovávaná datová položka: \"\"",
         Run(u"SELECT 1"));
  database.rows = {{Text(40000, u'x'), Null()}};
  expect(
      "Neočekávaná chyba: \r\n6 - Characters of a text: 40000; a cell holds 32767.\r\n"
      "Zpracovávaná datová položka: \"a\"",
      Run());
  database.rows = {{Text(u"x"), Null()}};
  events.cancelAt = 100;
  expect("Výstup byl přerušen uživatelem !", Run());
  events.cancelAt = -1;
  computer.excel.refusesToAdd = true;
  expect("Nepodařilo se otevřít aplikaci MS Excel !", Run());
  EXPECT_EQ(Lines("state 0"), Journal{"state 0 Chyba při otvírání sešitu v aplikaci MS Excel: no such file"});
  computer.excel.refusesToAdd = false;
  computer.excel.refusesImports = true;
  expect("Neočekávaná chyba: \r\n1004 - too much.\r\nZpracovávaná datová položka: \"a\"", Run());
  EXPECT_EQ(computer.journal.back(), "excel window -4137") << "Excel is shown after failures as well";
  EXPECT_TRUE(arguments.roRetXls);
  computer.excel.refusesImports = false;
  office.Multiplier(u"c");
  database.columns.push_back({u"c", FieldType::kLong});
  database.rows = {{Text(u"x"), Null(), std::int32_t{32000}}};
  database.rows.resize(33, database.rows[0]);
  expect(
      "Neočekávaná chyba: \r\n6 - Rows of the result: 1048577; a sheet has 1048576.\r\n"
      "Zpracovávaná datová položka: \"c\"",
      Run());
  database.failsToOpen = true;
  expect("Chyba při přístupu k datům !", Run());
  database.failsToOpen = false;
  database.rows.clear();
  expect("Nebyly nalezeny žádné záznamy !", Run());
}

TEST_F(ExcelExportTest, GetOpenXls) {
  GetOpenXlsArguments opening{.rsTemplate = u" "};
  ASSERT_TRUE(office.GetOpenXls(opening));
  EXPECT_EQ(computer.journal,
            (Journal{"state 1 Otvírá se nový sešit v aplikaci MS Excel ...", "pointer 11", "excel start", "excel add ",
                     "excel visible on", "state 0 Dokončeno otvírání nového sešitu aplikaci MS Excel", "pointer 0"}));
  // A running and visible Excel draws nothing while the workbook is added.
  computer.journal.clear();
  opening = {.rsTemplate = u"C:\\t.xlt"};
  ASSERT_TRUE(office.GetOpenXls(opening));
  EXPECT_EQ(Lines("excel"), (Journal{"excel updating off", "excel add C:\\t.xlt", "excel updating on"}));
  computer.journal.clear();
  opening = {.rVisible = AppVisible::avFalse, .rbScreenUpdating = false};
  ASSERT_TRUE(office.GetOpenXls(opening));
  EXPECT_EQ(Lines("excel"), (Journal{"excel visible off", "excel updating off", "excel add "}));
  computer.excel.running = false;
  computer.excel.attachError = 70;
  EXPECT_FALSE(office.GetOpenXls(opening));
  EXPECT_FALSE(opening.roRetXls);
}

}  // namespace
}  // namespace zorkanca::testing
