#include "templates/supply_file.h"

#include <gtest/gtest.h>

#include "support/template_lists.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

constexpr TextView kPath = u"C:\\Temp\\ZorSabl.txt";
constexpr TextView kLog = u"C:\\Temp\\Suite\\Log\\ZorixLog_2026-11-16.txt";

std::string InCodePage(TextView text) {
  std::string bytes;
  CodePage::Get(1250).AppendEncoded(bytes, text);
  return bytes;
}

// What the file has for a list of Word templates of A1, one "line name;description;id;folder " each.
std::string Supplied(TemplatePlatform& computer, std::string bytes, TextView listName = kDefaultListName) {
  computer.files.Put(kPath, std::move(bytes));
  SupplyTarget target;
  target.list.ZorAplName = u"A1";
  target.list.Typ = listName;
  target.application = ApplOffice::MSWord;
  target.defaultPath = u"C:\\D\\";
  std::string all;
  for (const SuppliedTemplate& each : ReadSupplyFile(computer.platform, kPath, target)) {
    all += std::to_string(each.line) + " " + ToUtf8(each.fileName) + ";" + ToUtf8(each.description) + ";" +
           std::to_string(each.id) + ";" + ToUtf8(each.folder) + " ";
  }
  return all;
}

TEST(SupplyFile, Lines) {
  const struct {
    TextView line;
    TextView list;
    std::string_view supplied;
    std::string_view logged;  // "" when the line is no error
  } rows[] = {
      {u"A1|default|faktura|Faktura|12|", kDefaultListName, "1 faktura.dot;Faktura;12;C:\\D\\A1 ", ""},
      {u"a1| Výchozi |faktura.dot|Žluť| 12,5 ks|zbytek|", kDefaultListName, "1 faktura.dot;Žluť;12;C:\\D\\A1 ", ""},
      {u"A1|(VÝCHOZÍ)|FAKTURA|F|x|", kDefaultListName, "1 FAKTURA.dot;F;0;C:\\D\\A1 ", ""},
      {u"A1|Export|list|L|-1|", u"export", "1 list.dot;L;-1;C:\\D\\A1\\export ", ""},
      {u"A1| Export|list|L|-1|", u"export", "", ""},
      {u"A1|default|list|L|-1|", u"export", "", ""},
      {u"A2|default|faktura|Faktura|12|", kDefaultListName, "", ""},
      {u"A1|default|chybi|Faktura|12|", kDefaultListName, "", ""},
      {u"A1|default|faktura.xlt|Faktura|12|", kDefaultListName, "", ""},
      {u"A1|default|faktura|Faktura|12", kDefaultListName, "", "pěti údajů"},
      {u"A1|default|faktura|Faktura|2147483648|", kDefaultListName, "", "Overflow"},
      {u"A1|default|faktura|Faktura|1e999|", kDefaultListName, "", "Overflow"},
      {u"  ", kDefaultListName, "", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(Shown(row.line));
    TemplatePlatform computer;
    computer.files.Put(u"C:\\D\\A1\\faktura.dot", "");
    computer.files.Put(u"C:\\D\\A1\\Export\\list.dot", "");
    EXPECT_EQ(Supplied(computer, InCodePage(row.line), row.list), row.supplied);
    const auto log = computer.files.Bytes(kLog);
    EXPECT_EQ(log.has_value(), !row.logged.empty());
    if (log) {
      EXPECT_NE(log->find("1 byl p"), std::string::npos) << *log;
      EXPECT_NE(log->find(InCodePage(FromUtf8(row.logged))), std::string::npos) << *log;
    }
  }
}

TEST(SupplyFile, ABadLineCostsOnlyItself) {
  TemplatePlatform computer;
  computer.files.Put(u"C:\\D\\A1\\faktura.dot", "");
  EXPECT_EQ(Supplied(computer, "nonsense\r\n\r\nA1||faktura|F|1|\nA1||faktura|G|2|"),
            "3 faktura.dot;F;1;C:\\D\\A1 4 faktura.dot;G;2;C:\\D\\A1 ");
}

TEST(SupplyFile, UnicodeIsRecognised) {
  const TextView text = u"A1|výchozí|faktura|Příliš žluť|1|\r\n";
  std::string utf16("\xFF\xFE");
  for (const char16_t unit : text) {
    utf16 += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
  }
  TemplatePlatform computer;
  computer.files.Put(u"C:\\D\\A1\\faktura.dot", "");
  for (const std::string& bytes : {InCodePage(text), ToUtf8(text), "\xEF\xBB\xBF" + ToUtf8(text), utf16}) {
    EXPECT_EQ(Supplied(computer, bytes), "1 faktura.dot;Příliš žluť;1;C:\\D\\A1 ");
  }
  EXPECT_EQ(ErrorOf([&] { Supplied(computer, utf16.substr(2)); }).number(), 13) << "no mark: not to be guessed";
}

}  // namespace
}  // namespace zorkanca::testing
