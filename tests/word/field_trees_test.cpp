// Fields in trees: folded into elements of their own, and their codes taken apart.
#include <gtest/gtest.h>

#include "support/short_word_xml.h"
#include "support/text_support.h"
#include "word/fields/field_code.h"
#include "word/fields/field_fold.h"

namespace zorkanca::testing {
namespace {

using namespace word;

TEST(WordFieldTrees, FoldEachFieldThatClosesInItsContainer) {
  const std::pair<const char*, const char*> rows[] = {
      {"<p>(a)</p>", "<p>(a)</p>"},
      {"<p>[b]{ PAGE }[s](1)[e]</p>", "<p><zk:field type=\"PAGE\">[b]{ PAGE }[s](1)[e]</zk:field></p>"},
      {"<p>[b]{page}[e](x)</p>", "<p><zk:field type=\"PAGE\">[b]{page}[e]</zk:field>(x)</p>"},
      {"<p>[b]{ME}{RGEFIELD A}[e]</p>", "<p><zk:field type=\"MERGEFIELD\">[b]{ME}{RGEFIELD A}[e]</zk:field></p>"},
      {"<p><fldSimple instr=\"PAGE\">(1)</fldSimple></p>",
       "<p><zk:field type=\"PAGE\">[b]{PAGE}[s](1)[e]</zk:field></p>"},
      {"<p>[b]{IF }[b]{PAGE}[s](1)[e]{ = 1}[e]</p>",
       "<p><zk:field type=\"IF\">[b]{IF }<zk:field type=\"PAGE\">[b]{PAGE}[s](1)[e]</zk:field>{ = "
       "1}[e]</zk:field></p>"},
      {"<p>[b]{PAGE}(x)</p>", "<p>[b]{PAGE}(x)</p>"},
      {"<p>(x)[e][b]{PAGE}[e]</p>", "<p>(x)[e]<zk:field type=\"PAGE\">[b]{PAGE}[e]</zk:field></p>"},
      {"<p>[b]{PAGE}<hyperlink anchor=\"a\">[e]</hyperlink></p>",
       "<p><zk:field type=\"PAGE\">[b]{PAGE}[e]</zk:field></p>"},  // what its ends stand in is opened
      {"<p>[b]{PAGE}[s](1)</p><p>(2)[e]</p>", "<p>[b]{PAGE}[s](1)</p><p>(2)[e]</p>"},  // not evaluated, spans
      {"<tbl><tr><tc><p>[b]{PAGE}[e]</p></tc></tr></tbl>",
       "<tbl><tr><tc><p><zk:field type=\"PAGE\">[b]{PAGE}[e]</zk:field></p></tc></tr></tbl>"},
      {"<p><r><rPr><b/></rPr><fldChar fldCharType=\"begin\" fldLock=\"1\"/></r>{PAGE}[e]</p>",
       "<p><zk:field type=\"PAGE\" locked=\"1\"><r><rPr><b/></rPr><fldChar fldCharType=\"begin\" fldLock=\"1\"/></r>"
       "{PAGE}[e]</zk:field></p>"},
  };
  for (const auto& [before, after] : rows) {
    const pugi::xml_document document = ShortXmlTree(before);
    FoldFields(document.document_element());
    EXPECT_EQ(InsideOf(document), after) << before;
  }
}

TEST(WordFieldTrees, FoldEvaluatedFieldsOverParagraphs) {
  const std::pair<const char*, const char*> rows[] = {
      {"<p>(x)[b]{IF 1 = 1 \"a}</p><p><pPr><jc val=\"left\"/></pPr>{b\"}[e](y)</p>",
       "<p>(x)<zk:field type=\"IF\">[b]{IF 1 = 1 \"a}<zk:para><pPr><jc "
       "val=\"left\"/></pPr></zk:para>{b\"}[e]</zk:field>"
       "(y)</p>"},
      {"<p>[b]{IF 1 = 1 \"}</p><tbl><tr><tc><p>(t)</p></tc></tr></tbl><p>{\"}[e]</p>",
       "<p><zk:field type=\"IF\">[b]{IF 1 = 1 \"}<zk:block><tbl><tr><tc><p>(t)</p></tc></tr></tbl></zk:block><zk:open/>"
       "{\"}[e]</zk:field></p>"},
  };
  for (const auto& [before, after] : rows) {
    const pugi::xml_document document = ShortXmlTree(before);
    FoldFields(document.document_element());
    EXPECT_EQ(InsideOf(document), after) << before;
  }
}

TEST(WordFieldTrees, GiveRunsWithFieldCharactersOneEach) {
  const std::pair<const char*, const char*> rows[] = {
      {"<p><r><fldChar fldCharType=\"begin\"/><instrText>PAGE</instrText><fldChar fldCharType=\"end\"/></r></p>",
       "<p>[b]{PAGE}[e]</p>"},
      {"<p><r><rPr><b/></rPr><t>a</t><fldChar fldCharType=\"begin\"/></r></p>",
       "<p><r><rPr><b/></rPr><t>a</t></r><r><rPr><b/></rPr><fldChar fldCharType=\"begin\"/></r></p>"},
      {"<p><r><t>a</t><tab/></r>[b]</p>", "<p><r><t>a</t><tab/></r>[b]</p>"},
  };
  for (const auto& [before, after] : rows) {
    const pugi::xml_document document = ShortXmlTree(before);
    SplitFieldRuns(document.document_element());
    EXPECT_EQ(InsideOf(document), after) << before;
  }
}

// Arguments with "|" behind each, quoted ones in quotes, switches and operators as they are; "#" is a field inside.
std::string ShownTokens(const FoldedField& field, bool comparison) {
  std::string shown;
  for (const CodeToken& token : TokensOf(field, comparison)) {
    Text text;
    for (const CodePiece& piece : token.pieces) text += piece.text.empty() ? Text(u"#") : piece.text;
    if (token.kind == CodeToken::Kind::kSwitch) text = u"\\" + text;
    if (token.quoted) text = u"\"" + text + u"\"";
    shown += Shown(text) + (token.kind == CodeToken::Kind::kOperator ? "^" : "|");
  }
  return shown;
}

TEST(WordFieldTrees, TakeCodesApart) {
  struct Row {
    const char* code;
    bool comparison;
    const char* tokens;
  };
  const Row rows[] = {
      {R"({ PAGE })", false, R"(PAGE|)"},
      {R"({MERGEFIELD A \* Upper})", false, R"(MERGEFIELD|A|\*|Upper|)"},
      {R"({MERGEFIELD A \b"x y"\f z})", false, R"(MERGEFIELD|A|\b|"x y"|\f|z|)"},
      {R"({MERGE}{FIELD }{A})", false, R"(MERGEFIELD|A|)"},
      {R"({X "a \"b\" c"})", false, R"(X|"a "b" c"|)"},
      {R"({X "a\\b" c\\d})", false, R"(X|"a\b"|c\d|)"},
      {R"({X "never ends})", false, R"(X|"never ends"|)"},
      {R"({X "" "b"})", false, R"(X|""|"b"|)"},
      {R"({X „a“ “b”})", false, R"(X|"a"|"b"|)"},
      {R"({X "„a“"})", false, R"(X|"„a“"|)"},
      {R"({X a=b})", false, R"(X|a=b|)"},
      {R"({IF a=b})", true, R"(IF|a|=^b|)"},
      {R"({IF a&lt;&gt;"b"})", true, R"(IF|a|<>^"b"|)"},
      {R"({IF "a=b" &gt;= c})", true, R"(IF|"a=b"|>=^c|)"},
      {R"({IF }[b]{PAGE}[s](1)[e]{ = 1})", true, R"(IF|#|=^1|)"},
      {R"({IF x}[b]{PAGE}[s](1)[e]{y = "a }[b]{PAGE}[e]{ b"})", true, R"(IF|x#y|=^"a # b"|)"},
      {R"({X a}<r><tab/></r>{b})", false, R"(X|a|b|)"},
      {R"(<ins id="1">{X a}</ins><hyperlink anchor="h">{ b}</hyperlink>)", false, R"(X|a|b|)"},
  };
  for (const Row& row : rows) {
    const pugi::xml_document document = ShortXmlTree(std::string("<p>[b]") + row.code + "[e]</p>");
    FoldFields(document.document_element());
    const pugi::xml_node field = document.document_element().first_child().first_child();
    EXPECT_EQ(ShownTokens(FoldedField(field), row.comparison), row.tokens) << row.code;
  }
}

}  // namespace
}  // namespace zorkanca::testing
