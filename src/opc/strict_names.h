// Documents in the standard's own, "strict" namespaces, told in those that the office itself writes.
//
// The two families say the same with other URIs: http://purl.oclc.org/ooxml/drawingml/main stands for
// http://schemas.openxmlformats.org/drawingml/2006/main. They occur as whole values of attributes: in declarations of
// namespaces, as types of relationships, as kinds of graphics. A strict package is translated while it is read, so that
// nobody else has to know of a second family, and saved as the office saves it under the usual formats.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zorkanca {

/// The usual URI in place of a strict one; nothing for any other text.
std::optional<std::string> TransitionalUri(std::string_view strict);

/// Translates the XML of a part in UTF-8 on its way; texts, comments and CDATA stay as they are, and so does what is no
/// XML at all. Parts in UTF-16 pass unchanged.
class StrictTranslator {
 public:
  using Take = std::function<void(std::string_view)>;

  /// @param take  gets the translated bytes
  explicit StrictTranslator(Take take) : take_(std::move(take)) {}

  void Append(std::string_view bytes);
  /// To be called at the end of the part.
  void Finish();

 private:
  enum class Place { kText, kMarkup, kTag, kValue, kBeside };

  void Pass(char c);
  void PassInTag(char c);
  void PassInValue(char c);
  void EndValue();

  Take take_;
  std::string out_;
  Place place_ = Place::kText;
  char quote_ = 0;        // round the value
  std::string name_;      // of the attribute that the tag is at
  std::string value_;     // held back while it may be something to translate
  bool holding_ = false;  // whether that is so
  std::string closing_;   // of a comment, a CDATA section, an instruction: what ends it
  std::string tail_;      // the last bytes of one
};

}  // namespace zorkanca
