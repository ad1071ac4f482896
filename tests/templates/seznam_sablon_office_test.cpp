#include "templates/seznam_sablon_office.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/template_lists.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr RegistryHive kUser = RegistryHive::kCurrentUser;

class Seznam : public ::testing::Test {
 protected:
  std::string Filled(ApplOffice application = ApplOffice::AllTypes, bool supply = false) {
    list_.TypeOfApplOffice(application);
    EXPECT_TRUE(list_.Fill({.ZorAplName = u"A1", .listName = u" ", .Supply = supply}));
    EXPECT_EQ(list_.ListName(), kDefaultListName);
    return Names(list_);
  }
  void PutSupply(std::string_view lines) { computer_.files.Put(u"C:\\Temp\\ZorSabl.txt", std::string(lines)); }

  TemplatePlatform computer_;
  c_SeznamSablonOffice list_{computer_.platform};
};

TEST_F(Seznam, FiltersAndOrders) {
  computer_.Store(u"a.dot", 3);
  computer_.Store(u"b.xlt", 0);
  computer_.Store(u"c.DOT", 1, true);
  computer_.Store(u"d.dot", 3);
  computer_.Store(u"e.dot", -5);
  computer_.Store(u"f.dot", 2147483647);
  EXPECT_EQ(Filled(), "1 *c.DOT, 2 a.dot, 3 d.dot, 4 f.dot, 5 b.xlt");
  EXPECT_EQ(Filled(ApplOffice::MSWord), "1 *c.DOT, 2 a.dot, 3 d.dot, 4 f.dot");
  EXPECT_EQ(Filled(ApplOffice::MSExcel), "1 *b.xlt");
  EXPECT_EQ(Filled(static_cast<ApplOffice>(5)), "");
  EXPECT_EQ(computer_.Stored(u"a.dot", u"key"), "3") << "loading writes no positions";
}

TEST_F(Seznam, KeepsOneTemplateActive) {
  computer_.Store(u"a.dot", 2, true);
  computer_.Store(u"b.dot", 1, true);
  computer_.Store(u"c.dot", 3);
  EXPECT_EQ(Filled(), "1 *b.dot, 2 a.dot, 3 c.dot");
  EXPECT_EQ(computer_.Stored(u"a.dot", u"active") + computer_.Stored(u"b.dot", u"active"), "0-1");
  EXPECT_EQ(computer_.Stored(u"c.dot", u"active"), "0") << "written for all but the first";
  std::int16_t index = 3;
  list_.SetActive(index);
  EXPECT_EQ(Names(list_), "1 b.dot, 2 a.dot, 3 *c.dot");
  EXPECT_EQ(computer_.Stored(u"c.dot", u"active") + computer_.Stored(u"b.dot", u"active"), "-10");
  EXPECT_EQ(list_.IndexOfActive(), 3);
  index = 9;
  list_.SetActive(index);
  EXPECT_EQ(index, 1);

  TemplatePlatform other;
  other.Store(u"a.dot", 1);
  c_SeznamSablonOffice list(other.platform);
  EXPECT_TRUE(list.Fill({.ZorAplName = u"A1"}));
  EXPECT_EQ(Names(list), "1 *a.dot");
  EXPECT_EQ(other.Stored(u"a.dot", u"active"), "-") << "shown active, not written";
}

TEST_F(Seznam, ReordersInMemoryUntilTheKeysAreSaved) {
  for (const TextView name : {u"a.dot", u"b.dot", u"c.dot"}) computer_.Store(name, 0);
  Filled();
  list_.MoveUp(1);
  list_.MoveDown(3);
  list_.MoveUp(4);
  EXPECT_EQ(Names(list_), "1 *a.dot, 2 b.dot, 3 c.dot");
  list_.MoveUp(3);
  list_.MoveDown(1);
  EXPECT_EQ(Names(list_), "1 c.dot, 2 *a.dot, 3 b.dot");
  EXPECT_EQ(computer_.Stored(u"c.dot", u"key"), "0");
  list_.AddNewItem(1);
  EXPECT_EQ(Names(list_), "1 c.dot, 2 , 3 *a.dot, 4 b.dot");
  list_.SaveKeys();
  EXPECT_EQ(computer_.Stored(u"b.dot", u"key"), "4");
  list_.KillItem(1);
  list_.KillItem(0);
  EXPECT_EQ(Names(list_), "1 *a.dot, 2 b.dot");
  EXPECT_EQ(computer_.registry.SubkeyNames(kUser, TemplatePlatform::KeyOf(u"")),
            (std::vector<Text>{u"a.dot", u"b.dot"}));
  EXPECT_EQ(computer_.Stored(u"b.dot", u"key"), "4");
  EXPECT_EQ(ErrorOf([&] { list_.KillItem(2); }).number(), 9);
  EXPECT_EQ(ErrorOf([&] { list_.Item(0); }).number(), 9);
  EXPECT_EQ(ErrorOf([&] { list_.Item(u"c.dot"); }).number(), 5);
}

TEST_F(Seznam, SuppliesEmptyListsAndOthersOnRequest) {
  computer_.files.Put(u"C:\\Suite\\Sablony\\A1\\faktura.dot", "");
  computer_.files.Put(u"C:\\Suite\\Sablony\\A1\\dopis.dot", "");
  PutSupply("A1|default|faktura|Faktura|12|\r\nA1||faktura|Znovu|0|\r\nA1||dopis.dot|Dopis|12|\r\n");
  EXPECT_EQ(Filled(ApplOffice::MSWord), "1 faktura.dot") << "the second name and the second 12 are refused";
  EXPECT_EQ(computer_.registry.Listing(kUser, TemplatePlatform::KeyOf(u"faktura.dot")),
            "key = #1\ndescription = Faktura\nid = #12\npath = C:\\Suite\\Sablony\\A1\n");
  PutSupply("A1||dopis|Dopis|0|\r\nA1||faktura|Faktura|12|\r\n");
  EXPECT_EQ(Filled(ApplOffice::MSWord), "1 *faktura.dot");
  EXPECT_EQ(Filled(ApplOffice::MSWord, true), "1 *faktura.dot, 2 dopis.dot");
  EXPECT_THAT(computer_.journal, IsEmpty());

  computer_.files.DeleteFile(u"C:\\Temp\\ZorSabl.txt", true);
  EXPECT_FALSE(list_.SupplyFromFile());
  EXPECT_FALSE(list_.Failure().has_value());
  EXPECT_THAT(computer_.journal, ElementsAre("message 48 [Chyba] Nebyl nalezen soubor \"ZorSabl.txt\" obsahující "
                                             "seznam šablon k registraci !"));
}

TEST_F(Seznam, ALineThatCannotBeRegisteredLeavesNothing) {
  for (const TextView file : {u"a.dot", u"x\\y.dot", u"b.dot"}) {
    computer_.files.Put(Text(u"C:\\Suite\\Sablony\\A1\\").append(file), "");
  }
  PutSupply("A1||a|A|1|\r\nA1||x\\y|X|2|\r\nA1||b|B|2|\r\n");
  EXPECT_EQ(Filled(ApplOffice::MSWord), "1 a.dot, 2 b.dot") << "no key can be named x\\y.dot";
  EXPECT_EQ(computer_.registry.SubkeyNames(kUser, TemplatePlatform::KeyOf(u"")),
            (std::vector<Text>{u"a.dot", u"b.dot"}));
}

TEST_F(Seznam, SupplyTemplateListRegistersWithoutADialog) {
  computer_.files.Put(u"C:\\Suite\\Sablony\\A1\\Faktury\\x.xlt", "");
  PutSupply("a1|FAKTURY|x|X|1|\n");
  Text name = u"Faktury";
  EXPECT_TRUE(SupplyTemplateList(computer_.platform, u"A1", ApplOffice::MSExcel, name));
  EXPECT_TRUE(computer_.registry.KeyExists(kUser, u"Software\\QRD\\Zorix\\SABLONY\\A1\\Faktury\\x.xlt"));
  name = u" ";
  EXPECT_TRUE(SupplyTemplateList(computer_.platform, u"A1", ApplOffice::MSExcel, name));
  EXPECT_EQ(name, kDefaultListName);
  EXPECT_FALSE(SupplyTemplateList(computer_.platform, u"A\\1", ApplOffice::MSExcel, name));
}

TEST_F(Seznam, ValuesOfTheWrongKindCostNoTemplate) {
  computer_.Store(u"a.dot", 1);
  for (const TextView name : {u"key", u"id", u"active"}) {
    computer_.registry.Write(kUser, TemplatePlatform::KeyOf(u"b.dot"), name, Text(u"7"));
  }
  for (const TextView name : {u"description", u"path"}) {
    computer_.registry.Write(kUser, TemplatePlatform::KeyOf(u"b.dot"), name, RawRegistryValue{});
  }
  computer_.registry.CreateKey(kUser, TemplatePlatform::KeyOf(u"c.dot"));
  EXPECT_EQ(Filled(), "1 *a.dot, 2 b.dot, 3 c.dot");
  for (const TextView name : {u"b.dot", u"c.dot"}) {
    EXPECT_EQ(list_.Item(name)->Path(), u"C:\\Suite\\Sablony");
    EXPECT_EQ(list_.Item(name)->description(), u"NENALEZENO: " + Text(name));
  }
  const std::string log = computer_.files.Bytes(u"C:\\Temp\\Suite\\Log\\ZorixLog_2026-11-16.txt").value_or("");
  EXPECT_NE(log.find("Hodnota \"path\" kl"), std::string::npos) << log;
}

TEST_F(Seznam, FailuresLeaveTheListUsable) {
  for (const auto& [application, name] : {std::pair(u"", u"x"), std::pair(u"A1", u"..\\"), std::pair(u"A1", u"a\\b")}) {
    EXPECT_FALSE(list_.Fill({.ZorAplName = application, .listName = name}));
    EXPECT_EQ(list_.Failure()->number(), 5);
  }

  computer_.files.Put(u"C:\\Suite\\Sablony\\A1\\a.dot", "");
  PutSupply("A1||a.dot|A|1|\n");
  computer_.registry.refusesChanges = true;
  EXPECT_TRUE(list_.Fill({.ZorAplName = u"A1"})) << "the supply does not count";
  EXPECT_EQ(list_.Failure()->number(), 70);
  EXPECT_EQ(list_.Count(), 0) << "what was not written is not there";
  computer_.registry.refusesChanges = false;
  EXPECT_TRUE(list_.SupplyFromFile());
  EXPECT_EQ(Names(list_), "1 a.dot");
}

TEST_F(Seznam, TemplatesOutliveTheirList) {
  computer_.Store(u"a.dot", 1);
  auto list = std::make_unique<c_SeznamSablonOffice>(computer_.platform);
  list->Fill({.ZorAplName = u"A1"});
  const auto kept = list->Item(1);
  list.reset();
  kept->name(u"b.dot");
  EXPECT_EQ(ErrorOf([&] { kept->Save(true); }).number(), 91);
}

}  // namespace
}  // namespace zorkanca::testing
