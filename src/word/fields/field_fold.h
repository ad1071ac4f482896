// Makes one shape of the two forms of fields: every field that can be taken as a whole becomes an element "zk:field"
// around its runs, whatever they were split into. Such trees are an intermediate form; they are never saved
// (xml/own_elements.h).
#pragma once

#include <pugixml.hpp>
#include <vector>

#include "runtime/text.h"

namespace zorkanca::word {

/// Folds the fields of a container and of all containers inside it (cells, text boxes).
/// Fields that do not close in their container, or that the merge does not evaluate and that span paragraphs, stay as
/// they are.
void FoldFields(pugi::xml_node container);

/// Gives each child of a run with field characters a run of its own, in a whole tree.
void SplitFieldRuns(pugi::xml_node tree);

/// The parts of a folded field.
class FoldedField {
 public:
  explicit FoldedField(const pugi::xml_node& field);

  const pugi::xml_node& node() const { return node_; }
  TextView type() const { return type_; }
  bool locked() const { return locked_; }
  /// Nodes between begin and separate, and between separate and end.
  const std::vector<pugi::xml_node>& code() const { return code_; }
  const std::vector<pugi::xml_node>& result() const { return result_; }

 private:
  pugi::xml_node node_;
  Text type_;
  bool locked_ = false;
  std::vector<pugi::xml_node> code_;
  std::vector<pugi::xml_node> result_;
};

/// True for a formula: its code begins with "=", which the rest of its first word may touch.
inline bool IsFormulaType(TextView type) {
  return type.starts_with(u'=');
}
/// True when the merge evaluates fields of this type (upper case): MERGEFIELD, IF, NEXT, ...
bool IsEvaluatedType(TextView type);

}  // namespace zorkanca::word
