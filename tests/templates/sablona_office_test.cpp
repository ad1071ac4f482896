#include "templates/sablona_office.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/template_lists.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Sablona : public ::testing::Test {
 protected:
  // A list of a.dot (id 7) and b.dot.
  void Load(ApplOffice application = ApplOffice::MSWord) {
    computer_.Store(u"a.dot", 1, true, 7);
    computer_.Store(u"b.dot", 2);
    list_.TypeOfApplOffice(application);
    ASSERT_TRUE(list_.Fill({.ZorAplName = u"A1"}));
    ASSERT_EQ(Names(list_), "1 *a.dot, 2 b.dot");
  }
  c_SablonaOffice& Added(TextView name, std::int32_t id = 0) {
    c_SablonaOffice& added = *list_.AddNewItem(list_.Count());
    added.name(name);
    added.description(u"Nová");
    added.Path(u"C:\\S");
    added.Id(id);
    return added;
  }

  TemplatePlatform computer_;
  c_SeznamSablonOffice list_{computer_.platform};
};

TEST_F(Sablona, AnEditIsTakenBackOrWritten) {
  Load();
  c_SablonaOffice& edited = *list_.Item(1);
  edited.Id(7);
  edited.description(u"Popis a.dot");
  EXPECT_TRUE(edited.Saved()) << "the same values are no edit";
  edited.description(u"Jiný");
  edited.name(u"c.dot");
  edited.Path(u"C:\\Jinde");
  EXPECT_EQ(edited.description(), u"NENALEZENO: Jiný");
  EXPECT_FALSE(edited.Saved() || edited.FileExist());
  edited.CancelEdit();
  EXPECT_TRUE(edited.Saved());
  EXPECT_EQ(edited.name() + u"|" + edited.description() + u"|" + edited.Path(), u"a.dot|Popis a.dot|C:\\S");

  list_.Item(2)->Id(7);
  EXPECT_TRUE(list_.Item(2)->Save(true)) << "no check without a new name";
  EXPECT_EQ(computer_.Stored(u"b.dot", u"id"), "7");
  EXPECT_THAT(computer_.journal, IsEmpty());
}

TEST_F(Sablona, TheMarkFollowsTheFile) {
  Load();
  c_SablonaOffice& moved = *list_.Item(1);
  moved.Path(u"C:\\S\\");
  EXPECT_TRUE(moved.FileExist()) << "a separator at the end";
  EXPECT_EQ(moved.FullFileName(), u"C:\\S\\a.dot");
  moved.Path(u"C:\\Jinde");
  moved.Path(u"C:\\Jinde");
  EXPECT_EQ(moved.description(), u"NENALEZENO: Popis a.dot") << "once only";
  EXPECT_EQ(moved.FullFileName(), u"C:\\Jinde\\a.dot");
  EXPECT_TRUE(moved.Save(false));
  EXPECT_EQ(computer_.Stored(u"a.dot", u"description"), "NENALEZENO: Popis a.dot");
  moved.description(u"  nenalezeno:Popis ");
  moved.Path(u"C:\\S");
  EXPECT_EQ(moved.description(), u"Popis");
}

TEST_F(Sablona, ExtensionsAreCompletedOrRefused) {
  const struct {
    ApplOffice application;
    TextView name;
    MessageAnswer answer;
    TextView saved;  // empty: refused
    TextView question;
  } rows[] = {
      {ApplOffice::MSWord, u"dopis", MessageAnswer::kNo, u"dopis.dot", u""},
      {ApplOffice::MSWord, u"dopis.DOT", MessageAnswer::kNo, u"dopis.DOT", u""},
      {ApplOffice::MSWord, u"dopis.dotx", MessageAnswer::kNo, u"", u"Šablona pro MS Word"},
      {ApplOffice::MSWord, u"d.2.dotx", MessageAnswer::kYes, u"d.2.dot", u"Šablona pro MS Word"},
      {ApplOffice::AllTypes, u"dopis.txt", MessageAnswer::kNo, u"dopis.txt", u""},
      {ApplOffice::AllTypes, u"dopis", MessageAnswer::kNo, u"dopis", u""},
      {ApplOffice::MSExcel, u"cenik.dot", MessageAnswer::kNo, u"", u"Šablona pro MS Excel"},
      {ApplOffice::SDS, u"x.xlt", MessageAnswer::kYes, u"x.sds", u"Soubor definice sestavy"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(Shown(row.name));
    TemplatePlatform computer;
    computer.userInterface.answer = row.answer;
    c_SeznamSablonOffice list(computer.platform);
    list.TypeOfApplOffice(row.application);
    list.Fill({.ZorAplName = u"A1"});
    c_SablonaOffice& added = *list.AddNewItem(0);
    added.name(row.name);
    EXPECT_EQ(added.Save(true), !row.saved.empty());
    const std::string question =
        "message 48 [" + ToUtf8(row.question) + "] Zadaný typ souboru neodpovídá očekávanému, opravit ?";
    EXPECT_EQ(computer.journal, row.question.empty() ? Journal{} : Journal{question});
    if (!row.saved.empty()) {
      EXPECT_EQ(Shown(list.Item(row.saved)->name()), Shown(row.saved));
      EXPECT_EQ(computer.Stored(row.saved, u"key"), "1");
    }
  }
}

TEST_F(Sablona, DuplicatesAreRefusedWithTheirReason) {
  Load();
  c_SablonaOffice& renamed = *list_.Item(2);
  renamed.name(u" A.DOT");
  EXPECT_FALSE(renamed.Save(true));
  EXPECT_EQ(renamed.name(), u"b.dot");
  c_SablonaOffice& added = Added(u"c.dot", 7);
  EXPECT_FALSE(added.Save(false));
  EXPECT_FALSE(added.Save(true));
  EXPECT_TRUE(added.IsNew());
  EXPECT_THAT(computer_.journal,
              ElementsAre("message 48 [Seznam šablon] Soubor \" A.DOT\"\r\nje již v tomto seznamu zaregistrován pod "
                          "popisem \r\n\"Popis a.dot\"\r\nNelze uložit znovu !",
                          "message 48 [Seznam šablon] V tomto seznamu zaregistrována šablona \"a.dot\" pod popisem "
                          "\"Popis a.dot\", která má identifikátor 7. Nenulový identifikátor lze použít v jednom "
                          "seznamu pouze jednou !\r\nNelze uložit, změňte identifikátor ID nebo ho vynulujte !"));
  added.Id(0);
  EXPECT_TRUE(added.Save(true)) << "several without identifier";
}

TEST_F(Sablona, ANewNameMovesTheKey) {
  Load();
  c_SablonaOffice& renamed = *list_.Item(1);
  renamed.name(u"c");
  EXPECT_EQ(list_.Item(u"a.dot").get(), &renamed) << "known by the old name until it is saved";
  EXPECT_TRUE(renamed.Save(false));
  EXPECT_EQ(list_.Item(u"c.dot").get(), &renamed);
  EXPECT_EQ(Names(list_), "1 *c.dot, 2 b.dot");
  EXPECT_EQ(computer_.registry.SubkeyNames(RegistryHive::kCurrentUser, TemplatePlatform::KeyOf(u"")),
            (std::vector<Text>{u"b.dot", u"c.dot"}));
  EXPECT_EQ(computer_.Stored(u"c.dot", u"id"), "7");
  EXPECT_EQ(computer_.Stored(u"c.dot", u"active"), "-");
}

TEST_F(Sablona, NamesThatCannotBeStoredLoseNothing) {
  Load();
  const std::string before = computer_.registry.Listing(RegistryHive::kCurrentUser, u"");
  EXPECT_EQ(ErrorOf([&] { Added(u"x\\y.dot").Save(true); }).number(), 5);
  EXPECT_EQ(ErrorOf([&] { list_.AddNewItem(0)->Save(true); }).number(), 5) << "without a name";
  c_SablonaOffice& renamed = *list_.Item(u"b.dot");
  renamed.name(u"z\\y.dot");
  EXPECT_EQ(ErrorOf([&] { renamed.Save(true); }).number(), 5);
  renamed.CancelEdit();
  EXPECT_EQ(ErrorOf([&] { Added(u"a").Save(true); }).number(), 457) << "with its extension it is a.dot";
  EXPECT_EQ(computer_.registry.Listing(RegistryHive::kCurrentUser, u""), before);
}

}  // namespace
}  // namespace zorkanca::testing
