// Texts of documents: positions, search, deletion and replacement, before and after a merge.
#include <gtest/gtest.h>

#include <random>

#include "support/word_parts.h"

namespace zorkanca::testing {
namespace {

std::string TextOf(WordDocument& document) {
  return Shown(document.Content()->Text());
}

// Finds from a position on (or backwards up to it) and deletes; gives the place, or -1.
std::int32_t FindAndDelete(WordDocument& document, TextView marker, std::int32_t position, bool forward = true) {
  const auto range = forward ? document.Range(position, document.Content()->End()) : document.Range(0, position);
  if (!range->Find({.FindText = Text(marker), .MatchCase = true, .Forward = forward})) return -1;
  const std::int32_t start = range->Start();
  range->Delete();
  return start;
}

// What the export does with the repeated blocks of a catalogue.
void KeepFirstHeadingAndLastClosing(WordDocument& document) {
  std::int32_t start = FindAndDelete(document, u"{<h}", 0);
  if (start >= 0) FindAndDelete(document, u"{h>}", start);
  for (;;) {
    const auto block = document.Content();
    if (!block->Find({.FindText = u"{<h}", .MatchCase = true})) break;
    const auto end = document.Range(block->End(), document.Content()->End());
    if (!end->Find({.FindText = u"{h>}", .MatchCase = true})) break;
    document.Range(block->Start(), end->End())->Delete();
  }
  std::int32_t end = FindAndDelete(document, u"{p>}", document.Content()->End(), false);
  if (end >= 0) FindAndDelete(document, u"{<p}", end, false);
  for (;;) {
    const auto block = document.Content();
    if (!block->Find({.FindText = u"{p>}", .MatchCase = true, .Forward = false})) break;
    const auto begin = document.Range(0, block->Start());
    if (!begin->Find({.FindText = u"{<p}", .MatchCase = true, .Forward = false})) break;
    document.Range(begin->Start(), block->End())->Delete();
  }
}

TEST(WordText, CountsOnePositionForEachUnitAndMark) {
  WordFixture bench;
  const std::string body =
      P(R("a\xF0\x9F\x98\x80") + F("PAGE", "12") + "<w:r><w:tab/><w:br/><w:br w:type=\"page\"/></w:r>" +
        "<w:del w:id=\"1\">" + R("pryč") + "</w:del>") +
      "<w:tbl><w:tr>" + Cell(P(R("b")) + P("")) + "</w:tr></w:tbl>" + P("<w:pPr><w:sectPr/></w:pPr>") + P(R("c"));
  const auto document = bench.Add({.body = body});
  const auto all = document->Content();
  EXPECT_EQ(Shown(all->Text()),
            "a\xF0\x9F\x98\x80"
            "12\\t\v\f\\rb\\r\\r\a\\r\a\fc\\r");
  EXPECT_EQ(all->End(), 16);
  EXPECT_EQ(Shown(document->Range(9, 13)->Text()), "b\\r\\r\a\\r\a");
  EXPECT_EQ(ErrorOf([&] { document->Range(3, 17); }).number(), 4608);
}

TEST(WordText, FindsAndDeletesMarkersSplitOverRuns) {
  WordFixture bench;
  const auto document = bench.Add({.body = P(R("a{&lt;") + "<w:proofErr w:type=\"x\"/>" + R("A") + R("&gt;}b")) +
                                           P(R("{&lt;") + R("D&gt;}")) + P(R("konec"))});
  EXPECT_EQ(FindAndDelete(*document, u"{<A>}", 0), 1);
  EXPECT_EQ(FindAndDelete(*document, u"{<D>}", 0), 3);  // its paragraph goes with it
  EXPECT_EQ(FindAndDelete(*document, u"{<S>}", 0), -1);
  EXPECT_EQ(TextOf(*document), "ab\\rkonec\\r");
  EXPECT_EQ(bench.SavedBody(*document), P("<w:r><w:t xml:space=\"preserve\">a</w:t></w:r>"
                                          "<w:proofErr w:type=\"x\"/>" +
                                          R("b")) +
                                            P(R("konec")));
}

TEST(WordText, DeletesWholeParagraphsRowsAndTablesButNoLoneCell) {
  const std::string table =
      "<w:tbl><w:tr>" + Cell(P(R("ab"))) + Cell(P(R("cd"))) + "</w:tr><w:tr>" + Cell(P(R("e"))) + "</w:tr></w:tbl>";
  struct Row {
    std::int32_t start, end;
    const char* left;
  };
  // 0 "x" 1 mark, 2 "yz" 4 mark, 5 "ab" 7 cell, 8 "cd" 10 cell, 11 row, 12 "e" 13 cell, 14 row, 15 "k" 16 mark
  const Row rows[] = {
      {0, 1, "yz\\rab\\r\acd\\r\a\\r\ae\\r\a\\r\ak\\r"},    // all text of a paragraph
      {1, 3, "xz\\rab\\r\acd\\r\a\\r\ae\\r\a\\r\ak\\r"},    // joins two
      {0, 4, "ab\\r\acd\\r\a\\r\ae\\r\a\\r\ak\\r"},         // all text of two
      {5, 7, "x\\ryz\\r\\r\acd\\r\a\\r\ae\\r\a\\r\ak\\r"},  // all text of a cell
      {5, 15, "x\\ryz\\r\\r\a\\r\a\\r\a\\r\a\\r\ak\\r"},    // the table and nothing else: its cells are emptied
      {4, 15, "x\\ryzk\\r"},                                // the table and a mark before it
      {3, 12, "x\\ry\\re\\r\a\\r\ak\\r"},                   // the first row, from before the table on
      {6, 9, "x\\ryz\\ra\\r\ad\\r\a\\r\ae\\r\a\\r\ak\\r"},  // over the end of a cell
      {0, 17, "\\r"},                                       // everything
  };
  for (const Row& row : rows) {
    WordFixture bench;
    const auto document = bench.Add({.body = P(R("x")) + P(R("yz")) + table + P(R("k"))});
    document->Range(row.start, row.end)->Delete();
    EXPECT_EQ(TextOf(*document), row.left) << row.start << "-" << row.end;
    bench.Saved(*document);
  }
}

TEST(WordText, KeepsFieldsAndFloatingPicturesWhole) {
  WordFixture bench;
  const std::string floating = "<w:r><w:drawing><wp:anchor><wp:docPr id=\"1\"/></wp:anchor></w:drawing></w:r>";
  const auto document =
      bench.Add({.body = P(floating + R("{&lt;S&gt;}")) + P(R("a") + F("PAGE", "12") + R("b")) + P("")});
  FindAndDelete(*document, u"{<S>}", 0);
  document->Range(1, 4)->Delete();
  EXPECT_EQ(TextOf(*document), "\\rb\\r\\r");
  EXPECT_EQ(bench.SavedBody(*document), P(floating) + P(R("b")) + "<w:p/>");
}

TEST(WordText, SearchesAsTheObjectModelDoes) {
  WordFixture bench;
  const auto document = bench.Add({.body = P(R("«kód» a «Název»")) + P(R("«x")) + P(R("y» kód"))});
  const auto range = document->Content();
  EXPECT_TRUE(range->Find({.FindText = u"«*»", .MatchWildcards = true}));
  EXPECT_EQ(range->Text(), u"«kód»");
  EXPECT_TRUE(range->Find({.FindText = u"«*»", .MatchWildcards = true}));  // goes on behind the match
  EXPECT_EQ(range->Text(), u"«Název»");
  EXPECT_FALSE(range->Find({.FindText = u"«*»", .MatchWildcards = true}));  // not over the end of a paragraph
  EXPECT_TRUE(range->Find({.FindText = u"KÓD", .Wrap = 1}));
  EXPECT_EQ(range->Start(), 22);
  EXPECT_TRUE(range->Find({.FindText = u"kód", .ReplaceWith = u"č.\r\n1", .Replace = 2}));
  range->SetRange(0, 5);
  EXPECT_FALSE(range->Find({.FindText = u"Název"}));
  EXPECT_EQ(Shown(document->Content()->Text()), "«kód» a «Název»\\r«x\\ry» č.\v1\\r");
  for (const FindArguments& refused :
       {FindArguments{.FindText = u"^p"}, FindArguments{.FindText = u"a", .MatchWholeWord = true},
        FindArguments{.FindText = u"[a]", .MatchWildcards = true}, FindArguments{.FindText = u"a", .Format = true}}) {
    EXPECT_EQ(ErrorOf([&] { range->Find(refused); }).number(), 438) << Shown(refused.FindText);
  }
}

TEST(WordText, KeepsOneHeadingAndOneClosingOfACatalogue) {
  struct Row {
    std::string body;
    const char* text;
  };
  const std::string line = P(F("MERGEFIELD A"));
  const std::string table = "<w:tbl><w:tr>" + Cell(P(R("T"))) + "</w:tr></w:tbl>";
  const Row rows[] = {
      {P(R("{&lt;h}H{h&gt;}")) + line + P(R("{&lt;p}P{p&gt;}")), "H\\r1\\r2\\r3\\rP\\r"},
      {P(R("{&lt;h}")) + P(R("H")) + P(R("{h&gt;}")) + line + P(R("{&lt;p}")) + P(R("P")) + P(R("{p&gt;}")),
       "H\\r1\\r2\\r3\\rP\\r\\r"},  // the last paragraph stays
      {P(R("{&lt;h}H")) + P(R("{h&gt;}") + F("MERGEFIELD A") + R("{&lt;p}")) + P(R("P{p&gt;}")),
       "H\\r1\\r2\\r3\\rP\\r"},
      {P(R("{&lt;h}") + R("H")) + table + P(R("{h&gt;}")) + line, "H\\rT\\r\a\\r\a1\\r2\\r3\\r"},
      {line + "<w:tbl><w:tr>" + Cell(P(R("{&lt;p}"))) + Cell(P(R("P{p&gt;}"))) + "</w:tr></w:tbl>",
       "1\\r\\r\a\\r\a\\r\a2\\r\\r\a\\r\a\\r\a3\\r\\r\aP\\r\a\\r\a"},
  };
  for (const Row& row : rows) {
    WordFixture bench;
    const auto merged = bench.Merge({.body = row.body}, "A\r\n1\r\n2\r\n3\r\n", MainDocumentType::kCatalog);
    KeepFirstHeadingAndLastClosing(*merged);
    EXPECT_EQ(TextOf(*merged), row.text);
    bench.SavedBody(*merged);
  }
}

// The overlay of a merged document against the tree of the same document: any deletions give the same.
TEST(WordText, DeletesInMergedDocumentsAsInTrees) {
  const std::string table = "<w:tbl><w:tr>" + Cell(P(F("MERGEFIELD A"))) + Cell(P(R("c")) + P(R("d"))) +
                            "</w:tr><w:tr>" + Cell(P(R("e"))) + "</w:tr></w:tbl>";
  const std::string body = P(R("ab") + F("MERGEFIELD B")) + P("") + table + P(R("cd")) + P(R("e") + F("PAGE", "9"));
  std::mt19937 random(20240301);
  for (int round = 0; round < 150; ++round) {
    WordFixture bench;
    const auto type = round % 2 ? MainDocumentType::kCatalog : MainDocumentType::kFormLetters;
    const auto merged = bench.Merge({.body = body}, "A;B\r\n1;xy\r\n22;\r\n3;z\r\n", type);
    merged->SaveAs(bench.folder.TextPath("tree.docx"), WordSaveFormat::kDocumentXml);
    const auto tree = bench.Application()->OpenDocument({.FileName = bench.folder.TextPath("tree.docx")});
    std::string history;
    for (int i = 0; i < 4; ++i) {
      const std::int32_t length = merged->Content()->End();
      ASSERT_EQ(TextOf(*merged), TextOf(*tree)) << round << history;
      std::int32_t start = static_cast<std::int32_t>(random() % static_cast<unsigned>(length));
      std::int32_t end =
          std::min<std::int32_t>(length, start + static_cast<std::int32_t>(random() % (i == 3 ? 40 : 8)));
      history.append(" ").append(std::to_string(start)).append("-").append(std::to_string(end));
      merged->Range(start, end)->Delete();
      tree->Range(start, end)->Delete();
    }
    ASSERT_EQ(TextOf(*merged), TextOf(*tree)) << round << history;
    SCOPED_TRACE(history);
    bench.SavedBody(*merged);
  }
}

}  // namespace
}  // namespace zorkanca::testing
