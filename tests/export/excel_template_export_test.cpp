#include "export/excel_template_export.h"

#include <gtest/gtest.h>

#include "export/multiplier_sum.h"
#include "export/zor_office.h"
#include "support/journal_events.h"
#include "support/memory_database.h"
#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

constexpr const char* kTitle = "message 48 [Export dat do aplikace MS Excel] ";
constexpr TextView kTemplate = u"C:\\Temp\\t.xlt";

TEST(MultiplierSum, SumsTheColumnOrItsExpression) {
  const struct {
    TextView select;
    TextView multiplier;
    TextView sum;
  } kRows[] = {
      {u"SELECT kod, pocet FROM t", u"pocet", u"SELECT SUM(pocet) FROM t"},
      {u"SELECT kod, 2*ks As pocet From t WHERE a ORDER BY kod", u"pocet", u"SELECT SUM(2*ks) From t WHERE a "},
      {u"SELECT kod,MAX(ks) AS pocet from t order by kod", u"pocet", u"SELECT SUM(MAX(ks)) from t order by kod"},
      {u"SELECT Pocet FROM t", u"Pocet", u"SELECT SUM(Pocet) FROM t"},
      {u"as pocet from", u"pocet", u"SELECT SUM() from"},
  };
  for (const auto& row : kRows) EXPECT_EQ(MultiplierSumStatement(row.select, row.multiplier), row.sum);
  EXPECT_EQ(ErrorOf([] { MultiplierSumStatement(u"SELECT 1", u"a"); }).number(), 5);
}

class ExcelTemplateExportTest : public ::testing::Test {
 protected:
  ExcelTemplateExportTest() {
    office.Advise(&events);
    office.PercentInterval(100);
    computer.files.Put(kTemplate, "");
    computer.excel.templateCells = {{u"{a}", u"{b}"}, {u"Cena: {c}"}};
    database.columns = {{u"a"}, {u"b"}, {u"c", FieldType::kLong}};
    database.rows = {{Text(u"1"), Text(u"x"), std::int32_t{10}}, {Text(u"2"), Null(), std::int32_t{20}}};
  }

  bool Run(TextView select = u"SELECT a, b, c FROM t") {
    computer.journal.clear();
    arguments.rsTemplate = kTemplate;
    return office.XlExport_sab(database, Text(select), arguments);
  }
  bool RunFiles(std::string_view header, std::string_view data) {
    computer.journal.clear();
    computer.files.Put(u"C:\\Temp\\h.txt", std::string(header));
    computer.files.Put(u"C:\\Temp\\d.txt", std::string(data));
    arguments.rsTemplate = kTemplate;
    return office.XlExport_sab_file(u"C:\\Temp\\h.txt", u"C:\\Temp\\d.txt", arguments);
  }
  std::string DataFile() { return computer.files.Bytes(arguments.rsSourceFile).value_or("none"); }
  Journal Lines(std::string_view start) {
    Journal lines;
    for (const std::string& line : computer.journal) {
      if (line.starts_with(start)) lines.push_back(line);
    }
    return lines;
  }
  // The data file of a template of one cell, filled with one value of the column "a" and one of "b".
  std::string Cell(TextView pattern, const Value& a, const Value& b = Null()) {
    computer.excel.templateCells = {{Text(pattern)}};
    database.rows = {{a, b, std::int32_t{1}}};
    EXPECT_TRUE(Run()) << ::testing::PrintToString(computer.journal);
    std::string file = DataFile();
    file.resize(file.size() - 2);
    return file;
  }

  MemoryPlatform computer;
  MemoryDatabase database;
  cZorOffice office{computer.platform};
  JournalEvents events{computer.journal};
  XlSabArguments arguments;
};

TEST_F(ExcelTemplateExportTest, StepsInTheirOrder) {
  office.BlankRecordsBefore(1);
  ASSERT_TRUE(Run());
  EXPECT_EQ(DataFile(), " ;\r\n \r\n1;x\r\nCena: 10\r\n2;\r\nCena: 20\r\n");
  EXPECT_EQ(computer.journal, (Journal{"pointer 11",
                                       "pointer 0",
                                       "pointer 11",
                                       "state 1 Otvírá se nový sešit v aplikaci MS Excel ...",
                                       "pointer 11",
                                       "excel start",
                                       "excel updating off",
                                       "excel add C:\\Temp\\t.xlt",
                                       "state 0 Dokončeno otvírání nového sešitu aplikaci MS Excel",
                                       "pointer 0",
                                       "pointer 11",
                                       "excel interactive off",
                                       "state 2 Načítají se nastavení uložená v šabloně ...",
                                       "excel copy 1:2",
                                       "excel select 3:6",
                                       "excel paste at 3:6",
                                       "excel copied forgotten",
                                       "state 2 Probíhá výstup dat do aplikace MS Excel ...",
                                       "percent 100",
                                       "percent 100",
                                       "excel import 1t 2t",
                                       "excel activate rad00001.tmp",
                                       "excel copy A1:B6",
                                       "excel paste -4123 at A1",
                                       "clear clipboard",
                                       "excel close rad00001.tmp",
                                       "excel select A1",
                                       "pointer 0",
                                       "pointer 0",
                                       "excel updating on",
                                       "excel interactive on",
                                       "excel visible on",
                                       "excel window -4137"}));
  EXPECT_EQ(CellsOf(*arguments.roRetXls).at(5).at(0), u"Cena: 20");
  EXPECT_EQ(arguments.rsFieldNames, u"a;b;c");
  EXPECT_EQ(office.BlankRecordsBefore(), 0);
  EXPECT_EQ(database.openRecordsets, 0);
}

TEST_F(ExcelTemplateExportTest, PicturesAreCopiedWithEachPaste) {
  computer.excel.shapes = 1;
  database.rows.push_back(database.rows[0]);
  ASSERT_TRUE(Run());
  EXPECT_EQ(Lines("excel paste at"), (Journal{"excel paste at A3", "excel paste at A5"}));
  computer.excel.shapes = -1;  // what cannot be counted is not there
  ASSERT_TRUE(Run());
  EXPECT_EQ(Lines("excel paste at"), Journal{"excel paste at 3:6"});
  database.rows.resize(1);
  ASSERT_TRUE(Run());
  EXPECT_EQ(Lines("excel paste at"), Journal{}) << "one record needs no repetition";
}

TEST_F(ExcelTemplateExportTest, WithoutTheClipboardTextsStayTexts) {
  computer.registry.Write(RegistryHive::kLocalMachine, u"SOFTWARE\\QRD\\Zorix\\Instalace\\ZorKancA",
                          u"XlPasteFormulasNoClipboard", Text(u"1"));
  cZorOffice careful(computer.platform);
  computer.excel.templateCells = {{u"{a}", u"{b}"}};
  database.rows = {{Text(u"=A1"), Null(), std::int32_t{1}}};
  database.rows.resize(40000, {Text(u"'007"), Text(u"x"), std::int32_t{1}});
  arguments.rsTemplate = kTemplate;
  ASSERT_TRUE(careful.XlExport_sab(database, u"SELECT a, b FROM t", arguments));
  EXPECT_EQ(Lines("excel contents"), (Journal{"excel contents A1:B32768", "excel contents A32769:B40000"}));
  EXPECT_EQ(Lines("clear"), Journal{});
  const FakeCells cells = CellsOf(*arguments.roRetXls);
  EXPECT_EQ(cells.at(0).at(0), u"'=A1");
  EXPECT_EQ(cells.at(0).at(1), u"");
  EXPECT_EQ(cells.at(39999).at(0), u"''007");

  // Formulas of a block are formulas, their results are not looked at; other values stay what they are.
  const auto target = computer.excel.application->AddWorkbook({});
  const auto source = computer.excel.application->AddWorkbook({});
  const auto block = source->Sheets(1)->Range(u"A1");
  block->Formula(u"=R[1]C");
  TransferContents(*block, *target->Sheets(1)->Range(u"A1"));
  EXPECT_EQ(target->Sheets(1)->Range(u"A1")->Text(), u"=R[1]C");
}

TEST_F(ExcelTemplateExportTest, CellPatterns) {
  EXPECT_EQ(Cell(u"Zboží", Null()), "Zbo\x9E\xED");
  EXPECT_EQ(Cell(u"x;\"y\" }", Null()), "\"x;\"\"y\"\" }\"");
  EXPECT_EQ(Cell(u"{a}/{A}{b}.", Text(u" x "), Null()), " x / x .");
  EXPECT_EQ(Cell(u"{a; TRIM }", Text(u" x ")), "x");
  EXPECT_EQ(Cell(u"{ a ;#,##0.0;(0)}|{b;d. m. yyyy}", 1234.5, Date{46342}),
            "1\xA0"
            "234,5|16. 11. 2026");
  EXPECT_EQ(Cell(u"{a;}", 0.5), "0,5");
  EXPECT_EQ(Cell(u"<{Code}>", Text(u"x")), "<>") << "no bar code was asked for";
  // Quotes of a value within other text stay those of the value; whatever would break the file encloses all of it.
  EXPECT_EQ(Cell(u"{a}", Text(u"1\"2")), "\"1\"\"2\"");
  EXPECT_EQ(Cell(u"Šroub {a}", Text(u"1\"2")), "\x8Aroub \"1\"\"2\"");
  EXPECT_EQ(Cell(u"{a} {b}", Text(u"1\""), Text(u"x")), "\"1\"\" x\"");
  EXPECT_EQ(Cell(u"\"{a}", Text(u"x")), "\"\"\"x\"");
  EXPECT_EQ(Cell(u"{a}, {b}", Text(u"1;2"), Text(u"3\"")), "\"1;2, \"\"3\"\"\"\"\"\"\"") << "as without the semicolon";
  EXPECT_EQ(Cell(u"{a};{b}", Text(u"1"), Text(u"2")), "\"1;2\"");
  EXPECT_EQ(Cell(u"{a}", Text(u"1\r\n2")), "\"1\r\n2\"");
  EXPECT_EQ(Cell(u"{a}", Text(u"1\n2")), "\"1\n2\"");
  EXPECT_EQ(Cell(u"{a}", Text(u"=1+1")), "=1+1");
  EXPECT_EQ(Lines("excel import"), Journal{"excel import 1t"}) << "read as a text, it is never calculated";

  arguments.rsFieldNames = u"a;b;c {Code39;a,trim;BC;0}";
  EXPECT_EQ(Cell(u"{CODE} {a}", Text(u"AB")), "*AB* AB");
  EXPECT_EQ(arguments.rsFieldNames, u"a;b;c");
}

TEST_F(ExcelTemplateExportTest, RowsEndAtTheirFirstEmptyCell) {
  computer.excel.templateCells = {{u"{a}", u"", u"{chybi}"}, {u" ", u"{chybi}"}, std::vector<Text>(10, u"{c}")};
  database.rows.resize(1);
  office.BlankRecordsBefore(1);
  ASSERT_TRUE(Run());
  EXPECT_EQ(DataFile(), " \r\n\r\n ;;;;;;;;;\r\n1\r\n\r\n10;10;10;10;10;10;10;10;10;10\r\n");
  EXPECT_EQ(Lines("excel import"), Journal{"excel import 1t 2t 3t 4t 5t 6t 7t 8t 9t 10t"});

  // Whoever listens is told of placeholders behind that cell.
  struct Warnings final : ExportListener {
    Journal texts;
    void Cause(const Error&) override {}
    void Warning(TextView text) override { texts.push_back(Shown(text)); }
  } warnings;
  office.Listen(&warnings);
  computer.excel.templateCells = {{u"{a}", u"", u"{chybi}", u"pozn.", u"{"}, {u" ", u"{chybi}"}, {u"{c}", u"{c}"}};
  ASSERT_TRUE(Run());
  const std::string end = " of the template stays as it is: an empty cell before it ends the pattern of its row.";
  EXPECT_EQ(warnings.texts, (Journal{"Cell C1" + end, "Cell B2" + end}));
  office.Listen(nullptr);

  // A formula of the template may follow ten cells, a placeholder may not.
  computer.excel.templateCells = {std::vector<Text>(11, u"{c}")};
  EXPECT_FALSE(Run());
  computer.excel.templateCells[0][10] = u"=A1";
  EXPECT_TRUE(Run());
}

TEST_F(ExcelTemplateExportTest, MultiplierAndProgress) {
  database.columns.push_back({u"pocet", FieldType::kLong});
  database.rows = {{Text(u"1"), Null(), Null(), std::int32_t{3}}, {Text(u"2"), Null(), Null(), std::int32_t{0}}};
  computer.excel.templateCells = {{u"{a}", u"{pocet}"}};
  office.Multiplier(u"pocet");
  office.PercentInterval(50);
  database.sums = {{3.0}};
  ASSERT_TRUE(Run(u"SELECT a, 1 * k AS pocet FROM t ORDER BY a"));
  EXPECT_EQ(database.lastSelect, u"SELECT SUM(k) FROM t ");
  EXPECT_EQ(DataFile(), "1;3\r\n1;3\r\n1;3\r\n");
  EXPECT_EQ(Lines("excel select"), (Journal{"excel select 2:3", "excel select A1"}));
  EXPECT_EQ(Lines("percent"), (Journal{"percent 50", "percent 100", "percent 100"}));
  for (const Value& sum : {Value(Null()), Value(0.0), Value(0.4)}) {
    database.sums = {{sum}};
    EXPECT_FALSE(Run());
    EXPECT_EQ(Lines("message"), Journal{kTitle + std::string("Nebyly nalezeny žádné záznamy !")});
  }
  office.Multiplier(u"chybi");
  ASSERT_TRUE(Run());
  EXPECT_EQ(office.Multiplier(), u"");
}

TEST_F(ExcelTemplateExportTest, PreparedFiles) {
  computer.excel.templateCells = {{u"{ KOD }", u"{cena;0.0}", u"{chybi}", u"{code}"}};
  office.Multiplier(u"cena");
  ASSERT_TRUE(RunFiles("kod;cena,{Code39;kod,trim;BC;0}", "\"A;\"\"1\";2,55;x\r\nB;3\r\n"));
  EXPECT_EQ(DataFile(), "\"A;\"\"1\";2,6;;**\r\nB;3,0;;*B*\r\n");
  EXPECT_EQ(Lines("excel select"), (Journal{"excel select 2:2", "excel select A1"}));
  EXPECT_EQ(Lines("percent"), (Journal{"percent 100", "percent 100"}));

  const auto expect = [&](const std::string& message, bool done) {
    EXPECT_FALSE(done);
    EXPECT_EQ(Lines("message"), Journal{kTitle + message});
  };
  expect("Neočekávaná chyba: \r\n9 - Subscript out of range.", RunFiles("kod;cena", "A"));
  expect("Nebyly nalezeny žádné záznamy !", RunFiles("kod", " "));
  expect("Hlavičkový soubor je prázdný !", RunFiles(" ", "A"));
  computer.journal.clear();
  expect("Hlavičkový soubor nebyl nalezen !", office.XlExport_sab_file(u"C:\\x.txt", u"C:\\Temp\\d.txt", arguments));
  computer.files.Put(u"C:\\Temp\\h.txt", "kod");
  computer.journal.clear();
  expect("Datový soubor nebyl nalezen !", office.XlExport_sab_file(u"C:\\Temp\\h.txt", u"C:\\x.txt", arguments));
}

TEST_F(ExcelTemplateExportTest, FailuresShowTheirMessage) {
  const auto expect = [&](const std::string& message, bool done) {
    EXPECT_FALSE(done);
    EXPECT_EQ(Lines("message"), Journal{kTitle + message});
    EXPECT_EQ(office.BlankRecordsBefore(), 0);
    EXPECT_EQ(database.openRecordsets, 0);
    office.BlankRecordsBefore(1);
    arguments.rsFieldNames.clear();
  };
  const auto pattern = [&](TextView text) {
    computer.excel.templateCells = {{Text(text)}};
    return Run();
  };
  expect("Chyba při sestavování hlavičky souboru !", Run(u"SELECT FROM t"));
  // The template is looked at before anything is done to it.
  expect("Neočekávaná chyba: \r\n3265 - Item not found in this collection..\r\nNázev položky: \"chybi\"",
         pattern(u"{a}{chybi}"));
  expect("Neočekávaná chyba: \r\n5 - Nothing closes the brace in cell A1 of the template: {a} {b.", pattern(u"{a} {b"));
  EXPECT_EQ(arguments.rsSourceFile, u"") << "no data file was begun";
  EXPECT_EQ(Lines("excel copy"), Journal{});
  EXPECT_EQ(computer.journal.back(), "excel window -4137");
  EXPECT_EQ(CellsOf(*arguments.roRetXls).at(0).at(0), u"{a} {b");
  database.rows[1][0] = Text(40000, u'x');
  expect("Neočekávaná chyba: \r\n6 - Characters of a text: 40002; a cell holds 32767.", pattern(u"<{a}>"));
  EXPECT_EQ(DataFile(), " \r\n<1>\r\n") << "as far as it was written";
  computer.excel.refusesImports = true;
  expect("Neočekávaná chyba: \r\n1004 - too much.", pattern(u"{c}"));
  computer.excel.refusesImports = false;

  events.cancelAt = 100;
  expect("Výstup byl přerušen uživatelem !", pattern(u"{c}"));
  EXPECT_FALSE(arguments.roRetXls);
  const Journal closing = {"excel close Sešit1", kTitle + std::string("Výstup byl přerušen uživatelem !"), "pointer 0"};
  const auto closed = std::find(computer.journal.begin(), computer.journal.end(), closing[0]);
  EXPECT_EQ(Journal(closed, std::min(closed + 3, computer.journal.end())), closing);
  events.cancelAt = -1;
  office.Multiplier(u"c");
  database.sums = {{1048577.0}};
  expect("Neočekávaná chyba: \r\n6 - Rows of the result: 1048578; a sheet has 1048576.", pattern(u"{c}"));
  office.Multiplier(u"");
  computer.excel.refusesToAdd = true;
  expect("Nepodařilo se otevřít aplikaci MS Excel !", Run());
  computer.files.DeleteFile(kTemplate, true);
  expect("Neplatný název šablony !", Run());
  database.failsToOpen = true;
  expect("Chyba při přístupu k datům !", Run());
}

}  // namespace
}  // namespace zorkanca::testing
