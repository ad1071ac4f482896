#include "export/template_choice.h"

#include <gtest/gtest.h>

#include "export/export_failure.h"
#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

class TemplateChoiceTest : public ::testing::Test {
 protected:
  TemplateChoiceTest() {
    context.templateList = [this](TemplateListArguments& asked) {
      lists.push_back(ToUtf8(asked.rsZorApl) + "|" + ToUtf8(asked.rsListName) + "|" + ToUtf8(asked.rsCaption) + "|" +
                      std::to_string(static_cast<int>(asked.TypeOfApplOffice)) + (asked.rbAdmin ? "|admin" : "") +
                      (asked.Supply ? "|supply" : ""));
      return answer;
    };
    computer.files.Put(u"C:\\Sablony\\f.dot", "");
    computer.files.Put(u"C:\\Program Files\\QRD\\Zorix\\Sablony\\g.dot", "");
  }

  // What becomes of a name: the template, "nothing" when the user chose none, or the message.
  std::string Chosen(TextView name, ApplOffice kind = ApplOffice::MSWord) {
    arguments.rsTemplate = name;
    TemplateChoice choice(context, kind, arguments);
    try {
      return choice.Settle() ? ToUtf8(arguments.rsTemplate) : "nothing";
    } catch (const Error& error) {
      return ToUtf8(StopMessage(error).value_or(error.description()));
    }
  }

  MemoryPlatform computer;
  ExportContext context{.platform = computer.platform};
  TemplateArguments arguments;
  Text answer = u"C:\\z.dot";
  std::vector<std::string> lists;
};

TEST_F(TemplateChoiceTest, PathsAndBareNames) {
  EXPECT_EQ(Chosen(u"C:\\Sablony\\f.dot"), "C:\\Sablony\\f.dot");
  EXPECT_EQ(Chosen(u"C:\\Sablony\\x.dot"), "Neplatný název šablony !");
  EXPECT_EQ(Chosen(u"g.dot"), "C:\\Program Files\\QRD\\Zorix\\Sablony\\g.dot");
  EXPECT_EQ(Chosen(u"f.dot"), "Neplatný název šablony !");
  for (const TextView folder : {u"C:\\Sablony", u"C:\\Sablony\\"}) {
    computer.registry.Write(RegistryHive::kLocalMachine, u"SOFTWARE\\QRD\\Zorix\\Instalace", u"sablony", Text(folder));
    EXPECT_EQ(Chosen(u"f.dot"), "C:\\Sablony\\f.dot");
  }
  computer.registry.Write(RegistryHive::kLocalMachine, u"SOFTWARE\\QRD\\Zorix\\Instalace", u"sablony", Text());
  computer.files.Put(u"g.dot", "");  // in the current folder
  EXPECT_EQ(Chosen(u"g.dot"), "Neplatný název šablony !");
  computer.files.Put(u"\\g.dot", "");
  EXPECT_EQ(Chosen(u"g.dot"), "\\g.dot");
  EXPECT_TRUE(lists.empty());
}

TEST_F(TemplateChoiceTest, Lists) {
  arguments.rsZorApl = u"FAK";
  EXPECT_EQ(Chosen(u"  "), "C:\\z.dot");
  arguments.rbAdmin = arguments.rbSupply = true;
  arguments.rsListCaption = u"Výběr";
  EXPECT_EQ(Chosen(u"x [ Faktury ] y]", ApplOffice::MSExcel), "C:\\z.dot");
  answer.clear();
  EXPECT_EQ(Chosen(u"]C:\\[Dopisy"), "nothing");
  EXPECT_EQ(lists, (std::vector<std::string>{"FAK|||1", "FAK|Faktury|Výběr|2|admin|supply",
                                             "FAK|Dopisy|Výběr|1|admin|supply"}));
  context.templateList = nullptr;
  EXPECT_EQ(Chosen(u""), "not supported: TemplateList");
}

}  // namespace
}  // namespace zorkanca::testing
