// Results of form fields and what they become in the document.
#include "support/short_word_xml.h"
#include "support/word_parts.h"

namespace zorkanca::testing {
namespace {

std::string FormField(const std::string& data, const std::string& code, const std::string& result) {
  return "<p><r><fldChar fldCharType=\"begin\"><ffData><name val=\"F\"/>" + data + "</ffData></fldChar></r>{" + code +
         "}[s]" + result + "[e]</p>";
}

std::string Filled(WordFixture& bench, const std::string& field, const std::string& result) {
  const auto document = bench.Add({.body = FromShortXml(field)});
  document->FormFieldResult(u"F", FromUtf8(result));
  const std::string shown = ToUtf8(document->FormFieldResult(u"F"));
  const std::string body = ToShortXml(bench.SavedBody(*document));
  document->Close(false);
  const std::size_t data = body.find("<name val=\"F\"/>") + 15;
  const std::size_t text = body.find("[s]");
  return shown + " | " + body.substr(data, body.find("</ffData>") - data) + " | " +
         body.substr(text + 3, body.find("[e]") - text - 3);
}

TEST(WordFormResults, TickCheckBoxes) {
  struct Row {
    const char* box;
    const char* result;
    const char* filled;
  };
  const Row rows[] = {
      {"<default val=\"0\"/>", "1", "1 | <checkBox><default val=\"0\"/><checked val=\"1\"/></checkBox> | "},
      {"<default val=\"0\"/>", "-1", "1 | <checkBox><default val=\"0\"/><checked val=\"1\"/></checkBox> | "},
      {"<default val=\"0\"/>", "TRUE", "1 | <checkBox><default val=\"0\"/><checked val=\"1\"/></checkBox> | "},
      {"<default val=\"1\"/>", "0", "0 | <checkBox><default val=\"1\"/><checked val=\"0\"/></checkBox> | "},
      {"<default val=\"1\"/>", "false", "0 | <checkBox><default val=\"1\"/><checked val=\"0\"/></checkBox> | "},
      {"<default val=\"1\"/>", "", "0 | <checkBox><default val=\"1\"/><checked val=\"0\"/></checkBox> | "},
      {"<checked/>", "0", "0 | <checkBox><checked val=\"0\"/></checkBox> | "},
  };
  WordFixture bench;
  for (const Row& row : rows) {
    const std::string field = FormField(std::string("<checkBox>") + row.box + "</checkBox>", "FORMCHECKBOX", "");
    EXPECT_EQ(Filled(bench, field, row.result), row.filled) << row.result;
  }
  for (const char* refused : {"2", "ano", "-0", " 1", "+1"}) {
    const auto document = bench.Add({.body = FromShortXml(FormField("<checkBox/>", "FORMCHECKBOX", ""))});
    EXPECT_EQ(ErrorOf([&] { document->FormFieldResult(u"F", FromUtf8(refused)); }).number(), 5) << refused;
    EXPECT_EQ(document->FormFieldResult(u"F"), u"0");
  }
}

TEST(WordFormResults, FollowTheFormatOfTheirField) {
  struct Row {
    const char* type;
    const char* format;
    const char* result;
    const char* shown;
  };
  const Row rows[] = {
      {"regular", "", "žába", "žába"},
      {"regular", "UPPERCASE", "žába 1", "ŽÁBA 1"},
      {"regular", "uppercase", "žába", "ŽÁBA"},
      {"regular", "LOWERCASE", "Žába", "žába"},
      {"regular", "FIRST CAPITAL", "žába v TRÁVĚ", "Žába v TRÁVĚ"},
      {"regular", "TITLE CASE", "žába v trávě", "Žába V Trávě"},
      {"regular", "0,00", "5", "5"},  // no such format of texts
      {"number", "0,00", "5", "5,00"},
      {"number", "0,00", "1 234,567", "1234,57"},
      {"number", "0,00", "pět", "pět"},
      {"number", "# ##0,00 Kč", "1234,5", "1\u00A0234,50 Kč"},
      {"number", "", "1 234", "1 234"},
      {"date", "d. MMMM yyyy", "7.3.2024", "7. března 2024"},
      {"date", "dd.MM.yy", "7.3.2024", "07.03.24"},
      {"date", "d.M.yyyy", "zítra", "zítra"},
      {"date", "d.M.yyyy", "", ""},
  };
  WordFixture bench;
  for (const Row& row : rows) {
    const std::string input =
        std::string("<textInput><type val=\"") + row.type + "\"/><format val=\"" + row.format + "\"/></textInput>";
    const auto document = bench.Add({.body = FromShortXml(FormField(input, "FORMTEXT", "(x)"))});
    document->FormFieldResult(u"f", FromUtf8(row.result));
    EXPECT_EQ(Shown(document->FormFieldResult(u"F")), row.shown) << row.type << " " << row.format;
    document->Close(false);
  }
}

TEST(WordFormResults, StandInTheFormatOfTheOldOnes) {
  const std::string bold = "<r><rPr><b/></rPr><t>";
  const std::pair<std::string, std::string> rows[] = {
      {"(old)", "<r><t>n</t></r>"},
      {"(o)(l)(d)", "<r><t>n</t></r>"},
      {bold + "old</t></r>", bold + "n</t></r>"},
      {bold + "o</t></r>(ld)", bold + "n</t></r>"},
      {"", "<r><t>n</t></r>"},
      {"<r><t>a</t><br/><t>b</t></r>", "<r><t>n</t></r>"},
      {"<bookmarkStart id=\"1\" name=\"z\"/>(old)<bookmarkEnd id=\"1\"/>",
       "<r><t>n</t></r><bookmarkStart id=\"1\" name=\"z\"/><bookmarkEnd id=\"1\"/>"},
  };
  WordFixture bench;
  for (const auto& [old, filled] : rows) {
    EXPECT_EQ(Filled(bench, FormField("<textInput/>", "FORMTEXT", old), "n"),
              "n | <textInput/> | " + ToShortXml(filled))
        << old;
  }
  EXPECT_EQ(Filled(bench, FormField("<textInput/>", "FORMTEXT", "(old)"), "a\r\nb\tc & d"),
            "a\vb\tc & d | <textInput/> | <r><t>a</t><br/><t>b</t><tab/><t>c &amp; d</t></r>");
}

TEST(WordFormResults, ChooseEntriesOfLists) {
  const std::string entries = "<listEntry val=\"ne\"/><listEntry val=\"ano\"/><listEntry val=\"snad\"/></ddList>";
  const std::pair<std::string, std::pair<const char*, const char*>> rows[] = {
      {"<ddList>", {"ano", "ano | <ddList><result val=\"1\"/>"}},
      {"<ddList><result val=\"2\"/>", {"ne", "ne | <ddList><result val=\"0\"/>"}},
      {"<ddList><default val=\"2\"/>", {"ano", "ano | <ddList><result val=\"1\"/><default val=\"2\"/>"}},
  };
  WordFixture bench;
  for (const auto& [list, choice] : rows) {
    EXPECT_EQ(Filled(bench, FormField(list + entries, "FORMDROPDOWN", ""), choice.first),
              choice.second + entries + " | ")
        << list;
  }
  const auto document =
      bench.Add({.body = FromShortXml(FormField("<ddList><default val=\"2\"/>" + entries, "FORMDROPDOWN", ""))});
  EXPECT_EQ(Shown(document->FormFieldResult(u"F")), "snad");
  EXPECT_EQ(ErrorOf([&] { document->FormFieldResult(u"F", u"Ano"); }).number(), 5);  // case counts
}

}  // namespace
}  // namespace zorkanca::testing
