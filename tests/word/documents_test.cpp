// Open documents: the application that holds them, forms, margins, protection, what is written.
#include "support/word_parts.h"

#include <gtest/gtest.h>

namespace zorkanca::testing {
namespace {

std::string FormField(const std::string& name, const std::string& data, const std::string& code,
                      const std::string& result) {
  return "<w:r><w:fldChar w:fldCharType=\"begin\"><w:ffData><w:name w:val=\"" + name + "\"/>" + data +
         "</w:ffData></w:fldChar></w:r><w:r><w:instrText> " + code + " </w:instrText></w:r>" +
         (result.empty() ? ""
                         : FieldCharacter("separate") + "<w:r><w:rPr><w:b/></w:rPr><w:t>" + result + "</w:t></w:r>") +
         FieldCharacter("end");
}

TEST(WordDocuments, AreHeldByOneApplication) {
  const TemporaryFolder folder;
  WordEngine engine(*FindLocale(u"cs-CZ"));
  EXPECT_EQ(ErrorOf([&] { engine.AttachWord(); }).number(), 429);
  const auto application = engine.StartWord();
  EXPECT_EQ(engine.AttachWord(), application);
  EXPECT_EQ(engine.StartWord(), application);
  EXPECT_EQ(ErrorOf([&] { application->ActiveDocument(); }).number(), 4248);
  const auto first = application->AddDocument(u"", false);
  const auto second = application->AddDocument(u"", false);
  EXPECT_EQ(Shown(first->Content()->Text()), "\\r");
  EXPECT_EQ(first->FullName(), u"Document1");
  EXPECT_EQ(application->Documents(1), second);
  first->Activate();
  EXPECT_EQ(application->ActiveDocument(), first);
  const auto range = first->Content();
  first->Close(false);
  EXPECT_EQ(application->DocumentCount(), 1);
  EXPECT_EQ(ErrorOf([&] { range->Text(); }).number(), 5825);
  EXPECT_EQ(ErrorOf([&] { first->SaveAs(u"x.docx", WordSaveFormat::kDocumentXml); }).number(), 5825);
  EXPECT_EQ(ErrorOf([&] { application->Documents(2); }).number(), 5941);
  EXPECT_EQ(ErrorOf([&] { second->Close(true); }).number(), 438);
  EXPECT_EQ(ErrorOf([&] { application->AddDocument(folder.TextPath("chybí.dotx"), false); }).number(), 5174);
  folder.Write("x.docx", "PK\x03\x04 nic");
  EXPECT_EQ(ErrorOf([&] { application->AddDocument(folder.TextPath("x.docx"), false); }).number(), 5);
}

TEST(WordDocuments, AreFoundByTheirFile) {
  const TemporaryFolder folder;
  WordEngine engine(*FindLocale(u"cs-CZ"));
  WriteWordFile(folder.Path("a.docx"), {P(R("x"))});
  EXPECT_EQ(ErrorOf([&] { engine.GetDocument(folder.TextPath("none.docx")); }).number(), 5174);
  const auto document = engine.GetDocument(folder.TextPath("a.docx"));
  EXPECT_EQ(engine.GetDocument(folder.TextPath("./a.docx")), document);
  document->WindowState(WordWindowState::kMinimize);
  EXPECT_EQ(document->Application()->WindowState(), WordWindowState::kMinimize);
  EXPECT_EQ(document->WindowCount(), 1);
  const std::string before = folder.Read("a.docx");
  EXPECT_EQ(ErrorOf([&] { document->ExportAsFixedFormat({.OutputFileName = document->FullName()}); }).number(), 70);
  EXPECT_EQ(folder.Read("a.docx"), before);
  document->Close(false);
  EXPECT_NE(engine.GetDocument(folder.TextPath("a.docx")), document);
}

TEST(WordDocuments, AreWrittenWholeWithEverythingNobodyTouched) {
  WordFixture bench;
  const std::string macros = "application/vnd.ms-word.template.macroEnabledTemplate.main+xml";
  WriteWordFile(bench.folder.Path("m.dotm"), {P(R("x"))}, macros);
  Package package = Package::Open(bench.folder.Path("m.dotm"));
  package.AddPart("/word/unknown.bin", "application/x-unknown", std::string("\0\1<neco", 7));
  package.AddPart("/word/vbaProject.bin", "application/vnd.ms-office.vbaProject", std::string("vba"));
  Relationships relationships = package.RelationshipsOf("/word/document.xml");
  relationships.Add("http://schemas.microsoft.com/office/2006/relationships/vbaProject", "/word/vbaProject.bin");
  package.SetRelationships(relationships);
  package.SaveAs(bench.folder.Path("m.dotm"));

  const auto document = bench.Application()->AddDocument(bench.folder.TextPath("m.dotm"), false);
  document->Range(0, 0)->Find({.FindText = u"x", .ReplaceWith = u"a & <b>", .Replace = 1});
  document->SaveAs(bench.folder.TextPath("m.docm"), WordSaveFormat::kDocumentXml);
  document->SaveAs(bench.folder.TextPath("m.docx"), WordSaveFormat::kDocumentXml);
  EXPECT_EQ(document->FullName(), bench.folder.TextPath("m.docx"));
  const Package with = Package::Open(bench.folder.Path("m.docm"));
  const Package without = Package::Open(bench.folder.Path("m.docx"));
  EXPECT_EQ(with.ContentTypeOf("/word/document.xml"), "application/vnd.ms-word.document.macroEnabled.main+xml");
  EXPECT_TRUE(with.HasPart("/word/vbaProject.bin"));
  EXPECT_EQ(without.ContentTypeOf("/word/document.xml"),
            "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml");
  EXPECT_FALSE(without.HasPart("/word/vbaProject.bin"));
  EXPECT_EQ(without.ReadPart("/word/unknown.bin"), std::string("\0\1<neco", 7));

  const std::string before = bench.folder.Read("m.docx");
  EXPECT_NE(
      ErrorOf([&] { document->SaveAs(bench.folder.TextPath("není/m.docx"), WordSaveFormat::kDocumentXml); }).number(),
      0);
  EXPECT_EQ(bench.folder.Read("m.docx"), before);
}

TEST(WordDocuments, AreReadUnderAnyPrefixAndInStrictForm) {
  WordFixture bench;
  for (const char* space : {"http://schemas.openxmlformats.org/wordprocessingml/2006/main",
                            "http://purl.oclc.org/ooxml/wordprocessingml/main"}) {
    WriteWordFile(bench.folder.Path("p.dotx"), {P("")});
    Package package = Package::Open(bench.folder.Path("p.dotx"));
    package.ReplacePart(
        "/word/document.xml",
        std::string("<document xmlns=\"") + space + "\" xmlns:x=\"" + space +
            "\"><body><p><x:fldSimple x:instr=\"MERGEFIELD A\"><r><t>x</t></r></x:fldSimple></p></body></document>");
    package.SaveAs(bench.folder.Path("p.dotx"));
    const auto main = bench.Application()->AddDocument(bench.folder.TextPath("p.dotx"), false);
    main->MailMerge().OpenDataSource({.Name = bench.WriteData("A\r\n5\r\n")});
    main->MailMerge().Execute(false);
    EXPECT_EQ(Shown(bench.Application()->ActiveDocument()->Content()->Text()), "5\\r");
    bench.SavedBody(*bench.Application()->ActiveDocument());
  }
}

TEST(WordDocuments, TakeResultsOfFormFields) {
  WordFixture bench;
  const std::string list = "<w:ddList><w:listEntry w:val=\"ne\"/><w:listEntry w:val=\"ano\"/></w:ddList>";
  const auto document = bench.Add(
      {.body = P(FormField("Jmeno", "<w:textInput/>", "FORMTEXT", "staré")) +
               P(FormField("PSC_1", "<w:textInput><w:maxLength w:val=\"1\"/></w:textInput>", "FORMTEXT", "")) +
               P(FormField("Velka", "<w:textInput><w:format w:val=\"UPPERCASE\"/></w:textInput>", "FORMTEXT", "x")) +
               P(FormField("Castka", "<w:textInput><w:type w:val=\"number\"/><w:format w:val=\"0,00\"/></w:textInput>",
                           "FORMTEXT", "x")) +
               P(FormField("Souhlas", "<w:checkBox><w:default w:val=\"0\"/></w:checkBox>", "FORMCHECKBOX", "")) +
               P(FormField("Volba", list, "FORMDROPDOWN", "")) +
               P("<w:r><w:fldChar w:fldCharType=\"begin\"><w:ffData><w:name w:val=\"Jeden\"/><w:textInput/></w:ffData>"
                 "</w:fldChar><w:instrText>FORMTEXT</w:instrText><w:fldChar w:fldCharType=\"separate\"/><w:t>a</w:t>"
                 "<w:fldChar w:fldCharType=\"end\"/></w:r>")});
  struct Row {
    TextView name, result, read;
  };
  const Row rows[] = {{u"jmeno", u"Žofie & <spol.>", u"Žofie & <spol.>"},
                      {u"PSC_1", u"1", u"1"},
                      {u"Velka", u"žába", u"ŽÁBA"},
                      {u"Castka", u"12,345", u"12,35"},
                      {u"Souhlas", u"1", u"1"},
                      {u"Volba", u"ano", u"ano"},
                      {u"Jeden", u"b", u"b"}};
  for (const Row& row : rows) {
    document->FormFieldResult(row.name, row.result);
    EXPECT_EQ(Shown(document->FormFieldResult(row.name)), Shown(row.read));
  }
  EXPECT_EQ(Shown(document->Content()->Text()), "Žofie & <spol.>\\r1\\rŽÁBA\\r12,35\\r\\r\\rb\\r");
  document->FormFieldResult(u"Jmeno", u"");
  EXPECT_EQ(document->FormFieldResult(u"Jmeno"), u"");
  const std::string body = bench.SavedBody(*document);
  EXPECT_EQ(CountOf(body, "<w:r><w:rPr><w:b/></w:rPr><w:t xml:space=\"preserve\">\xE2\x80\x82\xE2\x80\x82"), 1u)
      << body;
  EXPECT_EQ(CountOf(body, "staré"), 0u);
  EXPECT_EQ(ErrorOf([&] { document->FormFieldResult(u"Chybí", u"x"); }).number(), 5941);
  EXPECT_EQ(ErrorOf([&] { document->FormFieldResult(u"PSC_1", u"12"); }).number(), 4609);
  EXPECT_EQ(ErrorOf([&] { document->FormFieldResult(u"Volba", u"možná"); }).number(), 5);
}

std::string Control(const std::string& properties, const std::string& content) {
  return "<w:sdt><w:sdtPr>" + properties + "</w:sdtPr><w:sdtContent>" + content + "</w:sdtContent></w:sdt>";
}

std::string Tag(const std::string& name) {
  return "<w:tag w:val=\"" + name + "\"/>";
}

TEST(WordDocuments, TakeResultsOfContentControls) {
  WordFixture bench;
  const std::string bold = "<w:r><w:rPr><w:b/></w:rPr><w:t>staré</w:t></w:r>";
  const std::string list =
      "<w:dropDownList w:lastValue=\"n\"><w:listItem w:displayText=\"Ne\" w:value=\"n\"/></w:dropDownList>";
  const std::string box =
      "<w14:checkbox><w14:checked w14:val=\"0\"/><w14:checkedState w14:val=\"2611\"/></w14:checkbox>";
  const auto document = bench.Add(
      {.body = P(Control(Tag("Jmeno") + "<w:rPr><w:i/></w:rPr><w:showingPlcHdr/><w:dataBinding/>", bold)) +
               P(Control(Tag("jmeno"), bold + R("x"))) +
               Control(Tag("Blok"), "<w:p><w:pPr><w:jc w:val=\"center\"/></w:pPr>" + bold + "</w:p>" + P(R("druhý"))) +
               P(Control(Tag("Volba") + list, R("?"))) + P(Control(Tag("Ano") + box, R("☐"))) +
               P(Control(Tag("Vnejsi"),
                         Control(Tag("Vnitrni"), R("a")) + FormField("Pole", "<w:textInput/>", "FORMTEXT", "b"))) +
               P(Control(Tag("Obraz") + "<w:picture/>", "")) +
               P(FormField("Dvoji", "<w:textInput/>", "FORMTEXT", "x")) + P(Control(Tag("Dvoji"), R("y")))});
  EXPECT_EQ(document->FormFieldResult(u"Jmeno"), u"") << "a placeholder is no result";
  document->FormFieldResult(u"Jmeno", u"a\r\nb");
  document->FormFieldResult(u"Blok", u"c");
  document->FormFieldResult(u"Volba", u"n");
  document->FormFieldResult(u"Ano", u"True");
  document->FormFieldResult(u"Dvoji", u"pole");
  EXPECT_EQ(document->FormFieldResult(u"Ano"), u"1");
  EXPECT_EQ(document->FormFieldResult(u"Blok"), u"c");
  // What stood in a control goes with its old text.
  document->FormFieldResult(u"Vnejsi", u"d");
  EXPECT_EQ(ErrorOf([&] { document->FormFieldResult(u"Vnitrni", u"x"); }).number(), 5941);
  EXPECT_EQ(ErrorOf([&] { document->FormFieldResult(u"Pole", u"x"); }).number(), 5941);
  EXPECT_EQ(ErrorOf([&] { document->FormFieldResult(u"Volba", u"možná"); }).number(), 5);
  EXPECT_EQ(ErrorOf([&] { document->FormFieldResult(u"Ano", u"možná"); }).number(), 5);
  EXPECT_EQ(ErrorOf([&] { document->FormFieldResult(u"Obraz", u"x"); }).number(), 5);
  EXPECT_EQ(Shown(document->Content()->Text()), "a\vb\\ra\vb\\rc\\rNe\\r☑\\rd\\r\\rpole\\ry\\r");
  const std::string body = bench.SavedBody(*document);
  EXPECT_EQ(CountOf(body, "<w:rPr><w:i/></w:rPr><w:t xml:space=\"preserve\">a</w:t><w:br/>"), 1u) << body;
  EXPECT_EQ(CountOf(body, "<w:rPr><w:b/></w:rPr><w:t xml:space=\"preserve\">a</w:t><w:br/>"), 1u) << body;
  EXPECT_EQ(CountOf(body, "<w:jc w:val=\"center\"/></w:pPr><w:r><w:rPr><w:b/>"), 1u) << body;
  for (const char* gone : {"showingPlcHdr", "dataBinding", "lastValue", "druhý", "staré"}) {
    EXPECT_EQ(CountOf(body, gone), 0u) << gone;
  }
}

TEST(WordDocuments, TakeResultsOfContentControlsInEveryText) {
  WordFixture bench;
  const std::string box = "<w:txbxContent>" + P(Control(Tag("A"), R("x"))) + "</w:txbxContent>";
  const std::string shape = "<w:r><mc:AlternateContent><mc:Choice Requires=\"wps\">" + box +
                            "</mc:Choice><mc:Fallback>" + box + "</mc:Fallback></mc:AlternateContent></w:r>";
  const std::string body =
      P(shape + R(".")) + "<w:sectPr><w:headerReference w:type=\"default\" r:id=\"rId4\"/></w:sectPr>";
  const WordParts parts{
      body,
      {{"header", P(Control(Tag("A"), R("x")) + shape + Control(Tag("B"), R("x")))},
       {"footer", "<w:sdt><w:sdtPr/><w:sdtContent>" + P(Control(Tag("b"), R("x"))) + "</w:sdtContent></w:sdt>"},
       {"footnotes", "<w:footnote w:id=\"2\">" + P(Control(Tag("A"), R("x"))) + "</w:footnote>"},
       {"endnotes", P(R("x"))}}};
  for (int copy = 1; copy <= 2; ++copy) {  // of a template that was read before, too
    const auto document =
        copy == 1 ? bench.Add(parts) : bench.Application()->AddDocument(bench.folder.TextPath("t.dotx"), false);
    EXPECT_EQ(Shown(document->PrimaryHeader(1)->Text()), "xx\\r");
    EXPECT_EQ(document->FormFieldResult(u"B"), u"x");
    document->FormFieldResult(u"A", u"ano");
    document->FormFieldResult(u"B", u"ne");
    EXPECT_EQ(document->FormFieldResult(u"b"), u"ne");
    EXPECT_EQ(Shown(document->PrimaryHeader(1)->Text()), "anone\\r");
    const Package saved = bench.Saved(*document);
    const std::pair<const char*, std::size_t> filled[] = {
        {"document", 2}, {"header", 4}, {"footer", 1}, {"footnotes", 1}, {"endnotes", 0}};
    for (const auto& [part, count] : filled) {
      const std::string xml = saved.ReadPart("/word/" + std::string(part) + ".xml");
      EXPECT_EQ(CountOf(xml, ">ano<") + CountOf(xml, ">ne<"), count) << xml;
    }
    document->PrimaryHeader(1)->Find({.FindText = u"ano", .ReplaceWith = u"znovu", .Replace = 2});
    document->FormFieldResult(u"A", u"1");
    EXPECT_EQ(Shown(document->PrimaryHeader(1)->Text()).substr(0, 1), "1");
    document->Close(false);
  }
}

TEST(WordDocuments, ComeFromTheTemplateAsItIsNow) {
  WordFixture bench;
  const auto first = bench.Add({.body = P(R("x"))});
  first->Range(0, 0)->Find({.FindText = u"x", .ReplaceWith = u"změna", .Replace = 1});
  const auto again = [&] {
    return Shown(bench.Application()->AddDocument(bench.folder.TextPath("t.dotx"), false)->Content()->Text());
  };
  EXPECT_EQ(again(), "x\\r") << "no document changes those after it";
  EXPECT_EQ(Shown(bench.Add({.body = P(R("jiná"))})->Content()->Text()), "jiná\\r");
  EXPECT_EQ(again(), "jiná\\r");
  bench.folder.Write("t.dotx", "");
  EXPECT_EQ(ErrorOf(again).number(), 5);
}

TEST(WordDocuments, TakeMarginsAndProtection) {
  WordFixture bench;
  const std::string sections = P("<w:pPr><w:sectPr><w:pgMar w:left=\"1\" w:top=\"2\"/></w:sectPr></w:pPr>") + P("") +
                               "<w:sectPr><w:cols/></w:sectPr>";
  const auto document = bench.Add(
      {sections, {{"settings", "<w:zoom/><w:documentProtection w:edit=\"forms\" w:enforcement=\"1\"/><w:compat/>"}}});
  document->Unprotect();
  EXPECT_EQ(ErrorOf([&] { document->Unprotect(); }).number(), 4605);
  document->PageSetup()->LeftMargin(2 * 28.34646f);
  document->SectionPageSetup(2)->TopMargin(1.5f * 28.34646f);
  EXPECT_EQ(ErrorOf([&] { document->SectionPageSetup(3); }).number(), 5941);
  EXPECT_EQ(ErrorOf([&] { document->Protect(3); }).number(), 4605);
  document->Protect(2);
  EXPECT_EQ(ErrorOf([&] { document->Protect(2); }).number(), 4605);
  const std::string body = bench.SavedBody(*document);
  EXPECT_EQ(CountOf(body, "<w:pgMar w:left=\"1134\" w:top=\"2\"/>"), 1u) << body;
  EXPECT_EQ(CountOf(body, "<w:pgMar w:top=\"850\" w:right=\"1417\" w:bottom=\"1417\" w:left=\"1134\""), 1u) << body;
  const std::string settings = bench.Saved(*document).ReadPart("/word/settings.xml");
  EXPECT_EQ(CountOf(settings, "<w:zoom/><w:documentProtection w:edit=\"forms\" w:enforcement=\"1\"/><w:compat/>"), 1u)
      << settings;
  document->Close(false);

  // Its place is behind all that the schema puts before it.
  const std::string before = "<w:mailMerge/><w:trackRevisions/><w:doNotTrackMoves/><w:doNotTrackFormatting/>";
  const auto tracked = bench.Add({P(""), {{"settings", before + "<w:autoFormatOverride/>"}}});
  tracked->Protect(2);
  EXPECT_NE(bench.Saved(*tracked).ReadPart("/word/settings.xml").find(before + "<w:documentProtection"),
            std::string::npos);
  tracked->Close(false);

  const auto guarded = bench.Add(
      {P(""), {{"settings", "<w:documentProtection w:edit=\"forms\" w:enforcement=\"1\" w:hash=\"abc=\"/>"}}});
  EXPECT_EQ(ErrorOf([&] { guarded->Unprotect(); }).number(), 5485);
}

TEST(WordDocuments, BecomePdf) {
  WordFixture bench;
  const auto merged = bench.Merge({.body = P(F("MERGEFIELD A"))}, "A\r\n1\r\n2\r\n", MainDocumentType::kFormLetters);
  merged->ExportAsFixedFormat({.OutputFileName = bench.folder.TextPath("x.pdf")});
  EXPECT_EQ(bench.folder.Read("x.pdf").substr(0, 5), "%PDF-");
  EXPECT_EQ(ErrorOf([&] { merged->ExportAsFixedFormat({.OutputFileName = u"y.pdf", .Range = 3}); }).number(), 438);
}

}  // namespace
}  // namespace zorkanca::testing
