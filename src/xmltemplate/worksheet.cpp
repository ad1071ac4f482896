#include "xmltemplate/worksheet.h"

#include <utility>

#include "runtime/error.h"
#include "xmltemplate/markers.h"
#include "xmltemplate/template_text.h"

namespace zorkanca {

namespace {

// The sheet with the name in place of the name's symbol and the key behind it, up to the closing quote.
Text WithName(TextView sheet, TextView name, const CodePage& codePage) {
  Text named(sheet);
  const std::size_t start = FindIgnoringCase(sheet, SymbolText(WorksheetNameSymbol));
  if (start == TextView::npos) return named;
  const std::size_t end = sheet.find(u'"', start);
  if (end == TextView::npos)
    Raise(RuntimeError::kInvalidCall, u"The place of the worksheet's name has no closing quote");
  return named.replace(start, end - start, Utf8Encode(name, codePage));
}

}  // namespace

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
  text_ = TaggedText(Text(sheet), codePage);  // what remains when the name has no place
  text_ = TaggedText(WithName(sheet, name_, codePage), codePage);
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
