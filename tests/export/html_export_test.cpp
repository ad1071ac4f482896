#include "export/html_export.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "export/zor_office.h"
#include "support/journal_events.h"
#include "support/memory_database.h"
#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

constexpr const char* kFailureTitle = "message 48 [Export dat do formátu HTML] ";

class HtmlExportTest : public ::testing::Test {
 protected:
  HtmlExportTest() { office.Advise(&events); }

  bool Run(TextView select = u"SELECT * FROM t") { return office.HTMLExport(database, Text(select), arguments); }

  // The written file as text; code page 1250 decoded.
  Text Written() {
    Text text;
    const auto bytes = computer.files.Bytes(arguments.rsSourceFile);
    if (bytes) computer.locale.codePage->AppendDecoded(text, *bytes);
    return text;
  }

  // The data cells of a table of one column, without their common frame.
  std::vector<std::string> Cells(FieldType type, std::vector<Value> values, TextView name = u"x") {
    database.columns = {{Text(name), type}};
    database.rows.clear();
    for (Value& value : values) database.rows.push_back({std::move(value)});
    EXPECT_TRUE(Run()) << ::testing::PrintToString(computer.journal);
    std::vector<std::string> cells;
    const Text written = Written();
    for (TextView line : Split(written, u'\n')) {
      constexpr TextView kFrame = u"        <TD align=\"";
      if (!line.starts_with(kFrame) || line.find(u"<B>") != TextView::npos) continue;
      cells.push_back(Shown(line.substr(kFrame.size(), line.size() - kFrame.size() - 6)));  // without </TD> and CR
    }
    return cells;
  }

  MemoryPlatform computer;
  MemoryDatabase database;
  cZorOffice office{computer.platform};
  JournalEvents events{computer.journal};
  HtmlExportArguments arguments;
};

TEST_F(HtmlExportTest, WholeFileAndJournal) {
  database.columns = {{u"Kód", FieldType::kLong}, {u"Název", FieldType::kText, 20}, {u"Pozn", FieldType::kMemo}};
  database.rows = {{std::int32_t{1}, Text(u"Žluťoučký kůň \x4E2D"), Null()},
                   {std::int32_t{-20}, Text(u"<b>a</b>"), Text(u"x\r\ny")}};
  office.BlankRecordsBefore(1);
  arguments = {.ri_rsOptions = 4,
               .rsTitle = u"Sklad & <zboží>",
               .riTblBorder = 2,
               .riTblCellPadding = 0,
               .riTblCellSpacing = -1};
  ASSERT_TRUE(Run());

  EXPECT_EQ(arguments.rsSourceFile, u"C:\\Temp\\Zorix\\rad00001.htm");
  EXPECT_EQ(computer.files.Bytes(u"C:\\Temp\\Zorix\\rad00001.htm"),
            "<HTML>\r\n"
            "<HEAD>\r\n"
            "<TITLE>Sklad & <zbo\x9E\xED></TITLE>\r\n"
            "</HEAD>\r\n"
            "<BODY>\r\n"
            "<TABLE border=2 cellPadding=0 cellSpacing=-1>\r\n"
            "    <TR>\r\n"
            "        <TD align=\"center\"><B><FONT size=+1>&nbsp;K\xF3"
            "d&nbsp;</FONT></B></TD>\r\n"
            "        <TD align=\"center\"><B><FONT size=+1>&nbsp;N\xE1zev&nbsp;</FONT></B></TD>\r\n"
            "        <TD align=\"center\"><B><FONT size=+1>&nbsp;Pozn&nbsp;</FONT></B></TD>\r\n"
            "    </TR>\r\n"
            "    <TR>\r\n"
            "        <TD align=\"left\">&nbsp;</TD>\r\n"
            "        <TD align=\"left\">&nbsp;</TD>\r\n"
            "        <TD align=\"left\">&nbsp;</TD>\r\n"
            "    </TR>\r\n"
            "    <TR>\r\n"
            "        <TD align=\"right\">1</TD>\r\n"
            "        <TD align=\"left\">\x8Elu\x9Dou\xE8k\xFD k\xF9\xF2 ?</TD>\r\n"
            "        <TD align=\"left\">&nbsp;</TD>\r\n"
            "    </TR>\r\n"
            "    <TR>\r\n"
            "        <TD align=\"right\">-20</TD>\r\n"
            "        <TD align=\"left\"><b>a</b></TD>\r\n"
            "        <TD align=\"left\">x\r\ny</TD>\r\n"
            "    </TR>\r\n"
            "</TABLE>\r\n"
            "</BODY>\r\n"
            "</HTML>\r\n");
  EXPECT_EQ(computer.journal,
            (Journal{"pointer 11", "percent 1", "percent 50", "percent 100",
                     "state 1 Otvírá se prohlížeč formátu HTML ...", "pointer 11", "open C:\\Temp\\Zorix\\rad00001.htm",
                     "state 0 Dokončeno otvírání prohlížeče formátu HTML", "pointer 0"}));
  EXPECT_EQ(database.lastOptions, 4);
  EXPECT_EQ(database.openRecordsets, 0);
  EXPECT_EQ(office.BlankRecordsBefore(), 0);
}

TEST_F(HtmlExportTest, EachTypeHasItsTextAndSide) {
  using Lines = std::vector<std::string>;
  EXPECT_EQ(Cells(FieldType::kBoolean, {true, false, Null()}),
            (Lines{"left\">Pravda", "left\">Nepravda", "left\">&nbsp;"}));
  EXPECT_EQ(Cells(FieldType::kBigInteger, {std::int64_t{9007199254740993}, Null()}),
            (Lines{"right\">9007199254740993", "right\">&nbsp;"}));
  EXPECT_EQ(Cells(FieldType::kCurrency, {Currency{12345000}, Currency{0}, Null()}),
            (Lines{"right\">1\u00A0234,50", "right\">0,00", "right\">&nbsp;"}));
  EXPECT_EQ(Cells(FieldType::kDouble, {-1234567.1234567, Text(u"bez")}),
            (Lines{"right\">-1\u00A0234\u00A0567,123457", "right\">bez"}));
  EXPECT_EQ(Cells(FieldType::kDouble, {12345678.0, 0.0}, u"ico"), (Lines{"right\">12345678", "right\">"}));
  EXPECT_EQ(Cells(FieldType::kDouble, {12345678.0}, u"ICO"), (Lines{"right\">12\u00A0345\u00A0678,00"}));
  EXPECT_EQ(Cells(FieldType::kDate, {Date{46342}, Date{46342.5}}),
            (Lines{"right\">16.11.2026", "right\">16.11.2026 12:00:00"}));
  EXPECT_EQ(Cells(FieldType::kText, {Text(u"a "), Text(u"  12"), Text(u"   "), Text(u""), Null()}),
            (Lines{"left\">a ", "right\">  12", "left\">&nbsp;", "left\">&nbsp;", "left\">&nbsp;"}));
  EXPECT_EQ(Cells(FieldType::kGuid, {Text(u" {1}")}), (Lines{"left\"> {1}"}));
}

TEST_F(HtmlExportTest, HeaderCellsAreTheNamesNotTheFields) {
  database.columns = {{u"a", FieldType::kLong}};
  database.rows = {{std::int32_t{1}}};
  arguments.rsFieldNames = u"První;;Třetí;";
  ASSERT_TRUE(Run());
  const Text written = Written();
  EXPECT_NE(written.find(u">&nbsp;První&nbsp;<"), Text::npos);
  EXPECT_NE(written.find(u">&nbsp;Třetí&nbsp;<"), Text::npos);
  std::size_t cells = 0;
  for (std::size_t at = written.find(u"<FONT"); at != Text::npos; at = written.find(u"<FONT", at + 1)) ++cells;
  EXPECT_EQ(cells, 4u) << "empty entries give cells, the last one too";
  EXPECT_EQ(arguments.rsFieldNames, u"");
}

TEST_F(HtmlExportTest, OutputPath) {
  database.columns = {{u"a", FieldType::kLong}};
  database.rows = {{std::int32_t{1}}};
  computer.files.CreateFolder(u"C:\\Temp\\Out");
  const struct {
    TextView given;
    TextView written;
  } kCases[] = {
      {u"Report.TXT", u"C:\\Temp\\Zorix\\Report.htm"},
      {u"C:\\Temp\\a.HTML", u"C:\\Temp\\a.html"},
      {u"C:\\Temp\\Out\\b.tar.HTM", u"C:\\Temp\\Out\\b.tar.htm"},
      {u"C:\\Temp\\ c ", u"C:\\Temp\\c.htm"},
  };
  for (const auto& row : kCases) {
    arguments.rsSourceFile = row.given;
    EXPECT_TRUE(Run());
    EXPECT_EQ(arguments.rsSourceFile, row.written);
    EXPECT_TRUE(computer.files.FileExists(row.written));
  }
}

TEST_F(HtmlExportTest, MultiplierCopiesRecords) {
  database.columns = {{u"pocet", FieldType::kLong}, {u"x", FieldType::kText}};
  database.rows = {{std::int32_t{2}, Text(u"a")},
                   {std::int32_t{0}, Text(u"b")},
                   {std::int32_t{-1}, Text(u"c")},
                   {std::int32_t{1}, Text(u"d")}};
  office.Multiplier(u"pocet");
  ASSERT_TRUE(Run());
  const Text written = Written();
  EXPECT_NE(written.find(
                u"\">1</TD>\r\n        <TD align=\"left\">a</TD>\r\n    </TR>\r\n    <TR>\r\n"
                u"        <TD align=\"right\">1</TD>\r\n        <TD align=\"left\">a</TD>\r\n    </TR>\r\n    <TR>\r\n"
                u"        <TD align=\"right\">1</TD>\r\n        <TD align=\"left\">d<"),
            Text::npos)
      << Shown(written);

  // A name in other letters finds the column but is not the multiplier's own, so it shows its value.
  office.Multiplier(u"POCET");
  ASSERT_TRUE(Run());
  EXPECT_NE(Written().find(u">2</TD>"), Text::npos);

  computer.journal.clear();
  office.Multiplier(u"chybi");
  EXPECT_FALSE(Run());
  EXPECT_THAT(computer.journal,
              ::testing::Contains(kFailureTitle +
                                  std::string("Neočekávaná chyba: \r\n3265 - Item not found in this collection..")));
  EXPECT_EQ(office.Multiplier(), u"chybi");
}

TEST_F(HtmlExportTest, FailuresShowTheirMessageAndLeaveNothingBehind) {
  database.columns = {{u"a", FieldType::kBinary}};
  database.rows = {{std::int32_t{1}}, {Binary(3)}, {std::int32_t{3}}};
  computer.files.Put(u"C:\\Temp\\old.htm", "old");
  arguments.rsSourceFile = u"C:\\Temp\\old.htm";

  const auto expect = [&](const char* message, bool done) {
    EXPECT_FALSE(done);
    EXPECT_THAT(computer.journal, ::testing::Contains(kFailureTitle + std::string(message)));
    EXPECT_EQ(computer.journal.back(), "pointer 0");
    EXPECT_EQ(office.BlankRecordsBefore(), 0);
    EXPECT_EQ(database.openRecordsets, 0);
    computer.journal.clear();
    office.BlankRecordsBefore(1);
  };
  expect("Chyba při sestavování hlavičky souboru !", Run(u"SELECT FROM t"));
  expect("Neočekávaná chyba: \r\n5 - Invalid procedure call or argument.", Run(u"SELECT 1"));
  database.failsToOpen = true;
  expect("Chyba při přístupu k datům !", Run());
  database.failsToOpen = false;
  const std::function<void()> failures[] = {[] { throw std::runtime_error("lost"); }, [] { throw 1; },
                                            [] { throw Error(-1, Text(), u"own number"); }};
  for (const auto& fail : failures) {
    database.onOpen = fail;
    expect("Chyba při přístupu k datům !", Run());
  }
  database.onOpen = nullptr;
  database.forwardOnly = true;
  expect("Chyba při přístupu k datům !", Run());
  database.forwardOnly = false;
  EXPECT_EQ(computer.files.Bytes(u"C:\\Temp\\old.htm"), "old") << "this export has not opened it";

  // From here on the export has taken the file over: it is gone after a failure.
  expect("Neočekávaná chyba: \r\n13 - Type mismatch.", Run());
  EXPECT_FALSE(computer.files.FileExists(u"C:\\Temp\\old.htm"));
  database.rows[1] = {std::int32_t{2}};
  office.PercentInterval(40);
  events.cancelAt = 40;
  expect("Výstup byl přerušen uživatelem !", Run());
  EXPECT_EQ(computer.PathsBesideLog(), std::vector<Text>{});
  events.cancelAt = -1;
  computer.shell.onOpen = [](TextView) { Raise(RuntimeError::kFileNotFound); };
  expect("Neočekávaná chyba: \r\n53 - File not found.", Run());
  EXPECT_EQ(computer.PathsBesideLog(), std::vector<Text>{});
  database.rows.clear();
  expect("Nebyly nalezeny žádné záznamy !", Run());
}

TEST_F(HtmlExportTest, AFailureOfAnyFileCallCleansUp) {
  database.columns = {{u"a", FieldType::kLong}};
  database.rows = {{std::int32_t{1}}, {std::int32_t{2}}};
  int call = 1;
  for (; call < 100; ++call) {
    computer.files.FailFromCall(call);
    computer.journal.clear();
    const bool done = Run();
    computer.files.FailFromCall(0);
    if (done) break;
    EXPECT_THAT(computer.journal,
                ::testing::Contains(kFailureTitle + std::string("Neočekávaná chyba: \r\n70 - Permission denied.")));
    EXPECT_EQ(computer.PathsBesideLog(), std::vector<Text>{});
    EXPECT_EQ(database.openRecordsets, 0);
  }
  EXPECT_GT(call, 10) << "the export opened, wrote and closed its file; from each of those calls on all have failed";
}

}  // namespace
}  // namespace zorkanca::testing
