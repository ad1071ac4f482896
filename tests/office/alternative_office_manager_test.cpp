#include "office/alternative_office_manager.h"

#include <gtest/gtest.h>

#include "foundation/error_codes.h"
#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

using enum eTypeOfEditor;

constexpr TextView kSettings = u"Software\\VB and VBA Program Settings\\zorKancA";

TEST(AlternativeOfficeManager, NothingIsChosenAtFirst) {
  MemoryPlatform computer;
  const cAlternativeOfficeManager manager(computer.platform);
  EXPECT_FALSE(manager.GetUseAlternativeTableEditor());
  EXPECT_FALSE(manager.GetUseAlternativeDocumentEditor());
  EXPECT_EQ(manager.GetTableEditorAppPath() + manager.GetDocumentEditorAppPath(), u"");
  EXPECT_EQ(manager.GetTableEditorStoreFolder(u"A") + manager.GetDocumentEditorStoreFolder(u""), u"");
}

TEST(AlternativeOfficeManager, SettingsLieUnderTheirPublishedNames) {
  MemoryPlatform computer;
  const cAlternativeOfficeManager manager(computer.platform);
  manager.SaveUseAlternativeTableEditor(true);
  manager.SaveUseAlternativeDocumentEditor(false);
  manager.SaveTableEditorAppPath(u"C:\\p\\scalc.exe");
  manager.SaveDocumentEditorAppPath(u" w ");
  manager.SaveTableEditorStoreFolder(u"C:\\t", u"  abc ");
  manager.SaveDocumentEditorStoreFolder(u"C:\\d", u"   ");
  EXPECT_EQ(computer.registry.Listing(RegistryHive::kCurrentUser, kSettings),
            "[AlternativeOffice]\nUseAlternativeTableEditor = 1\nUseAlternativeDocumentEditor = 0\n"
            "TableEditorAppPath = C:\\p\\scalc.exe\nDocumentEditorAppPath =  w \nDocumentEditorStoreFolder = C:\\d\n"
            "[abc]\n[abc\\AlternativeOffice]\nTableEditorStoreFolder = C:\\t\n");
  EXPECT_EQ(manager.GetTableEditorStoreFolder(u"abc"), u"C:\\t");
  EXPECT_EQ(manager.GetTableEditorStoreFolder(u""), u"");
  EXPECT_EQ(manager.GetDocumentEditorAppPath(), u" w ");
}

TEST(AlternativeOfficeManager, TheChoiceIsReadAsANumber) {
  MemoryPlatform computer;
  for (const auto& [stored, used] : {std::pair(u"1", true), std::pair(u"2", true), std::pair(u" -1x", true),
                                     std::pair(u"0", false), std::pair(u"abc", false), std::pair(u"", false)}) {
    computer.registry.Write(RegistryHive::kCurrentUser, Text(kSettings) + u"\\AlternativeOffice",
                            u"UseAlternativeTableEditor", Text(stored));
    EXPECT_EQ(cAlternativeOfficeManager(computer.platform).GetUseAlternativeTableEditor(), used) << Shown(stored);
  }
}

TEST(AlternativeOfficeManager, LooksForProgramsWhereTheSystemPutsThem) {
  MemoryPlatform computer;
  const cAlternativeOfficeManager manager(computer.platform);
  EXPECT_EQ(manager.GetDefaultEditorAppPath(DocumentEditor), u"");
  EXPECT_EQ(computer.journal,
            (Journal{"search C:\\Program Files (x86)\\ swriter.exe", "search C:\\Program Files\\ swriter.exe"}));
  computer.shell.found = {{u"C:\\Program Files\\", u"64"}, {u"C:\\Program Files (x86)\\", u"32"}};
  EXPECT_EQ(manager.GetDefaultEditorAppPath(TableEditor), u"32");
  computer.shell.programs = {.extension = {}, .folders = {u"/usr/bin"}};
  manager.GetDefaultEditorAppPath(TableEditor);
  EXPECT_EQ(computer.journal.back(), "search /usr/bin\\ scalc");
}

TEST(AlternativeOfficeManager, StoreFolderIsMadeAndOpened) {
  MemoryPlatform computer;
  const cAlternativeOfficeManager manager(computer.platform);
  EXPECT_TRUE(manager.OpenEditorStoreFolder(TableEditor, u" ABC "));
  EXPECT_EQ(computer.journal, Journal{"open C:\\Temp\\Zorix\\ABC\\Worksheets"});
  EXPECT_EQ(manager.GetDefaultEditorStoreFolder(DocumentEditor, u" "), u"C:\\Temp\\Zorix\\Documents");
  EXPECT_TRUE(computer.files.FolderExists(u"C:\\Temp\\Zorix\\Documents"));
  EXPECT_EQ(ErrorOf([&] { manager.GetDefaultEditorStoreFolder(TableEditor, u"a\\b"); }).number(), 76);

  computer.journal.clear();
  manager.SaveTableEditorStoreFolder(u"C:\\Temp\\x", u"ABC");
  EXPECT_FALSE(manager.OpenEditorStoreFolder(TableEditor, u"ABC"));
  EXPECT_EQ(computer.journal, Journal{});
  computer.files.CreateFolder(u"C:\\Temp\\x");
  computer.shell.onOpen = [](TextView) { throw Error(31, Text(), u"no program"); };
  EXPECT_FALSE(manager.OpenEditorStoreFolder(TableEditor, u"ABC"));
  EXPECT_EQ(computer.journal, Journal{"message 16 [Chyba asociovaná aplikace] Problém se spuštěním asociované aplikace "
                                      "pro soubor \"C:\\Temp\\x\". (Chyba: 31)"});
}

TEST(AlternativeOfficeManager, ProgramAndFileAreQuoted) {
  MemoryPlatform computer;
  const cAlternativeOfficeManager manager(computer.platform);
  manager.SaveTableEditorAppPath(u"C:\\Program Files\\scalc.exe");
  manager.SaveDocumentEditorAppPath(u"/opt/my \"office\"/swriter");
  manager.OpenFileInTableEditor(u"C:\\a b.xls");
  manager.OpenFileInDocumentEditor(u"\"");
  EXPECT_EQ(computer.journal, (Journal{"start \"C:\\Program Files\\scalc.exe\" \"C:\\a b.xls\"",
                                       "start \"/opt/my \"\"office\"\"/swriter\" \"\"\"\""}));
  computer.shell.onOpen = [](TextView) { Raise(RuntimeError::kFileNotFound); };
  const Error error = ErrorOf([&] { manager.OpenFileInDocumentEditor(u"C:\\a.doc"); });
  EXPECT_EQ(error.number(), UnexpectedErrorCode);
  EXPECT_EQ(Shown(error.source()),
            "[zorKancA].cAlternativeOfficeManager.OpenFile->\\r\\n\\r\\n[Detaily: fileName = "
            "\"C:\\a.doc\"; TypeOfEditor = 1]");
}

}  // namespace
}  // namespace zorkanca::testing
