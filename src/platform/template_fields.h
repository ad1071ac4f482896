// What a template asks for.
#pragma once

#include <cstdint>
#include <vector>

#include "runtime/text.h"

namespace zorkanca {

enum class TemplateFieldKind {
  kField,    ///< a merge field of Word, or a placeholder «name» of a header or footer
  kRegion,   ///< rows of a workbook that are repeated
  kForm,     ///< a form field or a content control
  kPicture,  ///< a picture that a column names
  kBarcode,  ///< the bar code of a record
  kCell,     ///< a placeholder of a cell, {name}
  kMarker,   ///< a marker of a spreadsheet-XML template
};

struct TemplateField {
  TemplateFieldKind kind = TemplateFieldKind::kField;
  Text name{};
  std::int32_t count = 1;  ///< how often it stands in the template
};

/// Fields in the order of their first places; equal ones (case ignored) are counted.
class TemplateFieldList {
 public:
  void Add(TemplateFieldKind kind, TextView name) {
    for (TemplateField& field : fields_) {
      if (field.kind != kind || !EqualsIgnoringCase(field.name, name)) continue;
      ++field.count;
      return;
    }
    fields_.push_back({.kind = kind, .name = Text(name)});
  }
  std::vector<TemplateField> Take() { return std::move(fields_); }

 private:
  std::vector<TemplateField> fields_;
};

}  // namespace zorkanca
