// A workbook template taken apart: what stands before the first sheet, the sheets, and what stands behind the last one.
#pragma once

#include <memory>
#include <vector>

#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca {

/// A sheet of a template. Its key stands in brackets behind the symbol of its name; empty when there is none.
struct TemplateSheet {
  TextView text;
  Text key;
};

class WorkbookTemplate {
 public:
  WorkbookTemplate() = default;
  /// Takes the template's text apart. A sheet whose end marker is missing has no key, and belongs to the footer as
  /// well.
  explicit WorkbookTemplate(Text text);

  TextView header() const { return header_; }
  TextView footer() const { return footer_; }
  const std::vector<TemplateSheet>& sheets() const { return sheets_; }

  /// The text of the sheet that a key names: the first one for an empty key, the n-th one for a number of the locale,
  /// else the first one of that key, outer spaces and case ignored. Empty when no sheet has the key. Errors: 9 when
  /// there is no n-th sheet, or no sheet at all; 6 for a number beyond 32 bits.
  TextView SheetText(TextView key, const Locale& locale) const;

 private:
  std::shared_ptr<const Text> text_;  // what the others are parts of
  TextView header_;
  TextView footer_;
  std::vector<TemplateSheet> sheets_;
};

}  // namespace zorkanca
