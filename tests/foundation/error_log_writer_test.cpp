// The error log: form of its entries, where failures go, the client's own writer, rolling with a file that resists.
#include "foundation/error_log_writer.h"

#include <gtest/gtest.h>

#include "foundation/error_log.h"
#include "runtime/date.h"
#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

const Text kToday = u"C:\\Temp\\Suite\\Log\\ZorixLog_2026-11-16.txt";
const std::string kHeader = "\\r\\n16.11.2026 14:05:09 Informace zorKancA 4.1.0 ThreadID = 4711\\r\\n";
const std::string kErrorHeader = "\\r\\n16.11.2026 14:05:09 Chyba zorKancA 4.1.0 ThreadID = 4711\\r\\n";

/// Collects messages as "type text"; raises error 70 when told to.
class CollectingWriter final : public ILogWriter {
 public:
  std::vector<std::string> messages;
  bool fails = false;

  void WriteMessage(TextView message, std::int32_t eventType) override {
    if (fails) throw Error(70, u"Writer", u"Permission denied");
    messages.push_back(std::to_string(eventType) + " " + Shown(message));
  }
};

class ErrorLogWriterTest : public ::testing::Test {
 protected:
  ErrorLogWriterTest() { computer.clock.now = *MakeDate(2026, 11, 16, 14, 5, 9); }
  ~ErrorLogWriterTest() override { ErrorLogWriter::StopLoggingErrorsToCustomLog(); }

  /// Today's file so far, line ends and tabs visible.
  std::string Log() {
    if (!computer.files.FileExists(kToday)) return "";
    return Shown(computer.files.OpenTextFile(kToday, IoMode::kForReading, false, TextFormat::kAnsi)->ReadAll());
  }
  std::shared_ptr<CollectingWriter> StartCollecting() {
    auto collector = std::make_shared<CollectingWriter>();
    ErrorLogWriter::StartLoggingErrorsToCustomLog(collector);
    return collector;
  }

  MemoryPlatform computer;
  ErrorLogWriter log{computer.platform};
};

TEST_F(ErrorLogWriterTest, AnEntryIsAHeaderAndIndentedLinesInTheAnsiPage) {
  log.WriteMessage(u"Řádek\r\ndruhý\nstále", kErrorEvent);
  EXPECT_EQ(computer.files.Bytes(kToday),
            "\r\n16.11.2026 14:05:09 Chyba zorKancA 4.1.0 ThreadID = 4711\r\n\t\xD8\xE1"
            "dek\r\n\tdruh\xFD\nst\xE1le\r\n");
  EXPECT_EQ(log.fileName(), kToday);
  log.WriteMessage(u"", 2);
  log.WriteMessage(u"x\r\n", 3);
  EXPECT_EQ(Log(), kErrorHeader + "\\tŘádek\\r\\n\\tdruhý\\nstále\\r\\n" +
                       "\\r\\n16.11.2026 14:05:09 Varování zorKancA 4.1.0 ThreadID = 4711\\r\\n\\t\\r\\n" +
                       "\\r\\n16.11.2026 14:05:09 <neurčeno> zorKancA 4.1.0 ThreadID = 4711\\r\\n\\tx\\r\\n\\t\\r\\n");
}

TEST_F(ErrorLogWriterTest, DateAndTimeAreThoseOfTheLocaleAlsoAtMidnight) {
  MemoryPlatform american(u"en-US");
  ErrorLogWriter(american.platform).WriteMessage(u"x", kInformationEvent);
  EXPECT_EQ(american.files.Bytes(kToday),
            "\r\n11/16/2026 12:00:00 AM Informace zorKancA 4.1.0 ThreadID = 4711\r\n\tx\r\n");
}

TEST_F(ErrorLogWriterTest, ErrorsAreWrittenWithTheFunctionThatMetThem) {
  const Text nested = u"Neočekávaná chyba -> 5 - D -> \"[zorKancA].\".\r\n\r\n(Zdroj: [zorKancA].->\r\nS)";
  const std::string indented =
      "Neočekávaná chyba -> 5 - D -> \"[zorKancA].\".\\r\\n\\t\\r\\n\\t(Zdroj: [zorKancA].->\\r\\n\\tS)\\r\\n";
  log.WriteCurrentError(u"A.b", u"nothing is being handled");
  EXPECT_EQ(Log(), "");
  try {
    throw Error(5, u"S", u"D");
  } catch (const Error&) {
    log.WriteCurrentError(u"A.b", u"typ = 1");
    const ErrData current;
    log.WriteError(u"A.b", &current);
    log.WriteIgnoredError(u"A.b", &current);
  }
  EXPECT_EQ(Log(), kHeader + "\\t[A.b] Detaily:\\r\\n\\t\\ttyp = 1\\r\\n\\tZachycená chyba:\\r\\n\\t\\t" + indented +
                       kErrorHeader + "\\t[A.b] " + indented + kHeader + "\\t[A.b] " + indented);

  const Error missing = ErrorOf([&] { log.WriteError(u"A.b", nullptr); });
  EXPECT_EQ(missing.number(), -2147220990);
  EXPECT_EQ(Shown(missing.source()), "ErrorLogWriter.WriteError");
  EXPECT_EQ(Shown(missing.description()), "Neočekávaná hodnota \"Nothing\" pro \"errorData\".");
  const ErrData none;
  EXPECT_EQ(ErrorOf([&] { log.WriteIgnoredError(u" ", &none); }).number(), -2147220990);
}

TEST_F(ErrorLogWriterTest, WhatTheFileDoesNotTakeGoesToTheEventLog) {
  int calls = 0;
  for (int failing = 1;; ++failing) {
    MemoryPlatform broken;
    broken.files.FailFromCall(failing);
    ErrorLogWriter(broken.platform).WriteMessage(u"zpráva", kWarningEvent);
    if (broken.journal.empty()) break;
    ++calls;
    ASSERT_EQ(broken.journal.size(), 1u) << "call " << failing;
    EXPECT_EQ(broken.journal[0].find("event 1 Chyba zápisu do logu: \r\nNeočekávaná chyba -> "), 0u);
    EXPECT_TRUE(broken.journal[0].ends_with("[Detaily: message události: \r\nzpráva])")) << broken.journal[0];
  }
  EXPECT_GE(calls, 4) << "two folders, opening, writing";

  computer.environment.logFolder = u"C:\\Temp";
  computer.files.FailFromCall(1);
  ErrorLogWriter(computer.platform).WriteMessage(u"m", kErrorEvent);
  EXPECT_EQ(computer.journal, Journal{"event 1 Chyba zápisu do logu: \r\n"
                                      "Neočekávaná chyba -> 70 - Permission denied -> "
                                      "\"[zorKancA].WriteMessageOnlyToStandardLog\".\r\n\r\n"
                                      "(Zdroj: [zorKancA].WriteMessageOnlyToStandardLog->\r\n\r\n"
                                      "[Detaily: message události: \r\nm])"});
  computer.eventLog.refuses = true;
  computer.files.FailFromCall(1);
  ErrorLogWriter(computer.platform).WriteMessage(u"lost, but nothing is raised", kErrorEvent);
  EXPECT_EQ(computer.journal.size(), 1u);
}

TEST_F(ErrorLogWriterTest, TheClientsWriterGetsEveryMessageAfterTheFile) {
  EXPECT_FALSE(ErrorLogWriter::IsStartedCustomErrorLogWriter());
  const auto collector = StartCollecting();
  EXPECT_TRUE(ErrorLogWriter::IsStartedCustomErrorLogWriter());
  EXPECT_EQ(ErrorLogWriter::CustomErrorLogWriter(), collector);
  ErrorLogWriter(computer.platform).WriteMessageFromFunction(u"A.b", u"m\r\nn", 7);
  log.WriteMessageOnlyToStandardLog(u"file", kErrorEvent);
  log.WriteMessageOnlyToCustomLog(u"client", kErrorEvent);
  EXPECT_EQ(collector->messages, (std::vector<std::string>{"7 [A.b] m\\r\\nn", "1 client"}));
  EXPECT_EQ(Log().find("client"), std::string::npos);

  collector->fails = true;
  const Error error = ErrorOf([&] { log.WriteMessage(u"m", kErrorEvent); });
  EXPECT_EQ(error.number(), -2147220991);
  EXPECT_EQ(Shown(error.source()),
            "[zorKancA].ErrorLogWriter.WriteMessage->\\r\\n[zorKancA].WriteMessageOnlyToCustomLog->\\r\\nWriter\\r\\n"
            "[Detaily: message události: \\r\\nm]\\r\\n[Detaily: message = \"m\"; eventType = 1]");
  EXPECT_TRUE(Log().ends_with(kErrorHeader + "\\tm\\r\\n"));

  ErrorLogWriter::StopLoggingErrorsToCustomLog();
  log.WriteMessage(u"m", kErrorEvent);
  EXPECT_FALSE(ErrorLogWriter::IsStartedCustomErrorLogWriter());
}

TEST_F(ErrorLogWriterTest, AnOldFileThatResistsIsReportedOnceAndTheRollGoesOn) {
  computer.environment.logFolder = u"C:\\Temp";
  const auto dayFile = [](int day) {
    return Text(u"C:\\Temp\\ZorixLog_2026-10-").append(DecimalText(day)).append(u".txt");
  };
  for (int day = 11; day <= 26; ++day) computer.files.Put(dayFile(day), "", Date{46296.0 + day});
  computer.files.MakeUndeletable(dayFile(11));
  const auto collector = StartCollecting();
  collector->fails = true;
  ErrorLogWriter rolling(computer.platform);
  EXPECT_EQ(ErrorOf([&] { rolling.WriteMessage(u"první", kErrorEvent); }).number(), -2147220991);
  collector->fails = false;
  rolling.WriteMessage(u"druhá", kErrorEvent);

  EXPECT_FALSE(computer.files.FileExists(dayFile(12)));
  EXPECT_EQ(computer.files.Paths().size(), 16u) << "14 kept, one that resists, and today's";
  EXPECT_TRUE(computer.files.FileExists(dayFile(11)));
  const auto stream = computer.files.OpenTextFile(rolling.fileName(), IoMode::kForReading, false, TextFormat::kAnsi);
  EXPECT_EQ(Shown(stream->ReadAll()),
            kHeader +
                "\\tPři mazání souboru \"C:\\Temp\\ZorixLog_2026-10-11.txt\" došlo k chybě:\\r\\n"
                "\\tNeočekávaná chyba -> 70 - Permission denied -> \"[zorKancA].FileCollection.quietDeleteFile\"."
                "\\r\\n\\t\\r\\n\\t(Zdroj: [zorKancA].FileCollection.quietDeleteFile->\\r\\n\\t)\\r\\n" +
                kErrorHeader + "\\tprvní\\r\\n" + kErrorHeader + "\\tdruhá\\r\\n");
  EXPECT_EQ(collector->messages, std::vector<std::string>{"1 druhá"});
  EXPECT_TRUE(computer.journal.empty());
}

TEST_F(ErrorLogWriterTest, LoggingWithContextNeverRaises) {
  const auto collector = StartCollecting();
  const auto logCurrent = [&](TextView context) {
    try {
      throw Error(-2147220991, u"S", u"D");
    } catch (const Error&) {
      LogErrorWithContext(computer.platform, ErrData(), context);
    }
  };
  logCurrent(u"OtevriDoc");
  logCurrent(u"");
  LogMessageWithContext(computer.platform, u"m", kInformationEvent, u" ");
  EXPECT_EQ(collector->messages, (std::vector<std::string>{"1 OtevriDoc\\tChyba: -2147220991; Zdroj: S; Popis: D",
                                                           "1 Chyba: -2147220991; Zdroj: S; Popis: D", "4  \\tm"}));
  collector->fails = true;
  logCurrent(u"OtevriXls");
  EXPECT_TRUE(Log().ends_with("\\tOtevriXls\\tChyba: -2147220991; Zdroj: S; Popis: D\\r\\n"));
}

}  // namespace
}  // namespace zorkanca::testing
