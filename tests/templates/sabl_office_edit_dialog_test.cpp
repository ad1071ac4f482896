#include "templates/sabl_office_edit_dialog.h"

#include <gtest/gtest.h>

#include "templates/template_dialogs_support.h"

namespace zorkanca::testing {
namespace {

class EditDialog : public TemplateDialogTest {
 protected:
  /// An administrator opens the edit dialog by a button, works in it by the script, and leaves the list. The rows of
  /// the list after that are in `rows`.
  void Work(TextView button, Script inEdit, ApplOffice application = ApplOffice::AllTypes, int row = 0) {
    Expect([this, button, row](const FormPerson& person) {
      if (row < static_cast<int>(person.List().rows().size())) person.List().SelectRow(row);
      person.Press(button);
      rows = person.List().rows();
      selectedRow = person.List().selectedRow();
    });
    Expect(std::move(inEdit));
    EXPECT_EQ(ChooseAsAdmin(application), "");
  }
  /// Adds a template of a file and says OK.
  Script Adding(TextView file) {
    return [file = Text(file)](const FormPerson& person) {
      person.Type(u"txt_soubor", file);
      person.Press(u"cmd_OK");
    };
  }

  std::vector<Text> rows;
  int selectedRow = -2;
};

TEST_F(EditDialog, ShowsATemplateWithoutTheMarkOfItsMissingFile) {
  Register(u"a.dot", 7);
  computer.files.DeleteFile(u"C:\\S\\a.dot", true);
  Work(u"cmd_Opravit", [](const FormPerson& person) {
    person.ExpectSoundForm();
    EXPECT_EQ(person.Read(u"txt_kod"), u"7");
    person.Find<TextBox>(u"txt_kod").Type(u"7");
    EXPECT_EQ(person.Read(u"txt_kod"), u"7") << "a number that is typed takes the old one's place";
    EXPECT_EQ(person.Read(u"txt_popis"), u"Popis a.dot");
    EXPECT_EQ(person.Read(u"txt_soubor"), u"C:\\S\\a.dot");
    person.Enter();
  });
  EXPECT_EQ(StoredContent(u"a.dot"), "Popis a.dot; 7; C:\\S") << "nothing was edited, nothing is written";
  Work(u"cmd_Opravit", [](const FormPerson& person) {
    person.Type(u"txt_popis", u" nový ");
    person.Enter();
  });
  EXPECT_EQ(rows, (std::vector<Text>{u"NENALEZENO: nový"}));
  EXPECT_EQ(StoredContent(u"a.dot"), "NENALEZENO: nový; 7; C:\\S");
  computer.files.Put(u"C:\\S\\a.dot", "");
  Work(u"cmd_Opravit", [](const FormPerson& person) {
    person.Type(u"txt_kod", u"8");
    person.Press(u"cmd_OK");
  });
  EXPECT_EQ(StoredContent(u"a.dot"), "nový; 8; C:\\S");
  EXPECT_EQ(Messages(), "");
}

TEST_F(EditDialog, AddsAboveTheSelectedRowOrAtTheEnd) {
  Register(u"a.dot");
  Register(u"b.dot");
  Work(
      u"cmd_Pridat",
      [](const FormPerson& person) {
        EXPECT_EQ(person.Read(u"txt_kod"), u"0");
        EXPECT_EQ(person.Read(u"txt_soubor"), u"");
        person.Type(u"txt_soubor", u" report ");
        person.Press(u"cmd_OK");
      },
      ApplOffice::MSWord, 1);
  EXPECT_EQ(rows, (std::vector<Text>{u"Popis a.dot", u"NENALEZENO: report.dot", u"Popis b.dot"}));
  EXPECT_EQ(selectedRow, 1);
  EXPECT_EQ(StoredContent(u"report.dot"), "NENALEZENO: report.dot; 0; C:\\Suite\\Sablony")
      << "no folder means the suite's, no description the file name";
  Work(u"cmd_Pridat", Adding(u"D:\\x.y/d.e\\name"), ApplOffice::SDS);
  EXPECT_EQ(rows, (std::vector<Text>{u"NENALEZENO: name.sds"})) << "the dot of a folder is no extension";
  EXPECT_EQ(selectedRow, 0);
  Work(u"cmd_Pridat", Adding(u"/r.xlt"), ApplOffice::MSExcel);
  EXPECT_EQ(computer.Stored(u"name.sds", u"path"), "D:\\x.y/d.e");
  EXPECT_EQ(computer.Stored(u"r.xlt", u"path"), "/");
}

TEST_F(EditDialog, LeavesNothingBehindWhenItIsLeft) {
  Register(u"a.dot", 5);
  const Script kLeaves[] = {
      [](const FormPerson& person) { person.Press(u"cmd_Zrusit"); },
      [](const FormPerson& person) { person.Escape(); },
      [](const FormPerson&) {},  // the window is closed
      [](const FormPerson& person) {
        person.Type(u"txt_soubor", u"  ");
        person.Press(u"cmd_OK");
      },
  };
  for (const Script& leave : kLeaves) {
    Work(u"cmd_Pridat", leave);
    EXPECT_EQ(rows, (std::vector<Text>{u"Popis a.dot"}));
    Work(u"cmd_Opravit", [&leave](const FormPerson& person) {
      person.Type(u"txt_popis", u"jiný");
      person.Type(u"txt_kod", u"9");
      leave(person);
    });
    EXPECT_EQ(rows, (std::vector<Text>{u"Popis a.dot"}));
  }
  EXPECT_EQ(Stored(u"key") + Stored(u"id"), "a.dot=1 a.dot=5 ");
  // OK without a file name is a way out of a new template only.
  EXPECT_EQ(Messages(), "message 48 [Seznam šablon] Musí být zadáno jméno souboru !\n");
}

TEST_F(EditDialog, RefusesWhatCannotBeSavedAndStaysOpen) {
  Register(u"a.dot", 5);
  Work(u"cmd_Pridat", [this](const FormPerson& person) {
    const struct {
      TextView file;
      TextView code;
      std::string message;
    } kCases[] = {
        {u"C:\\d.d\\b", u"1", "Musí být určena přípona souboru !"},
        {u"C:\\d\\", u"1", "Musí být zadáno jméno souboru !"},
        {u"b.dot", u"2147483648", "Kód musí být celé číslo od -2147483648 do 2147483647 !"},
        {u"A.DOT", u"1",
         "Soubor \"A.DOT\"\\r\\nje již v tomto seznamu zaregistrován pod popisem \\r\\n\"Popis a.dot\"\\r\\n"
         "Nelze uložit znovu !"},
        {u"b.dot", u"5",
         "V tomto seznamu zaregistrována šablona \"a.dot\" pod popisem \"Popis a.dot\", která má identifikátor 5. "
         "Nenulový identifikátor lze použít v jednom seznamu pouze jednou !\\r\\n"
         "Nelze uložit, změňte identifikátor ID nebo ho vynulujte !"},
    };
    for (const auto& [file, code, message] : kCases) {
      person.Type(u"txt_soubor", file);
      person.Type(u"txt_kod", code);
      person.Press(u"cmd_OK");
      EXPECT_EQ(Messages(), "message 48 [Seznam šablon] " + message + "\n");
      EXPECT_TRUE(person.IsOpen());
    }
    person.Type(u"txt_kod", u"");
    person.Press(u"cmd_OK");
    EXPECT_FALSE(person.IsOpen());
  });
  EXPECT_EQ(Stored(u"id"), "a.dot=5 b.dot=0 ") << "an empty code is none";
}

TEST_F(EditDialog, AsksBeforeItCorrectsAnExtension) {
  Work(
      u"cmd_Pridat",
      [this](const FormPerson& person) {
        person.Type(u"txt_soubor", u"C:\\a.b.docx");
        computer.userInterface.answer = MessageAnswer::kNo;
        person.Press(u"cmd_OK");
        EXPECT_TRUE(person.IsOpen());
        computer.userInterface.answer = MessageAnswer::kYes;
        person.Press(u"cmd_OK");
      },
      ApplOffice::MSWord);
  EXPECT_EQ(Stored(u"id"), "a.b.dot=0 ");
  const std::string question = "message 48 [Seznam šablon] Zadaný typ souboru neodpovídá očekávanému, opravit ?\n";
  EXPECT_EQ(Messages(), question + question);
  Work(u"cmd_Pridat", Adding(u"C:\\x.DOT"), ApplOffice::MSWord);
  Work(u"cmd_Pridat", Adding(u"C:\\y.docx"));
  EXPECT_EQ(Stored(u"id"), "a.b.dot=0 x.DOT=0 y.docx=0 ");
  EXPECT_EQ(Messages(), "");
}

TEST_F(EditDialog, TakesFilesFromTheFileDialog) {
  FileDialog& asked = computer.userInterface.fileDialog;
  Register(u"a.dot");
  Work(u"cmd_Pridat", [&](const FormPerson& person) {
    person.Press(u"cmd_soubor");
    EXPECT_EQ(asked.filter, u"Šablony Word (*.dot)|*.dot|Šablony Excel (*.xlt)|*.xlt");
    EXPECT_EQ(asked.folder, u"C:\\Suite\\Sablony");
    EXPECT_EQ(asked.fileName, u"");
    EXPECT_EQ(person.Read(u"txt_soubor"), u"") << "cancelled";
    computer.userInterface.chosen = u"D:\\Vzory\\b.xlt";
    person.Press(u"cmd_soubor");
    EXPECT_EQ(person.Read(u"txt_soubor"), u"D:\\Vzory\\b.xlt");
    person.Press(u"cmd_soubor");
    EXPECT_EQ(asked.folder, u"D:\\Vzory");
    person.Press(u"cmd_OK");
  });
  EXPECT_EQ(computer.Stored(u"b.xlt", u"path"), "D:\\Vzory");
  Expect([](const FormPerson& person) {
    person.Press(u"cmd_Pridat");
    person.Press(u"cmd_Pridat");
  });
  Expect(Adding(u"E:\\Nové\\c.dot"));
  Expect([&asked](const FormPerson& person) {
    person.Press(u"cmd_soubor");
    EXPECT_EQ(asked.folder, u"E:\\Nové") << "of the template that was added last";
  });
  ChooseAsAdmin(ApplOffice::MSWord);
  EXPECT_EQ(asked.filter, u"Šablony Word (*.dot)|*.dot");
  Work(
      u"cmd_Opravit",
      [&asked](const FormPerson& person) {
        person.Press(u"cmd_soubor");
        EXPECT_EQ(asked.folder + u"|" + asked.fileName, u"C:\\S|C:\\S\\a.dot");
      },
      ApplOffice::MSWord);
  EXPECT_EQ(Messages(), "");
}

TEST_F(EditDialog, CodeTakesOnlyWhatReadsAsANumber) {
  Work(u"cmd_Pridat", [](const FormPerson& person) {
    auto& code = person.Find<TextBox>(u"txt_kod");
    for (const auto& [typed, text] : {std::pair<TextView, TextView>(u"1x2", u"12"), {u"-3", u"3"}, {u" 4 ", u" 4 "}}) {
      person.Type(u"txt_kod", typed);
      EXPECT_EQ(code.text(), text);
    }
    code.Type(u"-", 0, 0);
    EXPECT_EQ(code.text(), u"- 4 ") << "a sign can follow the number";
  });
}

TEST_F(EditDialog, RenamesATemplateAndMovesItNowhere) {
  Register(u"a.dot", 1);
  Register(u"b.dot", 2, true);
  Work(u"cmd_Opravit", [](const FormPerson& person) {
    EXPECT_EQ(person.Read(u"txt_kod"), u"1");
    person.Type(u"txt_soubor", u"C:\\S\\z.dot");
    person.Enter();
    EXPECT_FALSE(person.IsOpen());
  });
  EXPECT_EQ(rows, (std::vector<Text>{u"NENALEZENO: Popis a.dot", u"Popis b.dot"}));
  EXPECT_EQ(Stored(u"key"), "b.dot=2 z.dot=1 ");
}

}  // namespace
}  // namespace zorkanca::testing
