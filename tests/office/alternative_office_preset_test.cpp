// The dialog as a person uses it.
#include "office/alternative_office_preset.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

using enum eTypeOfEditor;

constexpr TextView kProgram = u"C:\\Office\\scalc.exe";
constexpr const char* kTitle = "[Nastavení pro používání alternativních kancelářských aplikací] ";

// The controls of the form, found as a screen reader finds them.
struct Controls {
  explicit Controls(Form& owner) : form(owner) {}

  template <typename Kind>
  Kind& Get(TextView name) const {
    for (Control* control : form.controls()) {
      if (control->name() == name) return dynamic_cast<Kind&>(*control);
    }
    throw std::logic_error(ToUtf8(name));
  }

  Form& form;
  CheckBox& use = Get<CheckBox>(u"chkUseAlternativeOfficeApp");
  Label& programLabel = Get<Label>(u"lblAppDescription");
  TextBox& program = Get<TextBox>(u"txtAppPath");
  TextBox& folder = Get<TextBox>(u"txtDirPath");
  Button& browseProgram = Get<Button>(u"cmdAppBrowse");
  Button& browseFolder = Get<Button>(u"cmdDirBrowse");
  Button& ok = Get<Button>(u"cmd_OK");
  Button& cancel = Get<Button>(u"cmd_Zrusit");
};

class Preset : public ::testing::Test {
 protected:
  Preset() { computer_.files.Put(kProgram, ""); }

  // Shows the dialog to somebody who does this with it.
  void Show(eTypeOfEditor type, const std::function<void(Controls&)>& script) {
    computer_.journal.clear();
    computer_.userInterface.scripts.push_back([&](Form& form) {
      Controls controls(form);
      script(controls);
    });
    manager_.ShowPresetForm(type, u" abc ");
  }
  std::string Messages() {
    std::string lines;
    for (const std::string& line : computer_.journal) {
      if (line.starts_with("message")) lines += line + "\n";
    }
    return lines;
  }

  MemoryPlatform computer_;
  cAlternativeOfficeManager manager_{computer_.platform};
};

TEST_F(Preset, ShowsWhatIsStoredForTheKindOfEditor) {
  manager_.SaveUseAlternativeDocumentEditor(true);
  manager_.SaveDocumentEditorAppPath(u"C:\\w.exe");
  manager_.SaveDocumentEditorStoreFolder(u"C:\\d", u"ABC");
  Show(DocumentEditor, [](Controls& dialog) {
    EXPECT_EQ(dialog.use.caption(), u"Po&užívat alternativní editor dokumentů");
    EXPECT_EQ(dialog.programLabel.caption(), u"Cesta k programu alternativního &editoru dokumentů:");
    EXPECT_TRUE(dialog.use.checked());
    EXPECT_EQ(dialog.program.text() + u"|" + dialog.folder.text(), u"C:\\w.exe|C:\\d");
    EXPECT_EQ(dialog.ok.caption(), u"&OK");
    dialog.ok.Click();
    EXPECT_FALSE(dialog.form.visible());
  });
  Show(TableEditor, [](Controls& dialog) {
    EXPECT_EQ(dialog.use.caption(), u"Po&užívat alternativní tabulkový editor");
    EXPECT_EQ(dialog.programLabel.caption(), u"Cesta k programu alternativního tabulkového &editoru:");
    EXPECT_FALSE(dialog.program.enabled() || dialog.browseFolder.enabled() || dialog.programLabel.enabled());
    EXPECT_EQ(dialog.folder.backColor(), BackColor::kDisabled);
  });
  EXPECT_EQ(Messages(), "") << "nothing was changed";
}

TEST_F(Preset, FirstUseFindsTheProgramAndSavesTheDefaultFolder) {
  computer_.shell.found[u"C:\\Program Files\\"] = kProgram;
  Show(TableEditor, [this](Controls& dialog) {
    dialog.use.Click();
    EXPECT_TRUE(dialog.program.enabled());
    EXPECT_EQ(dialog.program.backColor(), BackColor::kWindow);
    EXPECT_EQ(dialog.program.text(), kProgram);
    EXPECT_EQ(dialog.ok.caption(), u"&Uložit");
    dialog.ok.Click();
    EXPECT_TRUE(dialog.form.visible()) << "saving leaves it open";
    EXPECT_EQ(dialog.ok.caption(), u"&OK");
    EXPECT_TRUE(manager_.GetUseAlternativeTableEditor());
    EXPECT_EQ(manager_.GetTableEditorStoreFolder(u"ABC"), u"C:\\Temp\\Zorix\\ABC\\Worksheets");
    dialog.program.SetText(u" C:\\Office\\SCALC ");
    dialog.ok.Click();
    EXPECT_EQ(manager_.GetTableEditorAppPath(), u"C:\\Office\\SCALC.exe");
    dialog.use.Click();
    dialog.ok.Click();
    EXPECT_FALSE(manager_.GetUseAlternativeTableEditor());
    EXPECT_EQ(manager_.GetTableEditorAppPath(), u"C:\\Office\\SCALC.exe") << "kept for another time";
    dialog.ok.Click();
    EXPECT_FALSE(dialog.form.visible());
  });
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(computer_.journal.back(), "pointer 0");
}

TEST_F(Preset, WhatCannotBeSavedIsPointedAt) {
  struct Case {
    eTypeOfEditor type;
    TextView program;
    TextView folder;
    const char* complaint;
    TextView field;
  };
  for (const Case& each : {Case{TableEditor, u" ", u"",
                                "Není nastavena cesta k programu alternativního tabulkového editoru", u"txtAppPath"},
                           Case{DocumentEditor, u"", u"",
                                "Není nastavena cesta k programu alternativního editoru dokumentů", u"txtAppPath"},
                           Case{TableEditor, u"C:\\x.exe", u"",
                                "Nastavený program alternativního tabulkového editoru nebyl nalezen", u"txtAppPath"},
                           Case{DocumentEditor, u"\"C:\\Office\\scalc.exe\"", u"",
                                "Nastavený program alternativního editoru dokumentů nebyl nalezen", u"txtAppPath"},
                           Case{TableEditor, kProgram, u"C:\\none",
                                "Nastavený adresář pro ukládání vytvořených souborů nebyl nalezen", u"txtDirPath"}}) {
    Show(each.type, [&](Controls& dialog) {
      dialog.use.Click();
      dialog.program.SetText(each.program);
      dialog.folder.SetText(each.folder);
      dialog.ok.Click();
      EXPECT_EQ(dialog.form.activeControl()->name(), each.field);
      EXPECT_TRUE(dialog.Get<TextBox>(each.field).allSelected());
      EXPECT_EQ(Messages(), std::string("message 48 ") + kTitle + each.complaint + "\u00a0!\n");
      computer_.userInterface.answer = MessageAnswer::kYes;
      dialog.cancel.Click();
      EXPECT_TRUE(dialog.form.visible()) << "Yes saves, which fails again";
      computer_.userInterface.answer = MessageAnswer::kNo;
    });
  }
  EXPECT_EQ(computer_.registry.Listing(RegistryHive::kCurrentUser, u""), "");
}

TEST_F(Preset, AFailureToStoreIsToldAndNothingIsHalfStored) {
  Show(TableEditor, [&](Controls& dialog) {
    dialog.use.Click();
    dialog.program.SetText(kProgram);
    computer_.files.FailFromCall(1);
    dialog.ok.Click();
    EXPECT_EQ(dialog.ok.caption(), u"&Uložit");
    computer_.files.FailFromCall(0);
    computer_.userInterface.answer = MessageAnswer::kNo;
  });
  EXPECT_EQ(
      computer_.journal[computer_.journal.size() - 2],
      std::string("message 48 ") + kTitle + "Došlo k chybě při pokusu o uložení předvoleb:\r\n70 - Permission denied");
  EXPECT_FALSE(manager_.GetUseAlternativeTableEditor());
}

TEST_F(Preset, ClosingAsksWhatBecomesOfChanges) {
  for (const auto& [answer, stays, saved] :
       {std::tuple(MessageAnswer::kCancel, true, false), std::tuple(MessageAnswer::kYes, false, true),
        std::tuple(MessageAnswer::kNo, false, true)}) {
    Show(TableEditor, [&, answer = answer, stays = stays](Controls& dialog) {
      dialog.use.Click();
      if (dialog.use.checked()) dialog.program.SetText(kProgram);
      computer_.userInterface.answer = answer;
      dialog.form.PressKey({.code = KeyCode::kEscape});
      EXPECT_EQ(dialog.form.visible(), stays);
      computer_.userInterface.answer = MessageAnswer::kNo;
    });
    EXPECT_EQ(manager_.GetUseAlternativeTableEditor(), saved);
    EXPECT_THAT(Messages(), ::testing::StartsWith(std::string("message 32 ") + kTitle + "Uložit změny?\n"));
  }
}

TEST_F(Preset, KeysMoveAndReload) {
  manager_.SaveUseAlternativeTableEditor(true);
  manager_.SaveTableEditorAppPath(kProgram);
  Show(TableEditor, [](Controls& dialog) {
    std::string order;
    dialog.program.SetFocus();
    EXPECT_TRUE(dialog.form.PressKey({.code = KeyCode::kEnter})) << "used up: it must not press the button";
    EXPECT_EQ(dialog.form.activeControl(), &dialog.browseProgram);
    dialog.folder.SetFocus();
    dialog.form.PressKey({.code = KeyCode::kEnter});
    EXPECT_EQ(dialog.form.activeControl(), &dialog.browseFolder);
    dialog.program.SetText(u"x");
    dialog.form.PressKey({.code = KeyCode::kF5, .withModifiers = true});
    EXPECT_EQ(dialog.program.text(), u"x");
    dialog.form.PressKey({.code = KeyCode::kF5});
    EXPECT_EQ(dialog.program.text(), kProgram);
    EXPECT_EQ(dialog.ok.caption(), u"&OK");
  });
  EXPECT_EQ(Messages(), "");
}

TEST_F(Preset, BrowsingStartsWhereThePathLeads) {
  manager_.SaveUseAlternativeTableEditor(true);
  manager_.SaveTableEditorAppPath(u"C:\\none.exe");
  computer_.shell.programs.folders = {u"C:\\none", u"C:\\Temp"};
  computer_.userInterface.answer = MessageAnswer::kNo;
  Show(TableEditor, [this](Controls& dialog) {
    const FileDialog& shown = computer_.userInterface.fileDialog;
    dialog.browseProgram.Click();
    EXPECT_EQ(dialog.program.text(), u"C:\\none.exe") << "cancelled";
    EXPECT_EQ(shown.folder + u"|" + shown.fileName, u"C:\\Temp|");
    EXPECT_EQ(shown.title, u"Zvolte aplikaci pro otevírání pracovních sešitů");
    EXPECT_EQ(shown.filter + u" " + shown.defaultExtension, u"Aplikace (*.exe)|*.exe .exe");
    EXPECT_TRUE(shown.fileMustExist);
    computer_.userInterface.chosen = kProgram;
    dialog.browseProgram.Click();
    EXPECT_EQ(dialog.form.activeControl(), &dialog.program);
    dialog.browseProgram.Click();
    EXPECT_EQ(shown.folder + u"|" + shown.fileName, u"C:\\Office|scalc.exe");

    const std::string ask = "choose folder [Vyberte adresář a stiskněte \"OK\"] ";
    computer_.userInterface.chosen = u" ";
    dialog.browseFolder.Click();
    EXPECT_EQ(computer_.journal.back(), ask + "C:\\Temp\\Zorix\\ABC\\Worksheets");
    dialog.folder.SetText(u" C:\\Temp\\a\\b ");
    computer_.userInterface.chosen = u" C:\\t ";
    dialog.browseFolder.Click();
    EXPECT_EQ(computer_.journal.back(), ask + "C:\\Temp");
    EXPECT_EQ(dialog.folder.text(), u"C:\\t");
  });
}

TEST_F(Preset, ProgramsNeedNoExtensionWhereTheyHaveNone) {
  computer_.shell.programs = {.extension = {}, .folders = {u"/usr/bin"}};
  computer_.files.Put(u"/usr/bin/scalc", "");
  Show(TableEditor, [this](Controls& dialog) {
    dialog.use.Click();
    dialog.program.SetText(u"/usr/bin/scalc");
    dialog.browseProgram.Click();
    EXPECT_EQ(computer_.userInterface.fileDialog.filter, u"Aplikace (*)|*");
    EXPECT_EQ(computer_.userInterface.fileDialog.fileName, u"scalc");
    dialog.ok.Click();
  });
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(manager_.GetTableEditorAppPath(), u"/usr/bin/scalc");
}

}  // namespace
}  // namespace zorkanca::testing
