#include "xmltemplate/worksheet.h"

#include <utility>

#include "runtime/error.h"
#include "xmltemplate/markers.h"
#include "xmltemplate/template_text.h"

namespace zorkanca {

cExcel2003XmlWorksheet::cExcel2003XmlWorksheet(Text worksheetName, const Locale& locale)
    : name_(std::move(worksheetName)),
      locale_(&locale),
      text_(Text(), *locale.codePage),
      templateSections_(*locale.codePage),
      sections_(*locale.codePage) {}

TaggedText& cExcel2003XmlWorksheet::Tagged() {
  if (!factory_) Raise(RuntimeError::kObjectNotSet);
  return text_;
}

void cExcel2003XmlWorksheet::Load(TextView sheet) {
  const CodePage& codePage = *locale_->codePage;
  Text text(sheet);
  // The name replaces its symbol and the key behind that, up to the closing quote.
  const std::size_t nameStart = FindIgnoringCase(sheet, SymbolText(WorksheetNameSymbol));
  const std::size_t nameEnd = nameStart == TextView::npos ? nameStart : sheet.find(u'"', nameStart);
  if (nameEnd != TextView::npos) text.replace(nameStart, nameEnd - nameStart, Utf8Encode(name_, codePage));
  const bool mayHaveSections = FindIgnoringCase(text, kSectionBeginStart) != Text::npos;
  text_ = TaggedText(std::move(text), codePage);
  if (nameStart != nameEnd && nameEnd == TextView::npos) {
    Raise(RuntimeError::kInvalidCall, u"The place of the worksheet's name has no closing quote");
  }
  if (!mayHaveSections) return;
  auto withoutSections = std::make_unique<MarkedText>(text_.Whole());
  ExtractSections(*withoutSections, templateSections_, factory_, *locale_);
  text_ = TaggedText(std::move(withoutSections), codePage);
}

WorksheetSectionReference cExcel2003XmlWorksheet::AddWorksheetSection(std::int16_t SectionNumber) {
  const WorksheetSectionReference prototype = templateSections_.Find(SectionNumber, 1);
  return prototype ? sections_.Add(prototype->XmlCode(), SectionNumber, factory_) : nullptr;
}

Text cExcel2003XmlWorksheet::Compose() const {
  Text text = ApplyColumns(MergeSections(text_.Whole(), sections_), columns_);
  text = RemoveEnclosed(std::move(text), kCommentStart, kCommentEnd);
  return RemoveBlankLines(RemoveEnclosed(std::move(text), kMarkerStart, kMarkerEnd));
}

}  // namespace zorkanca
