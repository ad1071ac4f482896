// WdExport and WdExport_file: from the data to the merged document, and how they end when they cannot go on.
#include "export/word_export.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "export/zor_office.h"
#include "support/form_person.h"
#include "support/journal_events.h"
#include "support/memory_database.h"
#include "support/memory_platform.h"
#include "support/template_lists.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

constexpr TextView kTemplate = u"C:\\Temp\\t.dotx";
const std::string kTitle = "message 48 [Export dat do aplikace MS Word] ";
const std::string kUnexpected = kTitle + "Neočekávaná chyba: \r\n";

class WordExportTest : public ::testing::Test {
 protected:
  WordExportTest() {
    office.Advise(&events);
    computer.files.Put(kTemplate, "");
    database.columns = {{u"kod", FieldType::kLong}, {u"nazev", FieldType::kText}};
    database.rows = {{std::int32_t{1}, Text(u"a;b")}, {std::int32_t{2}, Text(u"c\r\nd\ne")}};
    arguments.rsTemplate = kTemplate;
  }

  bool Run(TextView select = u"SELECT * FROM t") {
    computer.journal.clear();
    return office.WdExport(database, Text(select), arguments);
  }
  bool RunFiles(WordExportArguments& own, const char* header, const char* data) {
    computer.files.Put(u"C:\\Temp\\h.txt", header);
    computer.files.Put(u"C:\\Temp\\d.txt", data);
    computer.journal.clear();
    return office.WdExport_file(u"C:\\Temp\\h.txt", u"C:\\Temp\\d.txt", own);
  }
  std::string Data(const Text& path) {
    return Shown(computer.files.OpenTextFile(path, IoMode::kForReading, false, TextFormat::kUnicode)->ReadAll());
  }
  std::vector<std::string> Messages() const {
    std::vector<std::string> messages;
    for (const std::string& line : computer.journal) {
      if (line.starts_with("message ")) messages.push_back(line);
    }
    return messages;
  }
  // The texts of the files that each merge reads; as the engine does, it fails when the file cannot be read.
  void WatchMerges() {
    computer.word.merge = [this](const Text& text) {
      const std::string& source = *std::find_if(computer.journal.rbegin(), computer.journal.rend(),
                                                [](const auto& line) { return line.starts_with("word source "); });
      merged.push_back(Data(FromUtf8(source.substr(12))));
      return text;
    };
  }

  MemoryPlatform computer;
  MemoryDatabase database;
  cZorOffice office{computer.platform};
  JournalEvents events{computer.journal};
  WdExportArguments arguments;
  std::vector<std::string> merged;
};

using Strings = std::vector<std::string>;

TEST_F(WordExportTest, FromTheQueryToTheDocument) {
  WatchMerges();
  office.BlankRecordsBefore(1);
  office.PercentInterval(50);
  arguments.ri_rsOptions = 4;
  arguments.rvFormat = {u"0000"};
  arguments.rsFieldNames = u"číslo;jméno,{Code39;kod,trim;BC;0}";
  ASSERT_TRUE(Run());
  EXPECT_EQ(merged, std::vector<std::string>{"číslo;jméno;BC\\r\\n;;\\r\\n0001;\"a;b\";*1*\\r\\n"
                                             "0002;\"c\\r\\nd\\ne\";*2*\\r\\n"});
  EXPECT_EQ(arguments.rsFieldNames, u"číslo;jméno;BC");
  EXPECT_EQ(arguments.rsSourceFile, u"C:\\Temp\\Zorix\\rad00001.tmp");
  EXPECT_TRUE(computer.files.FileExists(arguments.rsSourceFile)) << "the next export clears it away";
  ASSERT_TRUE(arguments.roRetDoc);
  EXPECT_EQ(arguments.roRetDoc->FullName(), u"merged");
  EXPECT_EQ(database.lastOptions, 4);
  EXPECT_EQ(database.openRecordsets, 0);
  EXPECT_EQ(office.BlankRecordsBefore(), 0);
  const Journal begin = {"pointer 11", "percent 50", "percent 50", "percent 100", "pointer 0", "pointer 11"};
  EXPECT_EQ(Journal(computer.journal.begin(), computer.journal.begin() + 6), begin);
  EXPECT_THAT(computer.journal, ::testing::Contains("word visible on"));
  EXPECT_EQ(computer.journal.back(), "pointer 0");

  arguments.rbSetAppVisible = false;
  office.Multiplier(u"neni");
  ASSERT_TRUE(Run());
  EXPECT_EQ(office.Multiplier(), u"") << "a multiplier that gives no number is dropped";
}

TEST_F(WordExportTest, OneDocumentForEachRecord) {
  WatchMerges();
  arguments.MultiDocument = true;
  std::vector<Text> finished;
  office.WhenDocumentIsFinished([&](const FinishedDocument& finishedDocument) {
    finished.push_back(*finishedDocument.valueOf(u"NAZEV"));
    EXPECT_EQ(finishedDocument.valueOf(u"cena"), std::nullopt);
    finishedDocument.document->Close(false);
  });
  ASSERT_TRUE(Run());
  EXPECT_EQ(merged,
            (std::vector<std::string>{"kod;nazev\\r\\n1;\"a;b\"\\r\\n", "kod;nazev\\r\\n2;\"c\\r\\nd\\ne\"\\r\\n"}))
      << "a lone LF stays in its value";
  EXPECT_EQ(finished, (std::vector<Text>{u"a;b", u"c×¶d\ne"})) << "as the record has it, on one line";
  EXPECT_TRUE(computer.word.documents.empty());
  EXPECT_EQ(std::count(computer.journal.begin(), computer.journal.end(), "percent 100"), 1) << "the merge's own";
  EXPECT_EQ(computer.PathsBesideLog(), (std::vector<Text>{kTemplate.data(), arguments.rsSourceFile}));

  office.WhenDocumentIsFinished([&](const FinishedDocument&) { Raise(RuntimeError::kDiskFull); });
  EXPECT_FALSE(Run());
  EXPECT_THAT(computer.journal,
              ::testing::Contains("state 0 Chyba ve zpracování dat nástrojem hromadné korespondence: Disk full"));
}

TEST_F(WordExportTest, FailuresShowMessagesAndCheckpoints) {
  const auto expect = [&](const Strings& messages, TextView select = u"SELECT * FROM t") {
    EXPECT_FALSE(Run(select));
    EXPECT_EQ(Messages(), messages);
    EXPECT_EQ(computer.journal.back(), "pointer 0");
    EXPECT_EQ(database.openRecordsets, 0);
    EXPECT_EQ(computer.PathsBesideLog(), std::vector<Text>{Text(kTemplate)}) << messages.front();
    arguments.rsTemplate = kTemplate;
    arguments.rsFieldNames.clear();
    arguments.rsSourceFile.clear();
  };
  const auto stoppedAt = [](int number) {
    return "message 0 [] Přerušení v kontrolním bodě " + std::to_string(number);
  };

  arguments.rsFieldNames = u"a{b";
  const std::string parameters =
      "9 - The bar code's parameters must be symbology;items;output column;check flag, not \"b\".";
  expect({kUnexpected + parameters, stoppedAt(0)});
  expect({kUnexpected + "5 - Invalid procedure call or argument.", stoppedAt(1)}, u"SELECT 1");
  expect({kTitle + "Chyba při sestavování hlavičky souboru !"}, u"SELECT FROM t");
  database.failsToOpen = true;
  expect({kTitle + "Chyba při přístupu k datům !"});
  database.failsToOpen = false;
  arguments.rsSourceFile = u"C:\\No\\x.txt";
  expect({kUnexpected + "76 - Path not found.", stoppedAt(3)});
  arguments.rvFormat = {u"case like [a: b"};
  expect({kUnexpected + "93 - Invalid pattern string.", stoppedAt(5)});
  std::swap(database.rows[0], database.rows[1]);
  database.rows[0][0] = Null();  // a format is needed by values only
  expect({kUnexpected + "93 - Invalid pattern string.", stoppedAt(6)});
  database.rows[1][0] = Null();
  EXPECT_TRUE(Run());
  computer.files.DeleteFile(arguments.rsSourceFile, false);
  arguments.rsSourceFile.clear();
  arguments.rvFormat.clear();
  database.rows[0][1] = Binary(1);
  expect({kUnexpected + "13 - Type mismatch.", stoppedAt(5)});
  std::swap(database.rows[0], database.rows[1]);
  expect({kUnexpected + "13 - Type mismatch.", stoppedAt(6)});
  database.rows[1][1] = Null();
  events.cancelAt = 50;
  office.PercentInterval(50);
  expect({kTitle + "Výstup byl přerušen uživatelem !"});
  events.cancelAt = -1;
  arguments.rsTemplate = u"nic.dot";
  expect({kTitle + "Neplatný název šablony !"});
  computer.word.refusesToOpen = true;
  expect({kTitle + "Nepodařilo se naplnit dokument !"});
  computer.word.refusesToOpen = false;
  computer.word.merge = [](const Text&) -> Text { Raise(RuntimeError::kUserInterrupt); };
  expect({kTitle + "Nepodařilo se naplnit dokument !"});
  Run();
  EXPECT_THAT(computer.journal, ::testing::Contains("state 0 Výstup byl přerušen uživatelem !"));
  database.rows.clear();
  expect({kTitle + "Nebyly nalezeny žádné záznamy !"});
}

TEST(WordExport, TheUserChoosesATemplateOrNone) {
  TemplatePlatform computer;
  computer.Store(u"faktura.dot", 1);
  MemoryDatabase database;
  database.columns = {{u"kod"}};
  database.rows = {{Text(u"1")}};
  cZorOffice office(computer.platform);
  WdExportArguments arguments;
  arguments.rsZorApl = u"A1";
  const auto choose = [&](TextView button) {
    arguments.rsTemplate = u"[]";
    computer.userInterface.scripts.emplace_back([button](Form& form) {
      FormPerson(form).Pick(0);
      FormPerson(form).Press(button);
    });
    const bool done = office.WdExport(database, u"SELECT * FROM t", arguments);
    for (const std::string& line : computer.journal) EXPECT_FALSE(line.starts_with("message "));
    EXPECT_EQ(database.openRecordsets, 0);
    return done;
  };
  EXPECT_TRUE(choose(u"cmd_OK"));
  EXPECT_EQ(arguments.rsTemplate, u"C:\\S\\faktura.dot");
  EXPECT_FALSE(choose(u"cmd_Zrusit"));
  EXPECT_EQ(arguments.rsTemplate, u"");
  EXPECT_TRUE(computer.files.FileExists(arguments.rsSourceFile)) << "the data stay";
}

TEST_F(WordExportTest, AFailureOfAnyFileCallLeavesNoIntermediateFile) {
  for (const bool multi : {false, true}) {
    arguments.MultiDocument = multi;
    arguments.rsSourceFile = u"C:\\Temp\\data.txt";
    WatchMerges();
    std::size_t documents = 0;
    std::set<std::string> last;  // messages
    int call = 1;
    for (; call < 100; ++call) {
      computer.word.documents.clear();
      computer.files.FailFromCall(call);
      const bool done = Run();
      computer.files.FailFromCall(0);
      if (done) break;
      EXPECT_TRUE(Messages().front().starts_with(kTitle));
      EXPECT_EQ(computer.PathsBesideLog(), std::vector<Text>{Text(kTemplate)}) << call;
      EXPECT_EQ(database.openRecordsets, 0);
      documents = std::max(documents, computer.word.documents.size());
      last.insert(Messages().back());
    }
    EXPECT_GT(call, multi ? 12 : 5);
    for (const char* checkpoint : {"3", "4", "6", "7"}) {
      EXPECT_TRUE(last.contains("message 0 [] Přerušení v kontrolním bodě " + std::string(checkpoint))) << checkpoint;
    }
    EXPECT_EQ(documents, multi ? 2u : 1u) << "a finished document stays";
    computer.files.DeleteFile(arguments.rsSourceFile, false);
  }
}

TEST_F(WordExportTest, PreparedFiles) {
  WatchMerges();
  WordExportArguments own;
  own.rsTemplate = kTemplate;
  own.rvFormat = {u"", u"#,##0.00"};
  office.BlankRecordsBefore(2);
  ASSERT_TRUE(RunFiles(own, "kod;\"ce;na\",{Code39;x,trim;BC;0}", "a;1234,5;9\r\n\"b;\"\"\";;;\"8\"\r\n"))
      << ::testing::PrintToString(computer.journal);
  EXPECT_EQ(merged.back(), "kod;\"ce;na\";BC\\r\\n;;\\r\\n;;\\r\\na;1\u00A0234,50;*9*\\r\\n\"b;\"\"\"; ;*8*\\r\\n");
  EXPECT_THAT(computer.journal, ::testing::IsSupersetOf({"percent 50", "percent 100"}));
  EXPECT_EQ(own.roRetDoc->FullName(), u"merged");
  EXPECT_EQ(office.BlankRecordsBefore(), 0);

  own.MultiDocument = true;
  ASSERT_TRUE(RunFiles(own, "a", "1\n2\r\n\"x\"\r\n"));
  EXPECT_EQ(merged[1], "a\\r\\n1\\n2\\r\\n");
  EXPECT_EQ(merged[2], "a\\r\\nx\\r\\n");

  const auto expect = [&](const char* message, const char* header, const char* data) {
    own.rsSourceFile = u"C:\\Temp\\out.txt";
    EXPECT_FALSE(RunFiles(own, header, data));
    EXPECT_EQ(Messages(), std::vector<std::string>{message});
    EXPECT_FALSE(computer.files.FileExists(u"C:\\Temp\\out.txt"));
  };
  expect((kTitle + "Hlavičkový soubor je prázdný !").c_str(), " ", "1");
  expect((kTitle + "Nebyly nalezeny žádné záznamy !").c_str(), "a", " ");
  expect((kUnexpected + "9 - Subscript out of range.").c_str(), "a;b", "1;2\r\n\r\n\r\n");
  own.rsTemplate = u"nic.dot";
  expect((kTitle + "Neplatný název šablony !").c_str(), "a", "1");
}

}  // namespace
}  // namespace zorkanca::testing
