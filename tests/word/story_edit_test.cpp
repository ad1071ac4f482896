// Trees before and after deletions and replacements, one line each.
#include "word/text/story_edit.h"

#include <gtest/gtest.h>

#include "support/short_word_xml.h"
#include "support/text_support.h"
#include "word/text/tree_story.h"

namespace zorkanca::testing {
namespace {

using namespace word;

std::string AfterDeletion(const char* body, Position start, Position end) {
  const pugi::xml_document document = ShortXmlTree(body);
  TreeStory(document.document_element(), [] {}).Delete({start, end});
  return InsideOf(document);
}

TEST(WordStoryEdit, DeletesRunsAndWhatBecomesEmpty) {
  struct Row {
    const char* body;
    Position start, end;
    const char* left;
  };
  const Row rows[] = {
      {"<p>(abc)</p>", 1, 2, "<p>(ac)</p>"},
      {"<p>(ab)(cd)</p>", 1, 3, "<p>(a)(d)</p>"},
      {"<p>(a)(b)(c)</p>", 1, 2, "<p>(a)(c)</p>"},
      {"<p><r><rPr><b/></rPr><t>b</t></r>(c)</p>", 0, 1, "<p>(c)</p>"},
      {"<p><r><t>a</t><tab/><t>b</t></r></p>", 1, 2, "<p><r><t>a</t><t>b</t></r></p>"},
      {"<p><r><t>a</t><br/></r>(b)</p>", 0, 2, "<p>(b)</p>"},
      {"<p>(a)<hyperlink anchor=\"x\">(b)</hyperlink>(c)</p>", 1, 2, "<p>(a)(c)</p>"},
      {"<p>(a)<hyperlink anchor=\"x\">(bc)</hyperlink></p>", 1, 2, "<p>(a)<hyperlink anchor=\"x\">(c)</hyperlink></p>"},
      {"<p>(a)<ins id=\"1\">(b)</ins>(c)</p>", 1, 2, "<p>(a)(c)</p>"},
      {"<p>(a)<sdt><sdtContent>(b)</sdtContent></sdt>(c)</p>", 1, 2, "<p>(a)(c)</p>"},
      {"<p>(a)<del id=\"1\"><r><delText>x</delText></r></del>(b)</p>", 0, 1,
       "<p><del id=\"1\"><r><delText>x</delText></r></del>(b)</p>"},
      {"<p>(a)<bookmarkStart id=\"1\" name=\"z\"/>(b)<bookmarkEnd id=\"1\"/>(c)</p>", 1, 2,
       "<p>(a)<bookmarkStart id=\"1\" name=\"z\"/><bookmarkEnd id=\"1\"/>(c)</p>"},
      {"<p>(\xF0\x9F\x98\x80z)</p>", 0, 2, "<p>(z)</p>"},
      {"<p>(a &amp; b)</p>", 0, 2, "<p>(&amp; b)</p>"},
  };
  for (const Row& row : rows) EXPECT_EQ(AfterDeletion(row.body, row.start, row.end), row.left) << row.body;
}

TEST(WordStoryEdit, DeletesFieldsOnlyWhole) {
  struct Row {
    const char* body;
    Position start, end;
    const char* left;
  };
  const Row rows[] = {
      {"<p>(a)[b]{PAGE}[s](12)[e](b)</p>", 1, 3, "<p>(a)(b)</p>"},
      {"<p>(a)[b]{PAGE}[s](12)[e](b)</p>", 0, 4, "<p/>"},
      {"<p>(a)[b]{PAGE}[s](12)[e](b)</p>", 0, 2, "<p>[b]{PAGE}[s](2)[e](b)</p>"},
      {"<p>(a)[b]{PAGE}[s](12)[e](b)</p>", 2, 4, "<p>(a)[b]{PAGE}[s](1)[e]</p>"},
      // a field without a result goes with both of its neighbours, and stays beside one of them
      {"<p>(a)[b]{SET x}[s][e](b)</p>", 0, 2, "<p/>"},
      {"<p>(a)[b]{SET x}[s][e](b)</p>", 0, 1, "<p>[b]{SET x}[s][e](b)</p>"},
      {"<p>(a)[b]{SET x}[s][e](b)</p>", 1, 2, "<p>(a)[b]{SET x}[s][e]</p>"},
      {"<p>(a)[b]{SET x}[e](b)</p>", 1, 2, "<p>(a)[b]{SET x}[e]</p>"},
      {"<p>[b]{SET x}[e](b)</p><p>(c)</p>", 0, 1, "<p>(c)</p>"},  // its paragraph goes whole
      // a field around another
      {"<p>(a)[b]{IF }[b]{X}[s](1)[e]{ = 1}[s](yes)[e](b)</p>", 1, 4, "<p>(a)(b)</p>"},
      {"<p>(a)[b]{QUOTE}[s](x)[b]{PAGE}[s](1)[e](y)[e](b)</p>", 2, 3, "<p>(a)[b]{QUOTE}[s](x)(y)[e](b)</p>"},
      // one that never ends is text
      {"<p>(a)[b](b)</p>", 1, 2, "<p>(a)[b]</p>"},
  };
  for (const Row& row : rows) EXPECT_EQ(AfterDeletion(row.body, row.start, row.end), row.left) << row.body;
}

TEST(WordStoryEdit, JoinsParagraphsIntoTheNext) {
  struct Row {
    const char* body;
    Position start, end;
    const char* left;
  };
  const Row rows[] = {
      {"<p><pPr><jc val=\"left\"/></pPr>(ab)</p><p><pPr><jc val=\"right\"/></pPr>(cd)</p>", 1, 4,
       "<p><pPr><jc val=\"right\"/></pPr>(a)(d)</p>"},
      {"<p>(a)</p><p>(b)</p>", 0, 2, "<p>(b)</p>"},
      {"<p>(a)</p><p>(b)</p>", 0, 1, "<p>(b)</p>"},      // all of its text: the mark goes too
      {"<p>(a)</p><p>(b)</p>", 2, 3, "<p>(a)</p><p/>"},  // but the story's last one stays
      {"<p>(a)<bookmarkStart id=\"1\" name=\"z\"/></p><p>(b)<bookmarkEnd id=\"1\"/></p>", 0, 1,
       "<p><bookmarkStart id=\"1\" name=\"z\"/>(b)<bookmarkEnd id=\"1\"/></p>"},
      {"<p>(a)</p><sdt><sdtContent><p>(b)</p></sdtContent></sdt>", 1, 2,
       "<sdt><sdtContent><p>(a)(b)</p></sdtContent></sdt>"},
      {"<p>(ab)</p><tbl><tr><tc><p>(c)</p></tc></tr></tbl><p>(d)</p>", 1, 3,
       "<p>(a)</p><tbl><tr><tc><p>(c)</p></tc></tr></tbl><p>(d)</p>"},  // nothing joins a table
      {"<p>(ab)</p><tbl><tr><tc><p>(c)</p></tc></tr></tbl><p>(d)</p>", 0, 3,
       "<tbl><tr><tc><p>(c)</p></tc></tr></tbl><p>(d)</p>"},
      {"<p>(a)</p><tbl><tr><tc><p>(c)</p></tc></tr><tr><tc><p>(d)</p></tc></tr></tbl><p>(e)</p>", 0, 5,
       "<tbl><tr><tc><p>(d)</p></tc></tr></tbl><p>(e)</p>"},
      {"<tbl><tr><tc><p>(c)</p></tc></tr></tbl><p>(d)</p>", 0, 4, "<p/>"},
  };
  for (const Row& row : rows) EXPECT_EQ(AfterDeletion(row.body, row.start, row.end), row.left) << row.body;
}

TEST(WordStoryEdit, ReplacesRangesInTheFormatOfTheirFirstUnit) {
  struct Row {
    const char* body;
    std::vector<Interval> ranges;
    TextView replacement;
    const char* left;
  };
  const Row rows[] = {
      {"<p>(abc)</p>", {{1, 2}}, u"XY", "<p>(aXYc)</p>"},
      {"<p>(abc)</p>", {{0, 1}, {2, 3}}, u"-", "<p>(-b-)</p>"},
      {"<p>(ab)<r><rPr><b/></rPr><t>cd</t></r></p>", {{1, 3}}, u"X", "<p>(aX)<r><rPr><b/></rPr><t>d</t></r></p>"},
      {"<p>(ab)(cd)(ef)</p>", {{1, 5}}, u"X", "<p>(aX)(f)</p>"},
      {"<p>(abc)</p>", {{1, 2}}, u"", "<p>(ac)</p>"},
      {"<p>(abc)</p>", {{0, 3}}, u"1\t2\r\n3", "<p><r><t>1</t><tab/><t>2</t><br/><t>3</t></r></p>"},
      {"<p>(abc)</p>", {{1, 2}}, u"<&>", "<p>(a&lt;&amp;&gt;c)</p>"},
      {"<p>[b]{MERGEFIELD A}[s](abc)[e]</p>", {{1, 2}}, u"X", "<p>(aXc)</p>"},
      {"<p>[b]{ mergefield A}[s](abc)[e]</p>", {{0, 3}}, u"X", "<p>(X)</p>"},
      {"<p>[b]{PAGE}[s](abc)[e]</p>", {{1, 2}}, u"X", "<p>[b]{PAGE}[s](aXc)[e]</p>"},
      {"<p><fldSimple instr=\"MERGEFIELD A\">(abc)</fldSimple></p>", {{1, 2}}, u"X", "<p>(aXc)</p>"},
      {"<p><fldSimple instr=\"PAGE\">(abc)</fldSimple></p>",
       {{1, 2}},
       u"X",
       "<p><fldSimple instr=\"PAGE\">(aXc)</fldSimple></p>"},
  };
  for (const Row& row : rows) {
    const pugi::xml_document document = ShortXmlTree(row.body);
    TreeStory(document.document_element(), [] {}).ReplaceAll(row.ranges, row.replacement);
    EXPECT_EQ(InsideOf(document), row.left) << row.body;
  }
}

TEST(WordStoryEdit, CountsTheUnitsOfAStory) {
  const std::pair<const char*, const char*> rows[] = {
      {"<p/>", "\\r"},
      {"<p>(a)<r><tab/><t>b</t></r></p>", "a\\tb\\r"},
      {"<p><r><br/><br type=\"page\"/><br type=\"column\"/><cr/></r></p>", "\v\f\x0E\v\\r"},
      {"<p><r><noBreakHyphen/><softHyphen/></r></p>", "\x1E\x1F\\r"},
      {"<p>[b]{PAGE}[s](1)[e]</p>", "1\\r"},
      {"<p>[b]{PAGE}[e](a)</p>", "a\\r"},
      {"<p>[b]{QUOTE }[b]{X}[s](y)[e][s](z)[e]</p>", "z\\r"},  // a result inside a code is code
      {"<p>[b](code)</p><p>(a)[e]</p>", "\\r"},
      {"<p>[b](open)</p><p>(a)</p>", "open\\ra\\r"},
      {"<p><ins id=\"1\">(a)</ins><del id=\"2\">(b)</del><moveFrom id=\"3\">(c)</moveFrom><moveTo "
       "id=\"4\">(d)</moveTo></p>",
       "ad\\r"},
      {"<p><pPr><sectPr/></pPr>(a)</p><p>(b)</p>", "a\fb\\r"},
      {"<tbl><tr><tc><p>(a)</p><p>(b)</p></tc><tc><p/></tc></tr></tbl><p/>", "a\\rb\\r\a\\r\a\\r\a\\r"},
      {"<tbl><tr><tc><tbl><tr><tc><p>(a)</p></tc></tr></tbl><p/></tc></tr></tbl><p/>", "a\\r\a\\r\a\\r\a\\r\a\\r"},
      {"<sdt><sdtContent><p>(a)</p></sdtContent></sdt><customXml><p>(b)</p></customXml>", "a\\rb\\r"},
      {"<tbl><sdt><sdtContent><tr><sdt><sdtContent><tc><p>(a)</p></tc></sdtContent></sdt><tc><p>(b)</p></tc></tr>"
       "</sdtContent></sdt><tr><tc><p>(c)</p></tc></tr></tbl><p/>",
       "a\\r\ab\\r\a\\r\ac\\r\a\\r\a\\r"},  // rows and cells in content controls
      {"<p>(a)<r><footnoteReference id=\"2\"/></r></p>", "a\x02\\r"},
  };
  for (const auto& [body, text] : rows) {
    const pugi::xml_document document = ShortXmlTree(body);
    EXPECT_EQ(Shown(ShownText(StoryMap(document.document_element()).text())), text) << body;
  }
}

}  // namespace
}  // namespace zorkanca::testing
