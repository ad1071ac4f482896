// References to bookmarks in text that only one copy keeps.
#include "support/word_parts.h"

namespace zorkanca::testing {
namespace {

TEST(LostBookmarks, AreReferredToInTheCopyThatKeptThem) {
  const std::string mark = "<w:bookmarkStart w:id=\"1\" w:name=\"Zde\"/>";
  const std::string markEnd = "<w:bookmarkEnd w:id=\"1\"/>";
  const std::string reference =
      F("PAGEREF Zde \\h", "1") + "<w:hyperlink w:anchor=\"Zde\">" + R("x") + "</w:hyperlink>";
  const std::string body = P(mark + R("H") + R("h") + markEnd) + P(F("MERGEFIELD A") + reference);  // 3 and 4 units
  struct Row {
    std::vector<std::pair<int, int>> deleted;  // from behind
    std::vector<std::pair<const char*, std::size_t>> counts;
    bool warns;
  };
  const Row rows[] = {
      {{{14, 17}, {7, 10}}, {{"PAGEREF Zde \\h", 3}, {"w:anchor=\"Zde\"", 3}, {"w:name=\"Zde", 1}}, false},
      {{{7, 10}, {0, 3}}, {{"PAGEREF Zde_3 \\h", 3}, {"w:anchor=\"Zde_3\"", 3}, {"w:name=\"Zde", 1}}, false},
      {{{14, 17}, {7, 10}, {0, 3}},
       {{"PAGEREF Zde \\h", 1}, {"PAGEREF Zde_2 \\h", 1}, {"PAGEREF Zde_3 \\h", 1}, {"w:name=\"Zde", 0}},
       true},
      {{{7, 8}}, {{"PAGEREF Zde_2 \\h", 1}, {"w:name=\"Zde", 3}}, false},  // a part of it is not all
  };
  for (const Row& row : rows) {
    WordFixture bench;
    const auto merged = bench.Merge({.body = body}, "A\r\n1\r\n2\r\n3\r\n", MainDocumentType::kCatalog);
    ASSERT_EQ(merged->Content()->End(), 21);
    for (const auto& [start, end] : row.deleted) merged->Range(start, end)->Delete();
    const std::string saved = bench.SavedBody(*merged);
    for (const auto& [part, count] : row.counts) EXPECT_EQ(CountOf(saved, part), count) << part << "\n" << saved;
    EXPECT_EQ(CountOf(saved, "bookmarkStart"), CountOf(saved, "bookmarkEnd"));
    EXPECT_EQ(CountOf(bench.warnings, "No copy kept the text of the bookmark Zde"), row.warns ? 1u : 0u);
  }
}

}  // namespace
}  // namespace zorkanca::testing
