// Walks over XML that the strict gate has passed, tag by tag, without building anything: sheets have millions of cells.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace zorkanca::excel {

/// The tokens of a well-formed UTF-8 text. Comments, processing instructions and declarations are passed over.
class XmlScanner {
 public:
  enum class Token {
    kStart,  ///< <name ...>
    kEmpty,  ///< <name .../>
    kEnd,    ///< </name>
    kText,   ///< character data with its references, or a CDATA section
    kDone,
  };

  explicit XmlScanner(std::string_view xml) : xml_(xml) {}

  Token Next();
  /// Name of a tag with its prefix.
  std::string_view name() const { return name_; }
  /// What stands between the name and the end of a start tag.
  std::string_view attributes() const { return attributes_; }
  /// Offsets of the token in the text.
  std::size_t begin() const { return begin_; }
  std::size_t end() const { return end_; }
  /// Appends the characters of a text token, references resolved.
  void AppendCharacters(std::string& text) const;
  /// After a start token: goes on behind the end of that element.
  void SkipElement();
  /// After a start token: the characters inside the element, those of inner elements too; goes on behind its end.
  std::string ReadCharacters();

 private:
  Token ReadTag();

  std::string_view xml_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  std::string_view name_;
  std::string_view attributes_;
  bool cdata_ = false;
};

/// Takes the next attribute off the front of an attribute text.
/// @return false when there is none
bool TakeAttribute(std::string_view& attributes, std::string_view& name, std::string_view& rawValue);
/// The raw value of an attribute, if there is one.
std::optional<std::string_view> FindAttribute(std::string_view attributes, std::string_view name);
/// The same, empty without one.
inline std::string_view AttributeText(std::string_view attributes, std::string_view name) {
  return FindAttribute(attributes, name).value_or(std::string_view());
}
/// Appends the attributes but for those of these names, a blank in front of each.
void AppendAttributesBut(std::string& xml, std::string_view attributes, std::initializer_list<std::string_view> names);
/// Appends a raw value or text with its references resolved.
void AppendResolved(std::string& text, std::string_view raw);

}  // namespace zorkanca::excel
