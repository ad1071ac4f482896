// Each copy's header is made as XML, compared with that of the copy before (most merges have runs of equal ones), then
// looked up by its hash among the texts that there are; only the hash and the first copy that shows a text are kept,
// and the text is made again from that copy when it must be compared or written. So memory grows with copies and
// different texts by a few bytes each, never with their XML, and the time is that of making each header once, and once
// more for each that returns after another one.
#include "word/merge/varying_headers.h"

#include <functional>
#include <unordered_map>

#include "opc/xml_document.h"

namespace zorkanca::word {

std::size_t VaryingHeaders::Add(std::string id, std::string part, Program program) {
  byId_[id] = headers_.size();
  headers_.push_back({std::move(id), std::move(part), std::move(program), {}, {}, {}});
  return headers_.size() - 1;
}

void VaryingHeaders::Distribute(const MergedCopies& copies) {
  for (Header& header : headers_) Distribute(header, copies);
}

// Texts are told apart by their hashes first; a text of an equal hash is made again and compared.
void VaryingHeaders::Distribute(Header& header, const MergedCopies& copies) {
  std::unordered_multimap<std::size_t, std::uint32_t> known;
  std::string xml;
  std::string last;
  std::string other;
  header.textOfCopy.reserve(copies.count());
  for (std::size_t copy = 0; copy < copies.count(); ++copy) {
    xml.clear();
    copies.AppendXml(header.program, copy, xml);
    if (copy > 0 && xml == last) {
      header.textOfCopy.push_back(header.textOfCopy.back());
      continue;
    }
    const std::size_t hash = std::hash<std::string>()(xml);
    std::uint32_t text = static_cast<std::uint32_t>(header.firstCopy.size());
    const auto [begin, end] = known.equal_range(hash);
    for (auto candidate = begin; candidate != end; ++candidate) {
      other.clear();
      copies.AppendXml(header.program, header.firstCopy[candidate->second], other);
      if (other == xml) text = candidate->second;
    }
    if (text == header.firstCopy.size()) {
      header.firstCopy.push_back(copy);
      known.emplace(hash, text);
    }
    header.textOfCopy.push_back(text);
    last.swap(xml);
  }
}

std::string VaryingHeaders::IdOf(std::size_t header, std::size_t copy) const {
  const Header& own = headers_[header];
  const std::uint32_t text = own.textOfCopy[copy];
  return text < own.ids.size() ? own.ids[text] : own.id;
}

StoryText& VaryingHeaders::StoryOf(std::size_t header, std::size_t copy, const MergedCopies& copies) {
  const std::uint32_t text = headers_[header].textOfCopy[copy];
  Edited& edited = edited_[{header, text}];
  if (!edited.story) {
    std::string xml;
    copies.AppendXml(headers_[header].program, headers_[header].firstCopy[text], xml);
    edited.document = ParseXml(xml, {std::string(), headers_[header].part});
    edited.story = std::make_unique<TreeStory>(edited.document.document_element(), [] {});
  }
  return *edited.story;
}

PartContent VaryingHeaders::ContentOf(std::size_t header, std::size_t text, const MergedCopies& copies) const {
  if (const auto found = edited_.find({header, text}); found != edited_.end()) return XmlBytes(found->second.document);
  return [this, header, text, &copies](PartSink& sink) {
    std::string xml;
    copies.AppendXml(headers_[header].program, headers_[header].firstCopy[text], xml);
    sink.Append(xml);
  };
}

// The first text takes the template's own part.
void VaryingHeaders::AddTo(Package& package, const std::string& mainPart, const MergedCopies& copies) {
  Relationships relationships = package.RelationshipsOf(mainPart);
  for (std::size_t i = 0; i < headers_.size(); ++i) {
    Header& header = headers_[i];
    const std::string contentType = package.ContentTypeOf(header.part);
    const std::string type = relationships.Find(header.id)->type;
    const std::string ownRelationships = RelationshipsPartOf(header.part);
    const std::string relationshipBytes =
        package.HasPart(ownRelationships) ? package.ReadPart(ownRelationships) : std::string();
    const std::string pattern = header.part.substr(0, header.part.rfind('.')) + "_#.xml";
    header.ids.assign(1, header.id);
    package.ReplacePart(header.part, ContentOf(i, 0, copies));
    for (std::size_t text = 1; text < header.firstCopy.size(); ++text) {
      const std::string part = package.FreshPartName(pattern);
      package.AddPart(part, contentType, ContentOf(i, text, copies));
      header.ids.push_back(relationships.Add(type, part));
      if (relationshipBytes.empty()) continue;
      package.AddPart(RelationshipsPartOf(part), package.ContentTypeOf(ownRelationships), relationshipBytes);
    }
  }
  if (!headers_.empty()) package.SetRelationships(relationships);
}

}  // namespace zorkanca::word
