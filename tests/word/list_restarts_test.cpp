// Lists of merged letters: the numbers that copies get, and where each begins.
#include "support/short_word_xml.h"
#include "support/word_parts.h"

namespace zorkanca::testing {
namespace {

const std::string kNumbered = "<lvl ilvl=\"0\"><start val=\"3\"/><numFmt val=\"decimal\"/></lvl>";
const std::string kBullets = "<lvl ilvl=\"0\"><numFmt val=\"bullet\"/></lvl>";

// The first `levels` overrides of the list of the second letter; "" when it has none of its own.
std::string SecondList(const std::string& abstract, const std::string& number, std::size_t levels) {
  const std::string numbering = "<abstractNum abstractNumId=\"7\">" + abstract + "</abstractNum><num numId=\"4\">" +
                                "<abstractNumId val=\"7\"/>" + number + "</num>";
  const std::string body = "<p><pPr><numPr><ilvl val=\"0\"/><numId val=\"4\"/></numPr></pPr>(x)</p>";
  WordFixture bench;
  const auto merged = bench.Merge({FromShortXml(body) + P(F("MERGEFIELD A")), {{"numbering", FromShortXml(numbering)}}},
                                  "A\r\n1\r\n2\r\n", MainDocumentType::kFormLetters);
  const std::string lists = ToShortXml(bench.Saved(*merged).ReadPart("/word/numbering.xml"));
  const std::string start = "<num numId=\"5\"><abstractNumId val=\"7\"/>";
  std::size_t at = lists.find(start);
  if (at == lists.npos) return "";
  at += start.size();
  std::size_t end = at;
  for (std::size_t level = 0; level < levels; ++level) end = lists.find("</lvlOverride>", end) + 14;
  return lists.substr(at, end - at);
}

TEST(WordListRestarts, BeginWhereTheListBegins) {
  struct Row {
    std::string abstract;
    const char* number;
    std::size_t levels;
    const char* overrides;
  };
  const Row rows[] = {
      {kNumbered, "", 1, "<lvlOverride ilvl=\"0\"><startOverride val=\"3\"/></lvlOverride>"},
      {kNumbered, "", 2,
       "<lvlOverride ilvl=\"0\"><startOverride val=\"3\"/></lvlOverride>"
       "<lvlOverride ilvl=\"1\"><startOverride val=\"0\"/></lvlOverride>"},
      // a start of the list's own goes before that of its kind
      {kNumbered, "<lvlOverride ilvl=\"0\"><startOverride val=\"9\"/></lvlOverride>", 1,
       "<lvlOverride ilvl=\"0\"><startOverride val=\"9\"/></lvlOverride>"},
      {kNumbered, "<lvlOverride ilvl=\"1\"><startOverride val=\"9\"/></lvlOverride>", 2,
       "<lvlOverride ilvl=\"1\"><startOverride val=\"9\"/></lvlOverride>"
       "<lvlOverride ilvl=\"0\"><startOverride val=\"3\"/></lvlOverride>"},
      {kBullets, "", 1, ""},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(SecondList(row.abstract, row.number, row.levels), row.overrides) << row.abstract << row.number;
  }
}

}  // namespace
}  // namespace zorkanca::testing
