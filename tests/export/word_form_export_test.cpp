#include "export/word_form_export.h"

#include <gtest/gtest.h>

#include "export/zor_office.h"
#include "support/journal_events.h"
#include "support/memory_database.h"
#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

const std::string kTitle = "message 48 [Export dat do aplikace MS Word] ";

class WordFormExportTest : public ::testing::Test {
 protected:
  WordFormExportTest() {
    office.Advise(&events);
    computer.files.Put(u"C:\\Temp\\f.dotx", "");
    database.columns = {{u"psc", FieldType::kText}, {u"cena", FieldType::kCurrency}, {u"BC", FieldType::kLong}};
    database.rows = {{Text(u"58601"), Currency{12345000}, std::int32_t{7}}, {Text(u"\U0001F600x"), Null(), Null()}};
    computer.word.formFields = {u"psc", u"psc_1", u"psc_2", u"psc_4", u"psc_5", u"cena", u"BC"};
    arguments.rsTemplate = u"C:\\Temp\\f.dotx";
    arguments.rvOneChar = {true};
  }

  bool Run() {
    computer.journal.clear();
    return office.WdExportForm(database, u"SELECT * FROM t", arguments);
  }
  // The lines of the journal that begin so, without that beginning.
  std::vector<std::string> Lines(const std::string& beginning) const {
    std::vector<std::string> lines;
    for (const std::string& line : computer.journal) {
      if (line.starts_with(beginning)) lines.push_back(line.substr(beginning.size()));
    }
    return lines;
  }

  MemoryPlatform computer;
  MemoryDatabase database;
  cZorOffice office{computer.platform};
  JournalEvents events{computer.journal};
  WdExportFormArguments arguments;
};

using Strings = std::vector<std::string>;

TEST_F(WordFormExportTest, FillsADocumentForEachRecord) {
  arguments.rsBarCodeParam = u" Code39;BC,trim;BC;0 ";
  arguments.rvFormat = {u"", u"0.00"};
  office.Multiplier(u"neni");
  ASSERT_TRUE(Run());
  EXPECT_EQ(Lines("word field "),
            (Strings{"psc_1=5", "psc_2=8", "psc_4=0", "psc_5=1", "cena=1234,50", "BC=*7*",  // psc_3 is not there
                     "psc_1=\U0001F600", "psc_2=x", "cena=", "BC="}));
  EXPECT_EQ(Lines("word add "), (Strings{"C:\\Temp\\f.dotx", "C:\\Temp\\f.dotx"}));
  EXPECT_EQ(Lines("percent "), (Strings{"1", "50", "100"}));
  EXPECT_EQ(Lines("word checks "), (Strings{"off", "on"}));
  EXPECT_EQ(Lines("word maximised").size(), 1u);
  EXPECT_EQ(Lines("pointer "), (Strings{"11", "0", "11", "0", "0", "11", "0", "0"}))
      << "opening a document shows no hourglass of its own";
  EXPECT_EQ(computer.word.documents.size(), 2u);
  EXPECT_EQ(static_cast<void*>(arguments.roRetDoc.get()),
            static_cast<WordDocument*>(computer.word.application->Documents(1).get()));
  EXPECT_EQ(database.openRecordsets, 0);
  EXPECT_EQ(office.Multiplier(), u"neni") << "forms have no multiplier";
}

TEST_F(WordFormExportTest, MarginsOfTheDocumentOrOfItsSections) {
  const float keep = kUnchangedMargin;
  const struct {
    float left, top, left2, top2;
    Strings set;
  } kRows[] = {
      {keep, keep, keep, keep, {}},
      {2, keep, keep, keep, {"left 56.69292"}},
      {2, keep, 1.5f, keep, {"left1 56.69292", "left2 42.51969"}},
      {keep, keep, 1.5f, 1.5f, {}},
      {keep, 0, keep, keep, {"top 0.00000"}},
      {2, 1, keep, 1.5f, {"left 56.69292", "top1 28.34646", "top2 42.51969"}},
  };
  database.rows.resize(1);
  computer.word.sections = 2;
  for (const auto& row : kRows) {
    arguments.LeftMargin = row.left;
    arguments.TopMargin = row.top;
    arguments.LeftMarginP2 = row.left2;
    arguments.TopMarginP2 = row.top2;
    ASSERT_TRUE(Run());
    Strings expected = row.set;
    expected.insert(expected.begin(), "unprotect");
    expected.push_back("protect 2");
    Strings lines;
    for (const std::string& line : Lines("word ")) {
      if (line.starts_with("left") || line.starts_with("top") || line.find("protect") != line.npos)
        lines.push_back(line);
    }
    EXPECT_EQ(lines, expected);
  }
  computer.word.sections = 1;
  arguments.LeftMargin = 2;
  arguments.LeftMarginP2 = 1;
  EXPECT_TRUE(Run()) << "a section that is not there is passed over";
  EXPECT_EQ(Lines("word left"), Strings{"1 56.69292"});
}

TEST_F(WordFormExportTest, FailuresKeepTheFinishedDocuments) {
  const auto expect = [&](const std::string& message, std::size_t documents) {
    computer.word.documents.clear();
    EXPECT_FALSE(Run());
    EXPECT_EQ(Lines(kTitle), message.empty() ? Strings{} : Strings{message});
    EXPECT_EQ(computer.word.documents.size(), documents) << message;
    EXPECT_EQ(database.openRecordsets, 0);
    EXPECT_EQ(Lines("message 0"), Strings{}) << "forms have no checkpoints";
    arguments.rsTemplate = u"C:\\Temp\\f.dotx";
  };
  arguments.rsTemplate = u"C:\\Temp\\neni.dotx";
  expect("Neplatný název šablony !", 0);
  database.failsToOpen = true;
  expect("Chyba při přístupu k datům !", 0);
  database.failsToOpen = false;
  arguments.rsBarCodeParam = u"x;[-> ;y;0";
  expect("Neočekávaná chyba: \r\n5 - The bar code's item kind \"[->\" lacks a bracket.", 0);
  arguments.rsBarCodeParam.clear();
  computer.word.attachError = 70;
  expect("Nepodařilo se otevřít aplikaci MS Word !", 0);
  computer.word.attachError = 0;
  events.cancelAt = 50;
  office.PercentInterval(50);
  expect("Výstup byl přerušen uživatelem !", 1);
  EXPECT_TRUE(arguments.roRetDoc);
  EXPECT_EQ(Lines("word visible "), Strings{"on"});
  events.cancelAt = -1;
  office.WhenDocumentIsFinished([&](const FinishedDocument&) { computer.word.refusesToOpen = true; });
  expect("Nepodařilo se otevřít dokument v aplikaci MS Word !", 1);
  EXPECT_FALSE(arguments.roRetDoc) << "the further document is none";
  computer.word.refusesToOpen = false;
  office.WhenDocumentIsFinished([](const FinishedDocument&) { Raise(RuntimeError::kDiskFull); });
  expect("Neočekávaná chyba: \r\n61 - Disk full.", 1);
  office.WhenDocumentIsFinished(nullptr);
  database.rows[1][1] = Binary(1);
  expect("Neočekávaná chyba: \r\n13 - Type mismatch.", 2);
  database.rows.clear();
  expect("Nebyly nalezeny žádné záznamy !", 0);
}

}  // namespace
}  // namespace zorkanca::testing
