// Names of bookmarks in the copies of a merge.
#include "word/merge/unique_numbers.h"

#include <set>

#include "support/word_parts.h"

namespace zorkanca::testing {
namespace {

std::string Bookmarks(const std::vector<std::string>& names) {
  std::string xml;
  for (const std::string& name : names) xml += "<w:bookmarkStart w:id=\"1\" w:name=\"" + name + "\"/>";
  return xml;
}

TEST(UniqueNumbers, NameTheBookmarksOfCopies) {
  const std::string a38(38, 'a');
  std::string czech;
  for (int i = 0; i < 40; ++i) czech += "Å";  // 80 bytes
  struct Row {
    std::vector<std::string> names;
    std::vector<std::string> second;  // their names in the second copy
  };
  const Row rows[] = {
      {{"Zde"}, {"Zde_2"}},
      {{a38 + "b1", a38 + "b2"}, {std::string(32, 'a') + "_2", std::string(30, 'a') + "_a_2"}},
      {{czech}, {czech.substr(0, 64) + "_2"}},
      {{"Text", "Text_2", "text_17"}, {"Text_a_2", "Text_2_2", "text_17_2"}},
  };
  for (const Row& row : rows) {
    pugi::xml_document tree = ParseXml("<x xmlns:w=\"w\">" + Bookmarks(row.names) + "</x>", {"f", "p"});
    word::UniqueNumbers numbers;
    numbers.Gather(tree);
    numbers.NameBookmarks();
    for (std::size_t i = 0; i < row.names.size(); ++i) {
      const auto step = numbers.StepForName(row.names[i]);
      ASSERT_TRUE(step);
      EXPECT_EQ(step->name, row.names[i]);
      EXPECT_EQ(step->stem + "_2", row.second[i]);
      EXPECT_EQ(numbers.StepForName(ToUtf8(UpperCase(FromUtf8(row.names[i]))))->stem, step->stem);
    }
    EXPECT_FALSE(numbers.StepForName("jinde"));
  }
}

TEST(UniqueNumbers, KeepManyLongNamesApart) {
  std::vector<std::string> names;
  for (int i = 0; i < 3000; ++i) names.push_back(std::string(34, 'x') + std::to_string(1000 + i));
  pugi::xml_document tree = ParseXml("<x xmlns:w=\"w\">" + Bookmarks(names) + "</x>", {"f", "p"});
  word::UniqueNumbers numbers;
  numbers.Gather(tree);
  numbers.NameBookmarks();
  std::set<std::string> stems;
  for (const std::string& name : names) {
    const std::string stem = numbers.StepForName(name)->stem;
    EXPECT_LE(stem.size(), 32u);
    stems.insert(stem);
  }
  EXPECT_EQ(stems.size(), names.size());
}

TEST(UniqueNumbers, CoverTheBookmarksOfNotesAndLeaveThoseOfHeaders) {
  const std::string mark = "<w:bookmarkStart w:id=\"1\" w:name=\"zde\"/><w:bookmarkEnd w:id=\"1\"/>";
  const std::string body = P(F("MERGEFIELD A") + "<w:r><w:footnoteReference w:id=\"2\"/></w:r>") +
                           "<w:sectPr><w:headerReference r:id=\"rId2\"/></w:sectPr>";
  WordFixture bench;
  const auto merged = bench.Merge(
      {body, {{"footnotes", "<w:footnote w:id=\"2\">" + P(mark) + "</w:footnote>"}, {"header", P(mark + R("x"))}}},
      "A\r\n1\r\n2\r\n", MainDocumentType::kFormLetters);
  const Package saved = bench.Saved(*merged);
  const std::string notes = saved.ReadPart("/word/footnotes.xml");
  for (const char* once : {"w:id=\"1\" w:name=\"zde\"", "w:id=\"2\" w:name=\"zde_2\"", "bookmarkEnd w:id=\"2\""}) {
    EXPECT_EQ(CountOf(notes, once), 1u) << once << notes;
  }
  const std::vector<std::string> parts = saved.PartNames();  // one header serves all copies
  EXPECT_EQ(std::count_if(parts.begin(), parts.end(), [](const auto& n) { return n.starts_with("/word/header"); }), 1);
}

}  // namespace
}  // namespace zorkanca::testing
