#include "word/forms/field_result.h"

#include "opc/xml_escape.h"
#include "runtime/error.h"
#include "word/text/text_units.h"
#include "word/xml/word_errors.h"
#include "word/xml/word_xml.h"

namespace zorkanca::word {

void AppendResultText(pugi::xml_node run, TextView text) {
  Text line;
  const auto flush = [&] {
    if (!line.empty()) SetTextOf(run.append_child("w:t"), XmlCharacters(line));
    line.clear();
  };
  for (const char16_t unit : text) {
    if (unit == u'\n' || unit == kLineBreak) {
      flush();
      run.append_child("w:br");
    } else if (unit == u'\t') {
      flush();
      run.append_child("w:tab");
    } else if (unit != u'\r') {
      line += unit;
    }
  }
  flush();
}

bool TruthOf(TextView result) {
  if (result == u"1" || result == u"-1" || EqualsIgnoringCase(result, u"True")) return true;
  if (result.empty() || result == u"0" || EqualsIgnoringCase(result, u"False")) return false;
  Raise(RuntimeError::kInvalidCall, u"A check box takes \"1\" or \"0\".");
}

void RaiseNoFormField(TextView name) {
  RaiseWordError(WordError::kMemberMissing, u"There is no form field " + Text(name) + u".");
}

}  // namespace zorkanca::word
