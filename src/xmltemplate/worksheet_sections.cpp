#include "xmltemplate/worksheet_sections.h"

#include <algorithm>
#include <utility>

#include "runtime/convert.h"
#include "runtime/error.h"
#include "xmltemplate/markers.h"
#include "xmltemplate/template_text.h"

namespace zorkanca {

TaggedText& cExcel2003XmlWorksheetSection::Tagged() {
  if (!factory_) Raise(RuntimeError::kObjectNotSet);
  return text_;
}

WorksheetSectionReference cExcel2003XmlWorksheetSections::Add(Text WorksheetSectionXmlCode, std::int16_t SectionNumber,
                                                              cExcel2003XmlTemplateFactory* XmlProcessFactory) {
  const auto [entry, isNew] = groups_.try_emplace(SectionNumber);
  if (isNew) numbers_.push_back(SectionNumber);
  Group& group = entry->second;
  const std::int32_t index = ++group.lastIndex;
  auto section = std::make_shared<cExcel2003XmlWorksheetSection>(
      TaggedText(std::move(WorksheetSectionXmlCode), *codePage_), SectionNumber, index, XmlProcessFactory);
  group.sections.emplace_hint(group.sections.end(), index, section);
  sections_.push_back(section);
  return section;
}

WorksheetSectionReference cExcel2003XmlWorksheetSections::Find(std::int16_t SectionNumber, std::int32_t index) const {
  const auto group = groups_.find(SectionNumber);
  if (group == groups_.end()) return nullptr;
  const auto found = group->second.sections.find(index);
  return found == group->second.sections.end() ? nullptr : found->second;
}

const WorksheetSectionReference& cExcel2003XmlWorksheetSections::Item(std::int16_t SectionNumber,
                                                                      std::int32_t index) const {
  if (!Find(SectionNumber, index)) Raise(RuntimeError::kInvalidCall);
  return groups_.at(SectionNumber).sections.at(index);
}

void cExcel2003XmlWorksheetSections::Remove(std::int16_t SectionNumber, std::int32_t index) {
  const WorksheetSectionReference section = Item(SectionNumber, index);
  groups_.at(SectionNumber).sections.erase(index);
  sections_.erase(std::find(sections_.begin(), sections_.end(), section));
}

bool cExcel2003XmlWorksheetSections::JoinedText(std::int16_t SectionNumber, Text& text) const {
  const auto group = groups_.find(SectionNumber);
  if (group == groups_.end() || group->second.sections.empty()) return false;
  text.clear();
  for (const auto& [index, section] : group->second.sections) {
    if (index != group->second.sections.begin()->first) text.append(kCrLf);
    text.append(section->XmlCode());
  }
  return true;
}

void ExtractSections(MarkedText& text, cExcel2003XmlWorksheetSections& templates, cExcel2003XmlTemplateFactory* factory,
                     const Locale& locale) {
  const Text beginning = Text(kMarkerStart).append(kSectionBeginStart);
  TextPlace from = text.Begin();
  for (;;) {
    const auto found = text.Find(beginning, from, MarkedText::End());
    if (!found) return;
    const TextPlace numberStart = text.Advance(*found, beginning.size());
    const auto numberEnd = text.Find(u")", numberStart, MarkedText::End());
    if (!numberEnd) return;
    const Value number = text.Copy(numberStart, *numberEnd);
    if (!IsNumeric(number, locale)) return;
    const std::int16_t sectionNumber = ToInteger(number, locale);

    TextPiece* begin = text.FirstMarker(SymbolText(WorksheetSectionBeginSymbol, sectionNumber));
    TextPiece* end = text.FirstMarker(SymbolText(WorksheetSectionEndSymbol, sectionNumber));
    if (!begin || !end) return;
    if (!text.IsBefore(begin, end)) {
      Raise(RuntimeError::kInvalidCall,
            u"Section " + DecimalText(sectionNumber) + u" of the template ends before it begins");
    }
    const Text section = text.Copy(text.After(begin), MarkedText::Before(end));
    const Text placeholder = MarkerText(SymbolText(WorksheetSectionSymbol, sectionNumber));
    from = *found;
    const TextPlace behind = text.Replace(MarkedText::Before(begin), text.After(end), placeholder);
    if (!from.piece->block) from = behind;  // it was this section's beginning
    templates.Add(Text(TrimTrailingBlankLines(TrimLeadingBlankLines(section))), sectionNumber, factory);
  }
}

Text MergeSections(Text text, const cExcel2003XmlWorksheetSections& sections) {
  if (sections.Count() == 0) return text;
  MarkedText merged(std::move(text));
  for (const std::int16_t number : sections.Numbers()) {
    Text joined;
    if (!sections.JoinedText(number, joined)) continue;
    TextPiece* placeholder = merged.FirstMarker(SymbolText(WorksheetSectionSymbol, number));
    if (!placeholder) {
      Raise(RuntimeError::kInvalidCall, u"The worksheet has no place for its section " + DecimalText(number));
    }
    merged.Replace(MarkedText::Before(placeholder), merged.After(placeholder), joined);
  }
  return merged.Whole();
}

}  // namespace zorkanca
