#include "word/merge/note_copies.h"

#include <array>

#include "opc/xml_document.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

namespace {

struct NoteKind {
  const char* relationship;
  const char* element;
  NumberKind number;
};

constexpr std::array<NoteKind, 3> kKinds = {{{"footnotes", "w:footnote", NumberKind::kFootnote},
                                             {"endnotes", "w:endnote", NumberKind::kEndnote},
                                             {"comments", "w:comment", NumberKind::kComment}}};
constexpr std::string_view kPlaceOfCopies = "zorkanca-place-of-copies";

}  // namespace

void GatherNoteNumbers(WordPackage& package, UniqueNumbers& numbers) {
  for (const NoteKind& kind : kKinds) {
    const auto part = package.Related(kind.relationship);
    if (!part || numbers.Count(kind.number) == 0) continue;
    for (const pugi::xml_node note : package.Tree(*part).document_element().children(kind.element)) {
      const std::int64_t number = note.attribute("w:id").as_llong();
      numbers.Avoid(kind.number, number);
      if (!numbers.Uses(kind.number, number)) continue;
      for (const pugi::xml_node block : note.children()) numbers.Gather(block);
    }
  }
}

std::vector<NoteCopies> CompileNotes(WordPackage& package, const CompileInput& input) {
  std::vector<NoteCopies> compiled;
  for (const NoteKind& kind : kKinds) {
    const auto part = package.Related(kind.relationship);
    if (!part || input.numbers.Count(kind.number) == 0) continue;
    pugi::xml_document document;
    document.reset(package.Tree(*part));
    pugi::xml_node root = document.document_element();
    StoryCompiler compiler(input, root, false);
    for (pugi::xml_node note = root.child(kind.element); note;) {
      const pugi::xml_node next = note.next_sibling(kind.element);
      if (input.numbers.Uses(kind.number, note.attribute("w:id").as_llong())) {
        FoldFields(note);
        compiler.Add(note);
        root.remove_child(note);
      }
      note = next;
    }
    root.append_child(pugi::node_pcdata).set_value(std::string(kPlaceOfCopies).c_str());
    const std::string frame = XmlBytes(document);
    const std::size_t place = frame.find(kPlaceOfCopies);
    compiled.push_back({*part, frame.substr(0, place), compiler.Take(), frame.substr(place + kPlaceOfCopies.size())});
  }
  return compiled;
}

void AddNotesTo(Package& package, const std::vector<NoteCopies>& notes, const MergedCopies& copies) {
  for (const NoteCopies& each : notes) {
    package.ReplacePart(each.part, [&each, &copies](PartSink& sink) {
      sink.Append(each.prologue);
      std::string xml;
      for (std::size_t copy = 0; copy < copies.count(); ++copy) {
        xml.clear();
        copies.AppendXml(each.program, copy, xml);
        sink.Append(xml);
      }
      sink.Append(each.epilogue);
    });
  }
}

}  // namespace zorkanca::word
