// Each part is folded as the merge folds it, so that a field counts here exactly when the merge would evaluate it. Then
// the tree is walked once: folded fields, form fields (w:ffData), content controls (w:sdt), and in headers the text
// outside of fields, in which «name» stands for a column. Cost: linear in the size of the parts.
#include "word/merge/template_reading.h"

#include "runtime/utf8.h"
#include "word/fields/field_code.h"
#include "word/fields/field_fold.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

class Reader {
 public:
  void Read(WordPackage& package, const std::string& part, bool isHeader) {
    const pugi::xml_node root = package.Tree(part).document_element();
    if (Is(root, "w:footnotes") || Is(root, "w:endnotes")) {
      for (const pugi::xml_node note : root.children()) FoldFields(note);
    } else {
      FoldFields(Is(root, "w:document") ? root.child("w:body") : root);
    }
    Visit(root);
    if (isHeader) AddPlaceholders(root);
  }

  std::vector<TemplateField> Take() { return fields_.Take(); }

 private:
  void Visit(const pugi::xml_node& node) {
    if (Is(node, "mc:Fallback") && node.previous_sibling("mc:Choice")) return;  // the same again, for other programs
    if (Is(node, "zk:field")) AddField(FoldedField(node));
    if (Is(node, "w:ffData")) AddForm(node.child("w:name"));
    if (Is(node, "w:sdt")) AddForm(node.child("w:sdtPr").child("w:tag"));
    for (const pugi::xml_node child : node.children()) Visit(child);
  }

  void AddField(const FoldedField& field) {
    const bool isBarcode = field.type() == u"MERGEBARCODE";
    if (field.locked() || (field.type() != u"MERGEFIELD" && !isBarcode)) return;
    const std::vector<CodeToken> tokens = TokensOf(field, false);
    Text name;
    for (std::size_t i = 1; i < tokens.size() && tokens[i].kind == CodeToken::Kind::kArgument; ++i) {
      if (!tokens[i].IsPlain()) return;  // what it is called depends on the record
      if (!name.empty()) name.push_back(u' ');
      name.append(tokens[i].PlainText());
      if (isBarcode || tokens[i].quoted) break;
    }
    fields_.Add(isBarcode ? TemplateFieldKind::kBarcode : TemplateFieldKind::kField, name);
  }

  void AddForm(const pugi::xml_node& name) {
    const Text text = FromUtf8(name.attribute("w:val").value());
    if (!text.empty()) fields_.Add(TemplateFieldKind::kForm, text);
  }

  void AddPlaceholders(const pugi::xml_node& node) {
    if (Is(node, "zk:field")) return;
    if (Is(node, "w:p")) {
      Text text;
      AppendTextOutsideFields(text, node);
      for (std::size_t open = 0; (open = text.find(u'«', open)) != Text::npos;) {
        const std::size_t close = text.find(u'»', open);
        if (close == Text::npos) break;
        fields_.Add(TemplateFieldKind::kField, TextView(text).substr(open + 1, close - open - 1));
        open = close + 1;
      }
      return;
    }
    for (const pugi::xml_node child : node.children()) AddPlaceholders(child);
  }

  static void AppendTextOutsideFields(Text& text, const pugi::xml_node& node) {
    if (Is(node, "zk:field")) return;
    if (Is(node, "w:t")) AppendUtf8(text, node.child_value());
    for (const pugi::xml_node child : node.children()) AppendTextOutsideFields(text, child);
  }

  TemplateFieldList fields_;
};

}  // namespace

std::vector<TemplateField> ReadTemplateFields(WordPackage& package) {
  Reader reader;
  reader.Read(package, package.mainPart(), /*isHeader=*/false);
  const Relationships relationships = package.package().RelationshipsOf(package.mainPart());
  const auto read = [&](std::string_view kind, bool isHeader) {
    for (const Relationship& relationship : relationships.all()) {
      const auto part = relationships.PartOf(relationship);
      if (relationship.Is(kind) && part && package.package().HasPart(*part)) reader.Read(package, *part, isHeader);
    }
  };
  read("header", true);
  read("footer", true);
  read("footnotes", false);
  read("endnotes", false);
  return reader.Take();
}

}  // namespace zorkanca::word
