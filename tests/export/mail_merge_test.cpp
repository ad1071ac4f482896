#include "export/mail_merge.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "export/zor_office.h"
#include "support/journal_events.h"
#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

class MailMergeTest : public ::testing::Test {
 protected:
  MailMergeTest() {
    office.Advise(&events);
    const auto data =
        computer.files.OpenTextFile(u"C:\\Temp\\data.txt", IoMode::kForWriting, true, TextFormat::kUnicode);
    data->Write(u"kod;text\r\n1;\"a×¶b\"\r\n2;b\r\n3;c\r\n");
    data->Close();
    arguments = {.rsTemplate = u"C:\\Temp\\t.dotx", .rsDataSourceFile = u"C:\\Temp\\data.txt"};
    computer.word.templateText = u"Dopis";
  }

  MemoryPlatform computer;
  cZorOffice office{computer.platform};
  JournalEvents events{computer.journal};
  MakeMailDocumentArguments arguments;
};

TEST_F(MailMergeTest, OneDocument) {
  computer.word.templateText = u"Ahoj {<S>}«kod»";
  ASSERT_TRUE(office.MakeMailDocument(arguments));
  EXPECT_EQ(computer.journal, (Journal{"state 1 Otvírá se nový dokument v aplikaci MS Word ...",
                                       "pointer 11",
                                       "word start",
                                       "word updating off",
                                       "pending events",
                                       "word add C:\\Temp\\t.dotx",
                                       "state 0 Dokončeno otvírání nového dokumentu aplikaci MS Word",
                                       "pointer 0",
                                       "word checks off",
                                       "state 2 Hromadná korespondence zpracovává přijatá data ...",
                                       "pointer 11",
                                       "word source C:\\Temp\\data.txt",
                                       "word kind 1",
                                       "word execute",
                                       "word close C:\\Temp\\t.dotx",
                                       "word activate merged",
                                       "word updating on",
                                       "word visible on",
                                       "word maximised",
                                       "word checks on",
                                       "state 0 Dokončeno zpracování dat nástrojem hromadné korespondence",
                                       "pointer 0"}));
  EXPECT_EQ(arguments.roRetDoc->Content()->Text(), u"Ahoj «kod»");
}

TEST_F(MailMergeTest, KindOfMerge) {
  const struct {
    TextView text;
    const char* kind;
    TextView merged;
  } kRows[] = {
      {u"{<A>}x", "word kind 3", u"x"},           {u"x{<D>}", "word kind 0", u"x"},
      {u"{<O>}x{<A>}", "word kind 3", u"{<O>}x"}, {u"{<O>}", "word kind 2", u""},
      {u"a{<h}b{h>}", "word kind 3", u"ab"},      {u"x{<a>}", "", u"x{<a>}"},
  };
  for (const auto& row : kRows) {
    computer.word.templateText = row.text;
    computer.journal.clear();
    ASSERT_TRUE(office.MakeMailDocument(arguments));
    const bool set = std::count(computer.journal.begin(), computer.journal.end(), row.kind) == 1;
    EXPECT_EQ(set, *row.kind != 0) << Shown(row.text);
    EXPECT_EQ(Shown(arguments.roRetDoc->Content()->Text()), Shown(row.merged));
  }

  // An older Word is told the kind before it opens the data; a refusal is logged and the merge goes on.
  computer.word.version = u" 9.0";
  computer.word.templateText = u"{<D>}x";
  computer.journal.clear();
  ASSERT_TRUE(office.MakeMailDocument(arguments));
  const auto at = [&](const char* line) { return std::find(computer.journal.begin(), computer.journal.end(), line); };
  EXPECT_LT(at("word kind 0"), at("word source C:\\Temp\\data.txt"));
  computer.word.refusesKind = true;
  EXPECT_TRUE(office.MakeMailDocument(arguments));
  const std::string log = computer.files.Bytes(u"C:\\Temp\\Suite\\Log\\ZorixLog_2026-11-16.txt").value_or("");
  EXPECT_NE(log.find("[setMainDocumentTypeIfNotMergeModule]"), std::string::npos);
  EXPECT_NE(log.find("type = 0"), std::string::npos);
}

TEST_F(MailMergeTest, OneDocumentForEachRecord) {
  arguments.MultiDocument = true;
  arguments.rbSetAppVisible = false;
  std::vector<std::string> records;
  computer.word.merge = [&](const Text& text) {
    // The file of the record is the one in the work folder.
    for (const Text& path : computer.files.Paths()) {
      if (!path.ends_with(u".tmp")) continue;
      records.push_back(
          Shown(computer.files.OpenTextFile(path, IoMode::kForReading, false, TextFormat::kUnicode)->ReadAll()));
    }
    return text;
  };
  ASSERT_TRUE(office.MakeMailDocument(arguments));
  EXPECT_EQ(records, (std::vector<std::string>{"kod;text\\r\\n1;\"a\\r\\nb\"\\r\\n", "kod;text\\r\\n2;b\\r\\n",
                                               "kod;text\\r\\n3;c\\r\\n"}));
  EXPECT_EQ(std::count(computer.journal.begin(), computer.journal.end(), "word add C:\\Temp\\t.dotx"), 3);
  EXPECT_EQ(std::count(computer.journal.begin(), computer.journal.end(), "pointer 11"), 0)
      << "no hourglass of each opening";
  EXPECT_EQ(std::count(computer.journal.begin(), computer.journal.end(), "percent 100"), 1);
  EXPECT_EQ(computer.word.documents.size(), 3u);
  EXPECT_EQ(computer.PathsBesideLog(), std::vector<Text>{u"C:\\Temp\\data.txt"});

  events.cancelAfter = 2;
  office.PercentInterval(30);
  computer.journal.clear();
  EXPECT_FALSE(office.MakeMailDocument(arguments));
  EXPECT_THAT(computer.journal, ::testing::Contains("state 0 Výstup byl přerušen uživatelem !"));
  EXPECT_EQ(computer.PathsBesideLog(), std::vector<Text>{u"C:\\Temp\\data.txt"});
  EXPECT_EQ(computer.word.documents.size(), 5u) << "documents that are merged stay open";
}

TEST_F(MailMergeTest, FailuresAreToldByStates) {
  const auto lastState = [&] {
    EXPECT_FALSE(office.MakeMailDocument(arguments));
    std::string last;
    for (const std::string& line : computer.journal) {
      if (line.starts_with("state ")) last = line;
      EXPECT_FALSE(line.starts_with("message "));
    }
    EXPECT_EQ(computer.journal.back(), "pointer 0");
    EXPECT_EQ(computer.PathsBesideLog(), std::vector<Text>{u"C:\\Temp\\data.txt"});
    computer.journal.clear();
    return last;
  };
  computer.word.attachError = 70;
  EXPECT_EQ(lastState(), "state 0 Nepodařilo se otevřít aplikaci MS Word !");
  computer.word.attachError = 0;
  computer.word.refusesToOpen = true;
  EXPECT_EQ(lastState(), "state 0 Nepodařilo se otevřít aplikaci MS Word !");
  computer.word.refusesToOpen = false;
  computer.word.merge = [](const Text&) -> Text { throw Error(5631, Text(), u"no records"); };
  EXPECT_EQ(lastState(), "state 0 Chyba ve zpracování dat nástrojem hromadné korespondence: no records");
  arguments.MultiDocument = true;
  EXPECT_EQ(lastState(), "state 0 Chyba ve zpracování dat nástrojem hromadné korespondence: no records");

  arguments.MultiDocument = false;
  computer.word.merge = nullptr;
  ASSERT_TRUE(office.MakeMailDocument(arguments));
  computer.word.application->Visible(true);
  computer.word.refusesToOpen = true;
  EXPECT_EQ(lastState(), "state 0 Nepodařilo se otevřít aplikaci MS Word !");
  EXPECT_EQ(arguments.roRetDoc, nullptr) << "the document of an earlier merge is no result of this one";
  EXPECT_TRUE(computer.word.application->Visible() && computer.word.application->ScreenUpdating());
}

TEST_F(MailMergeTest, EachStepOfTheEndingIsTakenForItself) {
  const auto steps = [&] {
    const auto merged = std::find(computer.journal.begin(), computer.journal.end(), "word execute");
    std::string lines;
    for (auto line = merged; line != computer.journal.end(); ++line) {
      if (line->ends_with(" on") || *line == "word maximised") lines += line->substr(5) + "|";
    }
    computer.journal.clear();
    computer.word.application.reset();
    computer.word.running = false;
    return lines;
  };
  const struct {
    const char* refused;
    const char* steps;
  } kRows[] = {
      {"", "updating on|visible on|maximised|checks on|"},
      {"updating on", "visible on|maximised|checks on|"},
      {"visible on", "updating on|maximised|checks on|"},
      {"maximised", "updating on|visible on|checks on|"},
  };
  for (const auto& row : kRows) {
    for (const bool fails : {false, true}) {
      computer.word.merge = [&](const Text& text) {
        computer.word.refusedLine = row.refused;
        if (fails) throw Error(5631, Text(), u"no records");
        return text;
      };
      EXPECT_EQ(office.MakeMailDocument(arguments), !fails);
      EXPECT_EQ(steps(), row.steps) << row.refused << fails;
      computer.word.refusedLine.clear();
    }
  }
}

TEST_F(MailMergeTest, WhatAHandlerMakesOfTheLastStateLeavesNothingBehind) {
  arguments.MultiDocument = true;
  for (const bool fails : {false, true}) {
    computer.word.refusesToOpen = fails;
    events.failsAt = fails ? "Nepodařilo" : "Dokončeno zpracování";
    EXPECT_EQ(office.MakeMailDocument(arguments), !fails);
    EXPECT_EQ(computer.journal.back(), "pointer 0");
    computer.word.refusesToOpen = false;
    events.failsAt = "Dokončeno otvírání";
    computer.journal.clear();
    GetOpenDocArguments opening{.rsTemplate = u"a.doc"};
    EXPECT_FALSE(office.GetOpenDoc(opening));
    EXPECT_EQ(opening.roRetDoc, nullptr);
    EXPECT_THAT(computer.journal, ::testing::IsSupersetOf({"pointer 11",
                                                           "state 0 Chyba při otvírání dokumentu v aplikaci "
                                                           "MS Word: Invalid procedure call or argument"}));
    EXPECT_EQ(computer.journal.back(), "pointer 0");
  }
}

TEST_F(MailMergeTest, AFurtherTemplateThatDoesNotOpenLeavesNoDocument) {
  arguments.MultiDocument = true;
  office.WhenDocumentIsFinished([&](const FinishedDocument&) { computer.word.refusesToOpen = true; });
  EXPECT_FALSE(office.MakeMailDocument(arguments));
  EXPECT_EQ(arguments.roRetDoc, nullptr);
  EXPECT_EQ(computer.word.documents.size(), 1u) << "what is merged stays open";
  EXPECT_THAT(computer.journal, ::testing::Contains("state 0 Nepodařilo se otevřít dokument v aplikaci MS Word !"));
}

TEST_F(MailMergeTest, AStartedWordIsHeldUntilItIsAttachedTo) {
  computer.word.ends = true;
  EXPECT_TRUE(office.MakeMailDocument(arguments));
}

TEST_F(MailMergeTest, AStartedWordThatIsNeverFoundIsUsedAsItIs) {
  computer.word.isFound = false;
  EXPECT_TRUE(office.MakeMailDocument(arguments));
  EXPECT_NE(arguments.roRetDoc, nullptr);
}

TEST_F(MailMergeTest, OneDocumentForEachRecordNeedsUnicode) {
  arguments.MultiDocument = true;
  const struct {
    std::string bytes;
    bool isUnicode;
  } kRows[] = {
      {"kod;text\r\n1;a\r\n", false},
      {"\xEF\xBB\xBFkod\r\n1\r\n", false},
      {std::string("\xFE\xFF\0k\0\r\0\n\0001\0\r\0\n", 14), false},
      {std::string("k\0\r\0\n\0001\0\r\0\n\0", 12), true},  // without a mark
      {std::string("\xFF\xFEk\0\r\0\n\0001\0\r\0\n\0", 14), true},
      {"", true},
  };
  for (const auto& row : kRows) {
    computer.journal.clear();
    computer.files.Put(arguments.rsDataSourceFile, row.bytes);
    EXPECT_EQ(office.MakeMailDocument(arguments), row.isUnicode) << row.bytes;
    EXPECT_EQ(arguments.roRetDoc != nullptr, row.isUnicode && !row.bytes.empty()) << row.bytes;
    if (row.isUnicode) continue;
    EXPECT_THAT(computer.journal,
                ::testing::Contains("state 0 Chyba ve zpracování dat nástrojem hromadné korespondence: "
                                    "Soubor \"C:\\Temp\\data.txt\" není text v kódování Unicode "
                                    "(UTF-16)."));
  }
}

TEST_F(MailMergeTest, NoRecordsGiveNoDocuments) {
  const auto data = computer.files.OpenTextFile(u"C:\\Temp\\data.txt", IoMode::kForWriting, true, TextFormat::kUnicode);
  data->WriteLine(u"kod;text");
  data->Close();
  arguments.MultiDocument = true;
  EXPECT_TRUE(office.MakeMailDocument(arguments));
  EXPECT_EQ(arguments.roRetDoc, nullptr);
  EXPECT_TRUE(computer.word.documents.empty()) << "the template's document is closed";
}

TEST_F(MailMergeTest, RecordFileThatStaysIsAFailure) {
  arguments.MultiDocument = true;
  computer.word.merge = [&](const Text& text) {
    for (const Text& path : computer.files.Paths()) {
      if (path.ends_with(u".tmp")) computer.files.MakeUndeletable(path);
    }
    return text;
  };
  EXPECT_FALSE(office.MakeMailDocument(arguments));
  EXPECT_THAT(
      computer.journal,
      ::testing::Contains("state 0 Chyba ve zpracování dat nástrojem hromadné korespondence: Permission denied"));
}

TEST_F(MailMergeTest, OpeningADocument) {
  const auto opened = [&](GetOpenDocArguments opening) {
    computer.journal.clear();
    EXPECT_TRUE(office.GetOpenDoc(opening));
    std::string lines;
    for (const std::string& line : computer.journal) {
      if (line.starts_with("word ")) lines += line.substr(5) + "|";
    }
    return lines;
  };
  EXPECT_EQ(opened({.rsTemplate = u"a.doc"}), "start|open a.doc|visible on|");
  EXPECT_EQ(opened({.rsTemplate = u" A.DOTX "}), "updating off|add  A.DOTX |updating on|")
      << "a Word that is seen is not redrawn";
  EXPECT_EQ(opened({.rsTemplate = u" ", .rbScreenUpdating = false}), "updating off|add |");
  EXPECT_EQ(opened({.rAppVisible = AppVisible::avFalse}), "visible off|updating on|add |");
  EXPECT_EQ(opened({.rAppVisible = AppVisible::avLeave}), "add |");

  computer.word.refusesToOpen = true;
  computer.journal.clear();
  GetOpenDocArguments failing{.rsTemplate = u"x.docx"};
  EXPECT_FALSE(office.GetOpenDoc(failing));
  EXPECT_EQ(failing.roRetDoc, nullptr);
  EXPECT_THAT(computer.journal,
              ::testing::Contains("state 0 Chyba při otvírání dokumentu v aplikaci MS Word: no such file"));

  computer.word.application->Visible(true);
  EXPECT_FALSE(office.GetOpenDoc(failing));
  EXPECT_TRUE(computer.word.application->ScreenUpdating()) << "a Word that is seen draws again";
}

}  // namespace
}  // namespace zorkanca::testing
