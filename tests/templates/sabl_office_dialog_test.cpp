#include "templates/sabl_office_dialog.h"

#include <gtest/gtest.h>

#include "templates/template_dialogs_support.h"

namespace zorkanca::testing {
namespace {

using ListDialog = TemplateDialogTest;

TEST_F(ListDialog, ChoosesATemplateAndMakesItTheActiveOne) {
  Register(u"a.dot");
  Register(u"b.dot", 0, true);
  Register(u"c.dot");
  computer.registry.Write(RegistryHive::kCurrentUser, TemplatePlatform::KeyOf(u"c.dot"), u"path", Text(u"C:\\S\\"));
  Expect([](const FormPerson& person) {
    person.ExpectSoundForm();
    EXPECT_EQ(person.List().rows(), (std::vector<Text>{u"Popis a.dot", u"Popis b.dot", u"Popis c.dot"}));
    EXPECT_EQ(person.List().selectedRow(), 1) << "the active one";
    EXPECT_EQ(person.List().form().caption(), u"Vyberte");
    EXPECT_EQ(person.List().form().activeControl(), &person.List());
    EXPECT_EQ(person.Buttons(), "OK Zrusit Nahoru Dolu ");
    person.Pick(2);
    EXPECT_EQ(person.Buttons(), "OK Zrusit Nahoru ");
    EXPECT_EQ(person.Find<Button>(u"cmd_Dolu").image(), ButtonImage::kDisabledDown);
    EXPECT_EQ(person.Find<Button>(u"cmd_Nahoru").image(), ButtonImage::kEnabledUp);
    person.Press(u"cmd_OK");
  });
  EXPECT_EQ(Choose({.rsCaption = u"Vyberte"}), "C:\\S\\c.dot") << "one separator";
  EXPECT_EQ(Stored(u"active"), "a.dot=- b.dot=0 c.dot=-1 ");
  EXPECT_EQ(Stored(u"key"), "a.dot=1 b.dot=2 c.dot=3 ");

  Expect([](const FormPerson& person) {
    EXPECT_EQ(person.List().form().caption(), u"") << "the caption was for one time";
    EXPECT_EQ(person.List().selectedRow(), 2);
    person.Pick(0);
    EXPECT_EQ(person.Find<Button>(u"cmd_Nahoru").image(), ButtonImage::kDisabledUp);
    person.Press(u"cmd_Zrusit");
  });
  EXPECT_EQ(Choose(), "");
  for (const auto leave : {&FormPerson::Escape, &FormPerson::Enter}) {
    Expect([leave](const FormPerson& person) {
      person.Pick(0);
      if (leave == &FormPerson::Enter) person.Find<Button>(u"cmd_Zrusit").SetFocus();
      (person.*leave)();
    });
    EXPECT_EQ(Choose(), "");
  }
  EXPECT_EQ(Stored(u"active"), "a.dot=- b.dot=0 c.dot=-1 ");
  EXPECT_EQ(Messages(), "");
}

TEST_F(ListDialog, AnEmptyFolderIsTheRoot) {
  Register(u"a.dot");
  computer.registry.Write(RegistryHive::kCurrentUser, TemplatePlatform::KeyOf(u"a.dot"), u"path", Text());
  computer.files.Put(u"a.dot", "");  // in the current folder
  const auto press = [](const FormPerson& person) { person.Press(u"cmd_OK"); };
  Expect(press);
  EXPECT_EQ(Choose(), "") << "not found there";
  computer.files.Put(u"\\a.dot", "");
  Expect(press);
  EXPECT_EQ(Choose(), "\\a.dot");
}

TEST_F(ListDialog, EnterAndDoubleClickChooseWhereOkWould) {
  Register(u"a.dot");
  Register(u"b.dot");
  computer.files.DeleteFile(u"C:\\S\\b.dot", true);
  Expect([](const FormPerson& person) {
    person.Pick(1);
    EXPECT_EQ(person.List().rows()[1], u"NENALEZENO: Popis b.dot");
    EXPECT_EQ(person.Buttons(), "Zrusit Nahoru ") << "its file is missing";
    person.Enter();
    person.List().DoubleClick(1);
    EXPECT_TRUE(person.IsOpen());
    person.Pick(0);
    for (const TextView button : {u"cmd_Zrusit", u"cmd_Dolu"}) {
      person.Find<Button>(button).SetFocus();
      person.Enter();
      EXPECT_TRUE(person.IsOpen()) << "Enter is the button's own";
    }
    person.Find<Button>(u"cmd_OK").SetFocus();
    person.Enter();
    EXPECT_FALSE(person.IsOpen());
  });
  EXPECT_EQ(Choose(), "C:\\S\\a.dot");
  Expect([](const FormPerson& person) { person.List().DoubleClick(0); });
  EXPECT_EQ(Choose(), "C:\\S\\a.dot");
}

TEST_F(ListDialog, UsersChangeTheOrderWhichStaysWhenTheyCancel) {
  for (const TextView name : {u"a.dot", u"b.dot", u"c.dot"}) Register(name);
  Expect([this](const FormPerson& person) {
    person.Pick(1);
    person.Press(u"cmd_Nahoru");
    EXPECT_EQ(person.List().rows()[0], u"Popis b.dot");
    EXPECT_EQ(person.List().selectedRow(), 0) << "the moved one stays selected";
    EXPECT_EQ(person.List().form().activeControl()->name(), u"cmd_Dolu") << "the first one cannot rise";
    person.Press(u"cmd_Nahoru");
    person.Press(u"cmd_Dolu");
    EXPECT_EQ(person.List().form().activeControl()->name(), u"cmd_Dolu") << "still for the next press";
    person.Press(u"cmd_Dolu");
    person.Press(u"cmd_Dolu");
    EXPECT_EQ(person.List().selectedRow(), 2);
    EXPECT_EQ(Stored(u"key"), "a.dot=1 b.dot=2 c.dot=3 ") << "not yet";
  });
  EXPECT_EQ(Choose(), "");
  EXPECT_EQ(Stored(u"key"), "a.dot=1 b.dot=3 c.dot=2 ");
  EXPECT_EQ(Stored(u"active"), "a.dot=- b.dot=- c.dot=- ");
}

TEST_F(ListDialog, AdministratorsDelete) {
  for (const TextView name : {u"a.dot", u"b.dot", u"c.dot"}) Register(name);
  Expect([](const FormPerson& person) {
    EXPECT_EQ(person.Buttons(), "OK Zrusit Pridat Opravit Smazat Dolu ");
    person.Pick(2);
    person.Press(u"cmd_Smazat");
    EXPECT_EQ(person.List().selectedRow(), 1) << "the new last one";
    person.Pick(0);
    person.Press(u"cmd_Smazat");
    EXPECT_EQ(person.List().rows(), (std::vector<Text>{u"Popis b.dot"}));
    EXPECT_EQ(person.List().selectedRow(), 0);
    person.Press(u"cmd_Smazat");
    EXPECT_EQ(person.List().selectedRow(), -1);
    EXPECT_EQ(person.Buttons(), "Zrusit Pridat ");
    person.Find<Button>(u"cmd_Smazat").onClick();
  });
  EXPECT_EQ(ChooseAsAdmin(), "");
  EXPECT_EQ(Stored(u"key"), "");
  EXPECT_EQ(Messages(), "beep\n");
  Register(u"d.dot");
  Expect([](const FormPerson& person) { EXPECT_EQ(person.Buttons(), "OK Zrusit ") << "a user again"; });
  Choose();
}

TEST_F(ListDialog, TellsWhyThereIsNothingToChoose) {
  computer.files.DeleteFile(u"C:\\Temp\\ZorSabl.txt", true);
  TemplateListArguments arguments{.rsZorApl = u"A1", .rsListName = u" "};
  Expect([](const FormPerson& person) {
    EXPECT_EQ(person.List().selectedRow(), -1);
    person.Enter();
    EXPECT_EQ(person.Buttons(), "Zrusit ");
  });
  EXPECT_EQ(lists.TemplateList(arguments), u"");
  EXPECT_EQ(arguments.rsListName, u"(Výchozí)");
  EXPECT_EQ(Messages(),
            "message 48 [Chyba] Nebyl nalezen soubor \"ZorSabl.txt\" obsahující seznam šablon k registraci !\n");

  arguments.rsZorApl = u"A\\\\1";  // no sound name of a key
  computer.files.Put(u"C:\\Temp\\ZorSabl.txt", "");
  EXPECT_EQ(lists.TemplateList(arguments), u"");
  EXPECT_EQ(Messages(), "message 16 [] Požadovaný seznam šablon nenalezen !\n");

  // Nobody is there to show the dialog to.
  EXPECT_EQ(Choose(), "");
  EXPECT_EQ(Messages(),
            "message 48 [Seznam šablon] Při práci se seznamem šablon došlo k chybě:\\r\\n"
            "5 - no script for a dialog\n");
  Expect([](const FormPerson&) {});
  EXPECT_EQ(Choose(), "") << "the dialog still works";
}

TEST_F(ListDialog, RegistersTheSupplyWhenAsked) {
  Register(u"a.dot");
  computer.files.Put(u"C:\\Temp\\ZorSabl.txt", "A1|default|faktura|Faktura|12|\r\n");
  computer.files.Put(u"C:\\Suite\\Sablony\\A1\\faktura.dot", "");
  Expect([](const FormPerson& person) { EXPECT_EQ(person.List().rows().size(), 1U); });
  Choose({.TypeOfApplOffice = ApplOffice::MSWord});
  Expect([](const FormPerson& person) {
    EXPECT_EQ(person.List().rows(), (std::vector<Text>{u"Popis a.dot", u"Faktura"}));
  });
  Choose({.TypeOfApplOffice = ApplOffice::MSWord, .Supply = true});
  Text application = u"A1";
  Text listName;
  EXPECT_TRUE(lists.SupplyTemplateList(application, ApplOffice::MSWord, listName));
  EXPECT_EQ(listName, u"(Výchozí)");
  EXPECT_EQ(Stored(u"id"), "a.dot=0 faktura.dot=12 ");
}

TEST_F(ListDialog, OpensWhereItWasLeft) {
  Register(u"a.dot");
  Expect([](const FormPerson& person) {
    person.List().form().PersonResized({1500, 3000, 9000, 6000}, WindowState::kNormal, 9000, 6000);
    person.Press(u"cmd_OK");
  });
  EXPECT_EQ(Choose(), "C:\\S\\a.dot");
  const Text layouts = u"Software\\VB and VBA Program Settings\\zorKancA\\Layout";
  EXPECT_EQ(computer.registry.Listing(RegistryHive::kCurrentUser, layouts),
            "zorKancA_SablOffice = &0|!1500|!3000|!9000|!6000\n");
  computer.registry.Write(RegistryHive::kCurrentUser, layouts, u"zorKancA_SablOffice",
                          Text(u"&0|!15|!30|!90000|!6000"));
  Expect([](const FormPerson& person) {
    EXPECT_EQ(person.List().form().bounds(), (Bounds{0, 30, 28800, 6000})) << "as wide as the screen";
  });
  Choose();
  computer.registry.Write(RegistryHive::kCurrentUser, layouts, u"zorKancA_SablOffice", 7);
  Expect([](const FormPerson& person) { person.Press(u"cmd_OK"); });
  EXPECT_EQ(Choose(), "C:\\S\\a.dot") << "a damaged layout stops nobody";
  EXPECT_EQ(Messages(), "");
}

TEST_F(ListDialog, FailuresAreShownAndKeepNobodyInTheDialog) {
  Register(u"a.dot");
  Register(u"b.dot");
  Expect([this](const FormPerson& person) {
    person.Pick(1);
    person.Press(u"cmd_Nahoru");
    computer.registry.refusesChanges = true;
    person.Press(u"cmd_OK");
  });
  EXPECT_EQ(Choose(), "C:\\S\\b.dot") << "the choice counts although it cannot be kept";
  const std::string message =
      "message 48 [Seznam šablon] Při práci se seznamem šablon došlo k chybě:\\r\\n70 - Permission denied\n";
  EXPECT_EQ(Messages(), message + message) << "for the active one and for the order";
}

}  // namespace
}  // namespace zorkanca::testing
