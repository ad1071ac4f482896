#include "export/office_pdf_convert.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

constexpr const char* kMessage = "message 48 [Quelma Zorix - vazba na kancelářské aplikace] ";

TEST(OfficePdfConvert, WordWritesTheWholeDocumentOutOfSight) {
  MemoryPlatform computer;
  cOfficePdfConvert convert(computer.platform);
  for (const auto bookmarks :
       {WdExportCreateBookmarks::wdExportCreateNoBookmarks, WdExportCreateBookmarks::wdExportCreateWordBookmarks}) {
    computer.journal.clear();
    EXPECT_TRUE(convert.WdExportToPdfFormat(u"C:\\a.doc", u"C:\\a.pdf", bookmarks, true));
    const ExportDocumentArguments& given = *computer.word.exported;
    EXPECT_EQ(given.CreateBookmarks, bookmarks);
    EXPECT_TRUE(given.UseISO19005_1 && given.IncludeDocProps && given.DocStructureTags && !given.OpenAfterExport);
  }
  EXPECT_EQ(computer.journal,
            (Journal{"pointer 11", "word updating off", "pending events", "word open C:\\a.doc", "pointer 0",
                     "word export C:\\a.pdf", "word close C:\\a.doc", "word updating on"}));
  EXPECT_TRUE(convert.WdExportToPdfFormat(u"C:\\a.doc", u"C:\\a.pdf"));
  EXPECT_FALSE(computer.word.exported->UseISO19005_1);
}

// Keeps causes in the journal, so that their place after the message is seen.
class JournalListener final : public ExportListener {
 public:
  explicit JournalListener(Journal& journal) : journal_(journal) {}
  void Cause(const Error& cause) override { journal_.push_back(std::string("cause ") + cause.what()); }
  void Warning(TextView text) override { journal_.push_back("warning " + ToUtf8(text)); }

 private:
  Journal& journal_;
};

TEST(OfficePdfConvert, CausesFollowTheMessages) {
  MemoryPlatform computer;
  cOfficePdfConvert convert(computer.platform);
  JournalListener listener(computer.journal);
  convert.Listen(&listener);
  for (const bool opens : {false, true}) {
    computer.word.refusesToOpen = !opens;
    computer.word.refusesToExport = true;
    computer.journal.clear();
    EXPECT_FALSE(convert.WdExportToPdfFormat(u"C:\\a.doc", u"C:\\a.pdf"));
    const auto isMessage = [](const std::string& line) { return line.starts_with("message"); };
    const auto message = std::find_if(computer.journal.begin(), computer.journal.end(), isMessage);
    ASSERT_NE(message + 1, computer.journal.end());
    EXPECT_TRUE((message + 1)->starts_with(opens ? "cause 5 - no room" : "cause ")) << *(message + 1);
  }
}

TEST(OfficePdfConvert, FailuresAreShownAndTheSourceIsClosed) {
  MemoryPlatform computer;
  cOfficePdfConvert convert(computer.platform);
  computer.word.refusesToOpen = true;
  EXPECT_FALSE(convert.WdExportToPdfFormat(u"C:\\none.doc", u"C:\\a.pdf"));
  EXPECT_EQ(computer.journal.back(), std::string(kMessage) + "Nepodařilo se otevřít dokument: \r\nC:\\none.doc");
  EXPECT_FALSE(computer.word.exported);

  computer.word.refusesToOpen = false;
  computer.word.refusesToExport = true;
  EXPECT_FALSE(convert.WdExportToPdfFormat(u"C:\\a.doc", u"C:\\a.pdf"));
  const Journal ending(computer.journal.end() - 3, computer.journal.end());
  EXPECT_EQ(ending, (Journal{std::string(kMessage) + "Došlo k chybě při konverzi souboru \"C:\\a.doc\" do formátu "
                                                     "*.pdf\r\n5 - no room",
                             "word close C:\\a.doc", "word updating on"}));
}

TEST(OfficePdfConvert, ExcelDoesTheSame) {
  MemoryPlatform computer;
  cOfficePdfConvert convert(computer.platform);
  EXPECT_TRUE(convert.XlExportToPdfFormat(u"C:\\a.xls", u"C:\\a.pdf"));
  EXPECT_EQ(computer.journal.back(), "excel updating on");
  EXPECT_TRUE(computer.excel.exported->IncludeDocProperties && !computer.excel.exported->IgnorePrintAreas);
  computer.excel.refusesToExport = true;
  EXPECT_FALSE(convert.XlExportToPdfFormat(u"C:\\a.xls", u"C:\\b.pdf"));
  const Journal ending(computer.journal.end() - 4, computer.journal.end());
  EXPECT_EQ(ending, (Journal{"excel export C:\\b.pdf",
                             std::string(kMessage) + "Došlo k chybě při konverzi souboru \"C:\\a.xls\" do formátu "
                                                     "*.pdf\r\n5 - no room",
                             "excel close Sešit1", "excel updating on"}));
  computer.excel.refusesToAdd = true;
  EXPECT_FALSE(convert.XlExportToPdfFormat(u"C:\\none.xls", u"C:\\a.pdf"));
  const auto shown = std::find(computer.journal.begin(), computer.journal.end(),
                               std::string(kMessage) + "Nepodařilo se otevřít soubor: \r\nC:\\none.xls");
  EXPECT_NE(shown, computer.journal.end());
}

}  // namespace
}  // namespace zorkanca::testing
