// How copies are put together: sections, headers, labels, numbers that must differ, lines that disappear.
#include "support/word_parts.h"

#include <gtest/gtest.h>

namespace zorkanca::testing {
namespace {

const char* const kThree = "A;B\r\n1;x\r\n2;\r\n3;y\r\n";

TEST(WordMerge, GivesEachLetterASectionOfItsOwn) {
  WordFixture bench;
  const std::string section = "<w:sectPr><w:type w:val=\"continuous\"/><w:pgSz w:w=\"100\"/></w:sectPr>";
  const auto merged =
      bench.Merge({.body = P(R("Dopis ") + F("MERGEFIELD A")) + section}, kThree, MainDocumentType::kFormLetters);
  EXPECT_EQ(Shown(merged->Content()->Text()), "Dopis 1\fDopis 2\fDopis 3\\r");
  const std::string whole =
      "<w:sectPr><w:type w:val=\"nextPage\"/><w:pgSz w:w=\"100\"/><w:pgNumType w:start=\"1\"/></w:sectPr>";
  const std::string body = bench.SavedBody(*merged);
  EXPECT_EQ(CountOf(body, "<w:pPr>" + whole + "</w:pPr>"), 2u) << body;
  EXPECT_TRUE(body.ends_with("</w:p>" + whole)) << body;
  merged->Close(false);

  const std::string table = "<w:tbl><w:tr>" + Cell(P(F("MERGEFIELD A"))) + "</w:tr></w:tbl>";
  const std::string two = P("<w:pPr><w:sectPr><w:cols/></w:sectPr></w:pPr>" + R("I")) + table + "<w:sectPr/>";
  const auto tables = bench.Merge({.body = two}, kThree, MainDocumentType::kEnvelopes);
  EXPECT_EQ(Shown(tables->Content()->Text()), "I\f1\\r\a\\r\a\fI\f2\\r\a\\r\a\fI\f3\\r\a\\r\a");
  EXPECT_EQ(CountOf(bench.SavedBody(*tables), "<w:sectPr"), 6u);
}

TEST(WordMerge, EndsWhenItIsCancelled) {
  const TemporaryFolder folder;
  bool cancelled = false;
  WordEngine engine(*FindLocale(u"cs-CZ"), {}, {}, [&] { return cancelled; });
  WriteWordFile(folder.Path("t.dotx"), {.body = P(F("MERGEFIELD A") + F("NEXTIF 1 = 2"))});
  folder.Write("data.txt", "A\r\n1\r\n2\r\n");
  const auto application = engine.StartWord();
  const auto main = application->AddDocument(folder.TextPath("t.dotx"), false);
  main->MailMerge().OpenDataSource({.Name = folder.TextPath("data.txt")});
  main->MailMerge().Execute(false);
  const auto merged = application->ActiveDocument();
  cancelled = true;
  EXPECT_EQ(ErrorOf([&] { main->MailMerge().Execute(false); }).number(), 18);
  EXPECT_EQ(application->DocumentCount(), 2);
  EXPECT_EQ(ErrorOf([&] { merged->SaveAs(folder.TextPath("x.docx"), WordSaveFormat::kDocumentXml); }).number(), 18);
  EXPECT_FALSE(folder.Has("x.docx"));
}

TEST(WordMerge, RunsCopiesOfACatalogueTogether) {
  WordFixture bench;
  const auto merged = bench.Merge({.body = P(F("MERGEFIELD A") + R("/") + F("MERGESEQ")) + "<w:sectPr/>"}, kThree,
                                  MainDocumentType::kCatalog);
  EXPECT_EQ(Shown(merged->Content()->Text()), "1/1\\r2/2\\r3/3\\r");
  EXPECT_EQ(CountOf(bench.SavedBody(*merged), "<w:sectPr"), 1u);
}

TEST(WordMerge, FillsLabelsAndMovesThroughTheRecords) {
  WordFixture bench;
  const std::string next = F("NEXT", "");
  const std::string label = F("MERGEFIELD A") + R(".") + F("MERGEREC");
  const std::string page = "<w:tbl><w:tr>" + Cell(P(label)) + Cell(P(next + label)) + "</w:tr></w:tbl>" + P("");
  const auto labels = bench.Merge({.body = page + "<w:sectPr/>"}, kThree, MainDocumentType::kMailingLabels);
  EXPECT_EQ(Shown(labels->Content()->Text()), "1.1\\r\a2.2\\r\a\\r\a\f3.3\\r\a.4\\r\a\\r\a\\r");
  EXPECT_EQ(CountOf(bench.SavedBody(*labels), "nextPage"), 2u);
  EXPECT_EQ(CountOf(bench.SavedBody(*labels), "pgNumType"), 0u);

  const std::string skip = F("SKIPIF {A} = 2", "") + F("NEXTIF {A} = 1", "");
  const auto skipped =
      bench.Merge({.body = P(skip + F("MERGEFIELD A") + R(" ") + F("MERGESEQ") + R(" ") + F("MERGEREC"))},
                  "A\r\n2\r\n1\r\n5\r\n2\r\n7\r\n", MainDocumentType::kCatalog);
  EXPECT_EQ(Shown(skipped->Content()->Text()), "5 1 3\\r7 2 5\\r");
}

TEST(WordMerge, SharesHeadersThatAreEqual) {
  const std::string body = P(F("MERGEFIELD A")) + "<w:sectPr><w:headerReference w:type=\"default\" r:id=\"rId2\"/>" +
                           "<w:footerReference w:type=\"default\" r:id=\"rId1\"/></w:sectPr>";
  const WordParts parts{body, {{"footer", P(R("strana"))}, {"header", P(R("pro ") + F("MERGEFIELD B"))}}};
  WordFixture bench;
  const auto merged = bench.Merge(parts, "A;B\r\n1;x\r\n2;y\r\n3;y\r\n4;x\r\n", MainDocumentType::kFormLetters);
  EXPECT_EQ(Shown(merged->PrimaryHeader(3)->Text()), "pro y\\r");
  merged->PrimaryHeader(1)->Find({.FindText = u"pro ", .ReplaceWith = u"za ", .Replace = 2});
  merged->PrimaryFooter(4)->Find({.FindText = u"str*na", .MatchWildcards = true, .ReplaceWith = u"s.", .Replace = 2});
  const Package saved = bench.Saved(*merged);
  const std::vector<std::string> names = saved.PartNames();
  EXPECT_EQ(std::count_if(names.begin(), names.end(), [](const auto& n) { return n.starts_with("/word/header"); }), 2);
  const auto again = bench.Application()->OpenDocument({.FileName = bench.folder.TextPath("out.docx")});
  std::string headers;
  for (int i = 1; i <= 4; ++i)
    headers += Shown(again->PrimaryHeader(i)->Text()) + Shown(again->PrimaryFooter(i)->Text());
  EXPECT_EQ(headers, "za x\\rs.\\rpro y\\rs.\\rpro y\\rs.\\rza x\\rs.\\r");
  EXPECT_EQ(ErrorOf([&] { again->PrimaryHeader(5); }).number(), 5941);

  const auto catalog = bench.Merge(parts, kThree, MainDocumentType::kCatalog);
  EXPECT_EQ(Shown(catalog->PrimaryHeader(1)->Text()), "pro old\\r");  // left for the headers' own pass
  EXPECT_TRUE(
      catalog->PrimaryHeader(1)->Find({.FindText = u"ol?", .MatchWildcards = true, .ReplaceWith = u"5", .Replace = 2}));
  const std::string header = bench.Saved(*catalog).ReadPart("/word/header.xml");
  EXPECT_EQ(CountOf(header, ">5</w:t>"), 1u) << header;
  EXPECT_EQ(CountOf(header, "MERGEFIELD"), 0u) << header;  // an update would bring the name back
}

TEST(WordMerge, GivesCopiesNumbersOfTheirOwn) {
  const std::string list = "<w:pPr><w:numPr><w:ilvl w:val=\"0\"/><w:numId w:val=\"4\"/></w:numPr></w:pPr>";
  const std::string picture =
      "<w:r><w:drawing><wp:inline><wp:docPr id=\"7\" name=\"p\"/></wp:inline></w:drawing></w:r>";
  const std::string body =
      "<w:p w14:paraId=\"00000001\">" + list + "<w:bookmarkStart w:id=\"3\" w:name=\"Zde\"/>" + F("MERGEFIELD A") +
      "<w:bookmarkEnd w:id=\"3\"/>" + picture + "<w:r><w:footnoteReference w:id=\"2\"/></w:r></w:p>" +
      P(F("PAGEREF Zde \\h", "1") + "<w:hyperlink w:anchor=\"Zde\">" + R("tam") + "</w:hyperlink>");
  const std::string numbering =
      "<w:abstractNum w:abstractNumId=\"9\"><w:lvl w:ilvl=\"0\"><w:start w:val=\"5\"/><w:numFmt "
      "w:val=\"decimal\"/></w:lvl>"
      "</w:abstractNum><w:num w:numId=\"4\"><w:abstractNumId w:val=\"9\"/></w:num>";
  const std::string notes = "<w:footnote w:type=\"separator\" w:id=\"0\"><w:p/></w:footnote><w:footnote w:id=\"2\">" +
                            P(R("k ") + F("MERGEFIELD A")) + "</w:footnote>";
  WordFixture bench;
  const auto merged =
      bench.Merge({body, {{"footnotes", notes}, {"numbering", numbering}}}, kThree, MainDocumentType::kFormLetters);
  const std::string saved = bench.SavedBody(*merged);
  const Package package = bench.Saved(*merged);
  for (const char* once :
       {"wp:docPr id=\"7\"", "wp:docPr id=\"8\"", "wp:docPr id=\"9\"", "w:name=\"Zde\"", "w:name=\"Zde_2\"",
        "w:name=\"Zde_3\"", "w:anchor=\"Zde_3\"", "PAGEREF Zde_2 \\h", "footnoteReference w:id=\"2\"",
        "footnoteReference w:id=\"4\"", "w:numId w:val=\"6\"", "bookmarkStart w:id=\"5\"", "bookmarkEnd w:id=\"5\""}) {
    EXPECT_EQ(CountOf(saved, once), 1u) << once << "\n" << saved;
  }
  EXPECT_EQ(CountOf(saved, "paraId"), 0u);
  const std::string lists = package.ReadPart("/word/numbering.xml");
  EXPECT_EQ(CountOf(lists, "<w:num w:numId="), 3u) << lists;
  EXPECT_EQ(CountOf(lists, "<w:startOverride w:val=\"5\"/>"), 2u) << lists;
  const std::string footnotes = package.ReadPart("/word/footnotes.xml");
  EXPECT_EQ(CountOf(footnotes, "<w:footnote "), 4u) << footnotes;
  EXPECT_EQ(CountOf(footnotes, "<w:t xml:space=\"preserve\">3</w:t>"), 1u) << footnotes;
}

TEST(WordMerge, RestartsListsOfStylesAndLeavesBullets) {
  const auto level = [](const std::string& format, const std::string& rest) {
    return "<w:lvl w:ilvl=\"0\"><w:numFmt w:val=\"" + format + "\"/>" + rest + "</w:lvl>";
  };
  const std::string numbering = "<w:abstractNum w:abstractNumId=\"1\">" + level("decimal", "") +
                                "</w:abstractNum><w:abstractNum w:abstractNumId=\"2\">" + level("bullet", "") +
                                "</w:abstractNum><w:num w:numId=\"1\"><w:abstractNumId w:val=\"1\"/></w:num>"
                                "<w:num w:numId=\"2\"><w:abstractNumId w:val=\"2\"/></w:num>";
  const std::string styles =
      "<w:style w:styleId=\"Bod\"><w:pPr><w:numPr><w:numId w:val=\"1\"/></w:numPr></w:pPr></w:style>"
      "<w:style w:styleId=\"Podbod\"><w:basedOn w:val=\"Bod\"/></w:style>";
  const std::string body = P("<w:pPr><w:pStyle w:val=\"Podbod\"/><w:jc w:val=\"left\"/></w:pPr>" + F("MERGEFIELD A")) +
                           P("<w:pPr><w:numPr><w:numId w:val=\"2\"/></w:numPr></w:pPr>" + R("x"));
  WordFixture bench;
  const WordParts parts{body, {{"numbering", numbering}, {"styles", styles}}};
  const std::string saved = bench.SavedBody(*bench.Merge(parts, kThree, MainDocumentType::kFormLetters));
  EXPECT_EQ(
      CountOf(saved, "<w:pStyle w:val=\"Podbod\"/><w:numPr><w:ilvl w:val=\"0\"/><w:numId w:val=\"4\"/></w:numPr><w:jc"),
      1u)
      << saved;
  EXPECT_EQ(CountOf(saved, "<w:numId w:val=\"2\"/>"), 3u);
  const std::string catalog = bench.SavedBody(*bench.Merge(parts, kThree, MainDocumentType::kCatalog));
  EXPECT_EQ(CountOf(catalog, "<w:numId w:val=\"1\"/>"), 0u);  // one list through all records, as the style has it
}

TEST(WordMerge, NamesTheHeadersThatASectionWouldInherit) {
  const std::string reference = "<w:headerReference w:type=\"default\" r:id=\"rId1\"/>";
  const std::string body =
      P("<w:pPr><w:sectPr>" + reference + "</w:sectPr></w:pPr>") + P(F("MERGEFIELD A")) + "<w:sectPr/>";
  WordFixture bench;
  const WordParts parts{body, {{"header", P(F("IF {A} = 2 \"druhý\" \"jiný\""))}}};
  const auto merged = bench.Merge(parts, kThree, MainDocumentType::kFormLetters);
  std::string headers;
  for (int section = 1; section <= 6; ++section) headers += Shown(merged->PrimaryHeader(section)->Text());
  EXPECT_EQ(headers, "jiný\\rjiný\\rdruhý\\rdruhý\\rjiný\\rjiný\\r");
  EXPECT_EQ(CountOf(bench.SavedBody(*merged), "<w:headerReference"), 6u);
}

TEST(WordMerge, TakesNoHeaderFromTheCopyBefore) {
  const auto section = [](const std::string& references) { return "<w:sectPr>" + references + "</w:sectPr>"; };
  const std::string header = "<w:headerReference w:type=\"default\" r:id=\"rId2\"/>";
  const std::string first = "<w:footerReference w:type=\"first\" r:id=\"rId1\"/>";
  const std::string ending = "<w:pPr>" + section("<w:titlePg/>") + "</w:pPr>";
  WordFixture bench;
  const WordParts parts{P(ending) + P(ending) + P(F("MERGEFIELD A")) + section(header + first),
                        {{"footer", P(R("strana"))}, {"header", P(R("pro ") + F("MERGEFIELD A"))}}};
  const auto merged = bench.Merge(parts, kThree, MainDocumentType::kFormLetters);
  std::string headers;
  for (int i = 1; i <= 9; ++i) headers += Shown(merged->PrimaryHeader(i)->Text());
  EXPECT_EQ(headers, "\\r\\rpro 1\\r\\r\\rpro 2\\r\\r\\rpro 3\\r");
  const Package saved = bench.Saved(*merged);
  const Relationships relationships = saved.RelationshipsOf("/word/document.xml");
  const std::string body = saved.ReadPart("/word/document.xml");
  for (const Relationship& each : relationships.all()) {
    if (!each.Is("footer")) continue;
    const bool empty = saved.ReadPart(*relationships.PartOf(each)).find("strana") == std::string::npos;
    EXPECT_EQ(CountOf(body, "<w:footerReference w:type=\"first\" r:id=\"" + each.id + "\"/>"), empty ? 6u : 3u);
  }
  EXPECT_EQ(CountOf(body, "w:type=\"even\""), 0u);
}

TEST(WordMerge, RefusesWhatGivesNoCopy) {
  WordFixture bench;
  const auto main = bench.Add({.body = P(F("SKIPIF {A} > 0") + F("MERGEFIELD A"))});
  auto& merge = main->MailMerge();
  merge.OpenDataSource({.Name = bench.WriteData(kThree)});
  EXPECT_EQ(ErrorOf([&] { merge.Execute(false); }).number(), 5631);
  merge.OpenDataSource({.Name = bench.WriteData("A\r\n")});
  EXPECT_EQ(ErrorOf([&] { merge.Execute(false); }).number(), 5631);
  EXPECT_EQ(ErrorOf([&] { merge.OpenDataSource({.Name = bench.folder.TextPath("chybí")}); }).number(), 5174);
  EXPECT_EQ(ErrorOf([&] { merge.OpenDataSource({.Name = u"x", .SQLStatement = u"SELECT"}); }).number(), 438);
  EXPECT_EQ(ErrorOf([&] { merge.Destination(1); }).number(), 438);
  EXPECT_EQ(ErrorOf([&] { merge.Execute(true); }).number(), 438);
  EXPECT_EQ(bench.Application()->DocumentCount(), 1);
}

TEST(WordMerge, DropsLinesWhoseFieldsAreAllEmpty) {
  const std::string b = F("MERGEFIELD B");
  const std::string body = P(F("MERGEFIELD A")) + P(b) + P(b + b + "<w:proofErr w:type=\"x\"/>") + P(b + R(" ")) +
                           P("") + P("<w:bookmarkStart w:id=\"1\" w:name=\"z\"/>" + b + "<w:bookmarkEnd w:id=\"1\"/>") +
                           "<w:tbl><w:tr>" + Cell(P(b) + P(b)) + "</w:tr></w:tbl>" + P(R("konec"));
  WordFixture bench;
  const auto merged = bench.Merge({.body = body}, "A;B\r\n1;\r\n2; \r\n", MainDocumentType::kCatalog);
  EXPECT_EQ(Shown(merged->Content()->Text()),
            "1\\r \\r\\r\\r\\r\a\\r\akonec\\r2\\r \\r  \\r  \\r\\r \\r \\r \\r\a\\r\akonec\\r");
  bench.Saved(*merged);

  merged->Close(false);

  const auto unknown =
      bench.Merge({.body = P(F("MERGEFIELD C")) + P(R("."))}, "A\r\n1\r\n", MainDocumentType::kCatalog);
  EXPECT_EQ(Shown(unknown->Content()->Text()),
            "Error! MergeField was not found in header record of data source.\\r.\\r");

  const auto main = bench.Add({.body = P(b) + P(R("."))});
  main->MailMerge().OpenDataSource({.Name = bench.WriteData("B\r\n\r\n")});
  main->MailMerge().SuppressBlankLines(false);
  main->MailMerge().Execute(false);
  EXPECT_EQ(Shown(bench.Application()->ActiveDocument()->Content()->Text()), "\\r.\\r");
}

TEST(WordMerge, FillsBothFormsOfATextBoxFromTheSameRecord) {
  const std::string box = "<w:txbxContent>" + P(F("NEXT", "") + F("MERGEFIELD A")) + "</w:txbxContent>";
  const std::string body =
      P("<w:r><mc:AlternateContent><mc:Choice Requires=\"wps\">" + box + "</mc:Choice><mc:Fallback>" + box +
        "</mc:Fallback></mc:AlternateContent></w:r>" + F("MERGEFIELD A"));
  WordFixture bench;
  const auto merged = bench.Merge({.body = body}, kThree, MainDocumentType::kCatalog);
  EXPECT_EQ(Shown(merged->Content()->Text()), "2\\r\\r");  // text boxes are no part of the main text
  EXPECT_EQ(CountOf(bench.SavedBody(*merged), ">2</w:t>"), 3u);
}

TEST(WordMerge, ObeysTheTemplatesSettingsAndLeavesNoneOfThem) {
  const std::string settings =
      "<w:zoom/><w:mailMerge><w:mainDocumentType w:val=\"catalog\"/><w:dataSource r:id=\"rId1\"/>"
      "<w:doNotSuppressBlankLines/></w:mailMerge><w:compat/>";
  WordFixture bench;
  WriteWordFile(bench.folder.Path("t.dotx"), {P(F("MERGEFIELD A")) + P(F("MERGEFIELD B")), {{"settings", settings}}});
  Package package = Package::Open(bench.folder.Path("t.dotx"));
  Relationships sources("/word/settings.xml");
  sources.AddExternal(OfficeRelationshipType("mailMergeSource"), "file:///c:/data.txt");
  package.SetRelationships(sources);
  package.SaveAs(bench.folder.Path("t.dotx"));

  const auto main = bench.Application()->AddDocument(bench.folder.TextPath("t.dotx"), false);
  EXPECT_EQ(main->MailMerge().MainDocumentType(), MainDocumentType::kCatalog);
  EXPECT_EQ(ErrorOf([&] { main->MailMerge().Execute(false); }).number(), 5631);
  main->MailMerge().OpenDataSource({.Name = bench.WriteData(kThree)});
  main->MailMerge().FirstRecord(2);
  main->MailMerge().LastRecord(2);
  main->MailMerge().Execute(false);
  const auto merged = bench.Application()->ActiveDocument();
  EXPECT_EQ(Shown(merged->Content()->Text()), "2\\r\\r");
  const Package saved = bench.Saved(*merged);
  EXPECT_EQ(saved.ReadPart("/word/settings.xml").find("mailMerge"), std::string::npos);
  EXPECT_FALSE(saved.HasPart("/word/_rels/settings.xml.rels"));
  EXPECT_EQ(ErrorOf([&] { merged->MailMerge(); }).number(), 438);
  main->MailMerge().FirstRecord(4);
  EXPECT_EQ(ErrorOf([&] { main->MailMerge().Execute(false); }).number(), 5631);
}

}  // namespace
}  // namespace zorkanca::testing
