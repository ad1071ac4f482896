// The sections of a worksheet: once its templates, taken out of its text, and once what the client added of them.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "runtime/code_page.h"
#include "runtime/locale.h"
#include "runtime/text.h"
#include "xmltemplate/marked_text.h"
#include "xmltemplate/worksheet_section.h"

namespace zorkanca {

/// A section is told by its number and its index, from 1, among the sections of that number.
class cExcel2003XmlWorksheetSections final : public Object {
 public:
  explicit cExcel2003XmlWorksheetSections(const CodePage& codePage) : codePage_(&codePage) {}

  /// Adds a section as the last of its number. An index is never given twice, not even after `Remove`.
  WorksheetSectionReference Add(Text WorksheetSectionXmlCode, std::int16_t SectionNumber,
                                cExcel2003XmlTemplateFactory* XmlProcessFactory);
  /// Errors: 5 when there is no such section.
  const WorksheetSectionReference& Item(std::int16_t SectionNumber, std::int32_t index) const;
  /// Null when there is no such section.
  WorksheetSectionReference Find(std::int16_t SectionNumber, std::int32_t index) const;
  std::int32_t Count() const { return static_cast<std::int32_t>(sections_.size()); }
  /// Errors: as `Item`.
  void Remove(std::int16_t SectionNumber, std::int32_t index);
  /// All sections in the order in which they were added.
  auto begin() const { return sections_.begin(); }
  auto end() const { return sections_.end(); }

  /// The numbers in the order in which each first appeared.
  const std::vector<std::int16_t>& Numbers() const { return numbers_; }
  /// The texts of a number's sections in their order, a line end between each two.
  /// @return false when there is no section of that number
  bool JoinedText(std::int16_t SectionNumber, Text& text) const;

 private:
  struct Group {
    std::map<std::int32_t, WorksheetSectionReference> sections;  // by index
    std::int32_t lastIndex = 0;
  };

  const CodePage* codePage_;
  std::vector<WorksheetSectionReference> sections_;
  std::vector<std::int16_t> numbers_;
  std::map<std::int16_t, Group> groups_;
};

/// Moves the sections of a worksheet's text to `templates`, each replaced by a placeholder of its number. Stops at one
/// whose number is none, or whose beginning or end is missing.
/// Errors: 5 when a section ends before it begins, 6 for a number beyond 16 bits.
void ExtractSections(MarkedText& text, cExcel2003XmlWorksheetSections& templates, cExcel2003XmlTemplateFactory* factory,
                     const Locale& locale);

/// A worksheet's text with the texts of its sections in place of their placeholders.
/// Errors: 5 when a placeholder is missing.
Text MergeSections(Text text, const cExcel2003XmlWorksheetSections& sections);

}  // namespace zorkanca
