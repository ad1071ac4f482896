#include "templates/sabl_office_dialog.h"

#include "templates/template_dialogs_support.h"

namespace zorkanca::testing {
namespace {

using ListDialog = TemplateDialogTest;

TEST_F(ListDialog, ChoosesATemplateAndMakesItTheActiveOne) {
  Register(u"a.dot");
  Register(u"b.dot", 0, true);
  Register(u"c.dot");
  computer.registry.Write(kUser, KeyOf(u"c.dot"), u"path", Text(u"C:\\T\\"));
  Expect([](const FormPerson& person) {
    person.ExpectSoundForm();
    EXPECT_EQ(person.List().rows(), (std::vector<Text>{u"popis a.dot", u"popis b.dot", u"popis c.dot"}));
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
  EXPECT_EQ(Choose({.rsCaption = u"Vyberte"}), "C:\\T\\c.dot") << "one separator";
  EXPECT_EQ(Stored(u"active"), "a.dot=0 b.dot=0 c.dot=-1 ");
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
  EXPECT_EQ(Stored(u"active"), "a.dot=0 b.dot=0 c.dot=-1 ");
  EXPECT_EQ(Messages(), "");
}

TEST_F(ListDialog, EnterAndDoubleClickChooseWhereOkWould) {
  Register(u"a.dot");
  Register(u"b.dot", 0, false, false);
  Expect([](const FormPerson& person) {
    person.Pick(1);
    EXPECT_EQ(person.List().rows()[1], u"NENALEZENO: popis b.dot");
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
  EXPECT_EQ(Choose(), "C:\\T\\a.dot");
  Expect([](const FormPerson& person) { person.List().DoubleClick(0); });
  EXPECT_EQ(Choose(), "C:\\T\\a.dot");
}

TEST_F(ListDialog, UsersChangeTheOrderWhichStaysWhenTheyCancel) {
  for (const TextView name : {u"a.dot", u"b.dot", u"c.dot"}) Register(name);
  Expect([this](const FormPerson& person) {
    person.Pick(1);
    person.Press(u"cmd_Nahoru");
    EXPECT_EQ(person.List().rows()[0], u"popis b.dot");
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
  EXPECT_EQ(Stored(u"active"), "a.dot=0 b.dot=0 c.dot=0 ");
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
    EXPECT_EQ(person.List().rows(), (std::vector<Text>{u"popis b.dot"}));
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
  computer.files.Put(u"C:\\Suite\\ZorSabl.txt", "");
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
  computer.files.CreateFolder(u"C:\\Temp\\Suite");
  computer.environment.supplyFolder = u"C:\\Temp\\Suite";
  computer.files.Put(u"C:\\Temp\\Suite\\ZorSabl.txt", "A1|default|faktura|Faktura|12|\r\n");
  computer.files.Put(u"C:\\Suite\\Sablony\\A1\\faktura.dot", "");
  Expect([](const FormPerson& person) { EXPECT_EQ(person.List().rows().size(), 1U); });
  Choose({.TypeOfApplOffice = ApplOffice::MSWord});
  Expect([](const FormPerson& person) {
    EXPECT_EQ(person.List().rows(), (std::vector<Text>{u"popis a.dot", u"Faktura"}));
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
  EXPECT_EQ(Choose(), "C:\\T\\a.dot");
  const Text layouts = u"Software\\VB and VBA Program Settings\\zorKancA\\Layout";
  EXPECT_EQ(computer.registry.Listing(kUser, layouts), "zorKancA_SablOffice = &0|!1500|!3000|!9000|!6000\n");
  computer.registry.Write(kUser, layouts, u"zorKancA_SablOffice", Text(u"&0|!15|!30|!90000|!6000"));
  Expect([](const FormPerson& person) {
    EXPECT_EQ(person.List().form().bounds(), (Bounds{0, 30, 28800, 6000})) << "as wide as the screen";
  });
  Choose();
  computer.registry.Write(kUser, layouts, u"zorKancA_SablOffice", 7);
  Expect([](const FormPerson& person) { person.Press(u"cmd_OK"); });
  EXPECT_EQ(Choose(), "C:\\T\\a.dot") << "a damaged layout stops nobody";
  EXPECT_EQ(Messages(), "");
}

// A registry that refuses to be changed from some moment on.
class RefusingRegistry final : public MemoryRegistry {
 public:
  bool refuses = false;
  void Change(const std::function<void()>& changes) override {
    if (refuses) Raise(RuntimeError::kPermissionDenied);
    MemoryRegistry::Change(changes);
  }
};

TEST(ListDialogFailures, AreShownAndKeepNobodyInTheDialog) {
  MemoryPlatform computer;
  RefusingRegistry registry;
  const Platform& all = computer.platform;
  TemplateLists lists({all.files, registry, all.userInterface, all.shell, all.clock, all.locale, all.eventLog,
                       all.environment, all.office});
  computer.files.Put(u"C:\\T\\a.dot", "");
  computer.files.Put(u"C:\\T\\b.dot", "");
  for (const TextView name : {u"a.dot", u"b.dot"}) {
    const Text key = Text(kCursorStart).append(u"\\SABLONY\\A1\\L\\").append(name);
    registry.Write(RegistryHive::kCurrentUser, key, u"path", Text(u"C:\\T"));
  }
  computer.userInterface.scripts.emplace_back([&](Form& form) {
    const FormPerson person(form);
    person.Pick(1);
    person.Press(u"cmd_Nahoru");
    registry.refuses = true;
    person.Press(u"cmd_OK");
  });
  TemplateListArguments arguments{.rsZorApl = u"A1", .rsListName = u"L"};
  EXPECT_EQ(lists.TemplateList(arguments), u"C:\\T\\b.dot") << "the choice counts although it cannot be kept";
  EXPECT_EQ(std::count_if(computer.journal.begin(), computer.journal.end(),
                          [](const std::string& line) { return line.find("70 - Permission denied") != line.npos; }),
            2)
      << "once for the active one, once for the order";
}

}  // namespace
}  // namespace zorkanca::testing
