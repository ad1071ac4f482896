#include "office/kancel_apl.h"

#include <gtest/gtest.h>

#include "platform/word/word_application.h"
#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

class KancelApl : public ::testing::Test {
 protected:
  void Register(TextView name, TextView classId) {
    computer_.registry.Write(RegistryHive::kClassesRoot, Text(name) + u"\\CLSID", {}, Text(classId));
  }
  // The log's only entry, behind its head.
  std::string Logged() {
    std::string all;
    for (const Text& path : computer_.files.Paths()) all += *computer_.files.Bytes(path);
    const std::size_t start = all.find("\tOtevri");
    return start == all.npos ? "" : all.substr(start + 1, all.find('\r', start) - start - 1);
  }

  MemoryPlatform computer_;
  WordDocumentReference document_;
  ExcelWorkbookReference workbook_;
};

TEST_F(KancelApl, PresenceIsARegisteredClass) {
  Register(u"Word.Application", u"");
  const cKancelApl none(computer_.platform);
  EXPECT_FALSE(none.DocEditorInstalovan() || none.XlsEditorInstalovan());
  Register(u"Excel.Application", u"{1}");
  const cKancelApl excel(computer_.platform);
  EXPECT_FALSE(excel.DocEditorInstalovan());
  EXPECT_TRUE(excel.XlsEditorInstalovan());
  EXPECT_FALSE(none.XlsEditorInstalovan()) << "looked once";
}

TEST_F(KancelApl, MinimisedWindowsOfWordBecomeNormal) {
  cKancelApl applications(computer_.platform);
  computer_.word.windowState = WordWindowState::kMinimize;
  computer_.word.documentState = WordWindowState::kMinimize;
  EXPECT_TRUE(applications.OtevriDoc(u"C:\\a.doc", document_));
  EXPECT_EQ(document_->FullName(), u"C:\\a.doc");
  EXPECT_EQ(computer_.word.windowState, WordWindowState::kNormal);
  EXPECT_EQ(computer_.word.documentState, WordWindowState::kNormal);
  EXPECT_EQ(computer_.journal, (Journal{"word start", "word open C:\\a.doc", "word visible on", "word activate",
                                        "word activate C:\\a.doc"}));
  computer_.word.windowState = WordWindowState::kMaximize;
  EXPECT_TRUE(applications.OtevriDoc(u"C:\\a.doc", document_));
  EXPECT_EQ(computer_.word.windowState, WordWindowState::kMaximize);
}

TEST_F(KancelApl, OldWordGetsAWindowForTheDocument) {
  cKancelApl applications(computer_.platform);
  computer_.word.version = u"8.0b";
  computer_.word.windowCount = 0;
  EXPECT_TRUE(applications.OtevriDoc(u"C:\\a.doc", document_));
  EXPECT_EQ(computer_.journal,
            (Journal{"word start", "word open C:\\a.doc", "word visible on", "word updating off", "word activate",
                     "word activate C:\\a.doc", "word close C:\\a.doc", "word open C:\\a.doc", "word activate",
                     "word updating on", "word refresh", "word activate", "word activate C:\\a.doc"}));
  computer_.journal.clear();
  computer_.word.version = u"9.0";
  EXPECT_TRUE(applications.OtevriDoc(u"C:\\a.doc", document_));
  EXPECT_EQ(computer_.journal, (Journal{"word open C:\\a.doc", "word activate", "word activate C:\\a.doc"}));
}

TEST_F(KancelApl, FailuresGoToTheLog) {
  cKancelApl applications(computer_.platform);
  computer_.word.refusesToOpen = true;
  EXPECT_FALSE(applications.OtevriDoc(u"C:\\a.doc", document_));
  EXPECT_EQ(document_, nullptr);
  EXPECT_EQ(Logged(), "OtevriDoc: pokus o GetObject(C:\\a.doc)\tChyba: 5174; Zdroj: ; Popis: no such file");
}

TEST_F(KancelApl, MinimisedWindowsOfExcelBecomeNormal) {
  cKancelApl applications(computer_.platform);
  computer_.excel.windowState = ExcelWindowState::kMinimized;
  computer_.excel.activeWindowState = ExcelWindowState::kMinimized;
  EXPECT_TRUE(applications.OtevriXls(u"C:\\a.xls", workbook_));
  EXPECT_EQ(computer_.excel.activeWindowState, ExcelWindowState::kNormal);
  EXPECT_EQ(computer_.journal, (Journal{"excel start", "excel add C:\\a.xls", "excel activate Sešit1",
                                        "excel visible on", "excel show Sešit1", "excel window -4143"}));
  computer_.journal.clear();
  computer_.excel.windowState = computer_.excel.activeWindowState = ExcelWindowState::kMaximized;
  EXPECT_TRUE(applications.OtevriXls(u"C:\\a.xls", workbook_));
  EXPECT_EQ(computer_.excel.activeWindowState, ExcelWindowState::kMaximized);
  EXPECT_EQ(computer_.journal.back(), "excel show Sešit1");
  computer_.excel.refusesToAdd = true;
  EXPECT_FALSE(applications.OtevriXls(u"C:\\a.xls", workbook_));
  EXPECT_EQ(workbook_, nullptr);
  EXPECT_EQ(Logged(), "OtevriXls: pokus o GetObject(C:\\a.xls)\tChyba: 1004; Zdroj: ; Popis: no such file");
}

}  // namespace
}  // namespace zorkanca::testing
