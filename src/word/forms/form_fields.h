// The fields of a form that can be filled, by their names: form fields (w:ffData) of the main text, and content
// controls (w:sdt) of all texts by their tags where no form field has that name.
#pragma once

#include <map>
#include <pugixml.hpp>
#include <set>
#include <string>
#include <vector>

#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca::word {

/// A form field: the element with its properties and the field characters round its code and result.
struct FormField {
  pugi::xml_node data;      // w:ffData
  pugi::xml_node begin;     // w:fldChar elements
  pugi::xml_node separate;  // may be missing
  pugi::xml_node end;
};

/// Found once for a tree; no longer valid after somebody else has changed that tree, nor when it is stale.
class FormFields {
 public:
  /// The tree of a part beside the main one.
  struct Part {
    std::string name;
    pugi::xml_node root;
  };

  /// Gives each field character of the body a run of its own, too.
  /// @param others  parts whose content controls are filled; form fields stand in the main text alone
  FormFields(pugi::xml_node body, const std::vector<Part>& others);

  /// True once a new result has replaced other fields.
  bool stale() const { return stale_; }

  /// The result of a field: its text; "1" or "0" of a check box; the chosen entry of a list.
  /// @param name  compared ignoring case
  /// Errors: 5941 when there is neither a form field nor a content control of that name.
  Text Result(TextView name) const;

  /// Sets it. The text takes the format of the old result; an empty one is shown as five blanks, as Word does. All
  /// content controls of the name are filled.
  /// Errors: 5941; 4609 for a text longer than the field takes; 5 for a list without that entry, for a check box that
  /// is given no truth value (1, -1, True; 0, False, nothing) and for a control that takes no text.
  /// @return the names of other parts that it changed
  std::set<std::string> SetResult(TextView name, TextView result, const Locale& locale);

 private:
  class Gatherer;

  std::set<std::string> SetControls(TextView tag, TextView result);

  struct Control {
    pugi::xml_node node;
    std::string part;  // "" for the body
  };

  std::map<Text, FormField> fields_;               // by lower-cased name
  std::map<Text, std::vector<Control>> controls_;  // by lower-cased tag
  bool nested_ = false;                            // there are fields inside others
  bool stale_ = false;
};

}  // namespace zorkanca::word
