// Small Word documents made of snippets of WordprocessingML, merged and read again.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "opc/package.h"
#include "opc/xml_document.h"
#include "opc/xml_escape.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"
#include "word/word_engine.h"

namespace zorkanca::testing {

/// A run with a text, a paragraph, a cell.
inline std::string R(const std::string& text) {
  return "<w:r><w:t xml:space=\"preserve\">" + text + "</w:t></w:r>";
}
inline std::string P(const std::string& content) {
  return "<w:p>" + content + "</w:p>";
}
inline std::string Cell(const std::string& blocks) {
  return "<w:tc>" + blocks + "</w:tc>";
}
inline std::string FieldCharacter(const std::string& type) {
  return "<w:r><w:fldChar w:fldCharType=\"" + type + "\"/></w:r>";
}
/// A field: its code holds text for w:instrText and, between braces, the names of merge fields inside it.
inline std::string F(const std::string& code, const std::string& result = "old") {
  std::string runs;
  std::size_t start = 0;
  const auto add = [&](const std::string& text) {
    if (text.empty()) return;
    runs += "<w:r><w:instrText xml:space=\"preserve\">";
    AppendXmlText(runs, std::string_view(text));
    runs += "</w:instrText></w:r>";
  };
  for (std::size_t open; (open = code.find('{', start)) != code.npos;) {
    const std::size_t close = code.find('}', open);
    add(code.substr(start, open - start));
    runs += F("MERGEFIELD " + code.substr(open + 1, close - open - 1));
    start = close + 1;
  }
  add(code.substr(start));
  return FieldCharacter("begin") + runs + FieldCharacter("separate") + R(result) + FieldCharacter("end");
}

/// What a document is made of beside its body: XML of the inside of each part's root.
struct WordParts {
  std::string body;
  std::map<std::string, std::string> others =
      {};  ///< "header", "footer", "settings", "footnotes", "numbering", "styles"
};

inline void WriteWordFile(const std::string& path, const WordParts& parts, const std::string& kind = "template.main") {
  const std::string types = "application/vnd.openxmlformats-officedocument.wordprocessingml.";
  const auto wrap = [](const std::string& root, const std::string& inside) {
    return "<w:" + root +
           " xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\""
           " xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\""
           " xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\""
           " xmlns:wp=\"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing\""
           " xmlns:w14=\"http://schemas.microsoft.com/office/word/2010/wordml\">" +
           inside + "</w:" + root + ">";
  };
  const std::map<std::string, std::string> roots = {{"header", "hdr"}, {"footer", "ftr"}};
  Package package;
  package.AddPart("/word/document.xml", kind.find('/') == kind.npos ? types + kind + "+xml" : kind,
                  wrap("document", "<w:body>" + parts.body + "</w:body>"));
  Relationships top("/");
  top.Add(OfficeRelationshipType("officeDocument"), "/word/document.xml");
  package.SetRelationships(top);
  Relationships main("/word/document.xml");  // ids rId1, rId2, ... in the order of the names
  for (const auto& [name, inside] : parts.others) {
    const std::string part = "/word/" + name + ".xml";
    package.AddPart(part, types + name + "+xml", wrap(roots.count(name) ? roots.at(name) : name, inside));
    main.Add(OfficeRelationshipType(name), part);
  }
  package.SetRelationships(main);
  package.SaveAs(path);
}

/// An engine with a folder for its files.
class WordFixture {
 public:
  WordFixture() : engine_(*FindLocale(u"cs-CZ"), {}, [this](TextView text) { warnings += ToUtf8(text) + "\n"; }) {}

  WordApplicationReference Application() { return engine_.StartWord(); }
  WordDocumentReference Add(const WordParts& parts) {
    WriteWordFile(folder.Path("t.dotx"), parts);
    return Application()->AddDocument(folder.TextPath("t.dotx"), false);
  }
  /// Writes a data file as the exports do; lines end with CR LF.
  Text WriteData(const std::string& lines) {
    const Text text = FromUtf8(lines);
    std::string bytes = "\xFF\xFE";
    for (const char16_t unit : text) {
      bytes += static_cast<char>(unit & 0xFF);
      bytes += static_cast<char>(unit >> 8);
    }
    folder.Write("data.txt", bytes);
    return folder.TextPath("data.txt");
  }
  WordDocumentReference Merge(const WordParts& parts, const std::string& data, MainDocumentType type) {
    const WordDocumentReference main = Add(parts);
    main->MailMerge().OpenDataSource({.Name = WriteData(data)});
    main->MailMerge().MainDocumentType(type);
    main->MailMerge().Execute(false);
    main->Close(false);
    return Application()->ActiveDocument();
  }
  /// Saves the document and opens the file again: it must be sound and have the same text.
  Package Saved(WordDocument& document) {
    document.SaveAs(folder.TextPath("out.docx"), WordSaveFormat::kDocumentXml);
    const WordDocumentReference again = Application()->OpenDocument({.FileName = folder.TextPath("out.docx")});
    EXPECT_EQ(Shown(again->Content()->Text()), Shown(document.Content()->Text()));
    again->Close(false);
    return Package::Open(folder.Path("out.docx"));
  }
  /// The inside of the saved body.
  std::string SavedBody(WordDocument& document) {
    const std::string xml = Saved(document).ReadPart("/word/document.xml");
    RequireSoundXml(xml, {"out.docx", "document.xml"});
    const std::size_t start = xml.find("<w:body>") + 8;
    return xml.substr(start, xml.find("</w:body>") - start);
  }

  TemporaryFolder folder;
  std::string warnings;

 private:
  WordEngine engine_;
};

/// How often a text occurs in another.
inline std::size_t CountOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

}  // namespace zorkanca::testing
