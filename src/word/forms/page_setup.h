// Margins of sections.
#pragma once

#include <functional>
#include <vector>

#include <pugixml.hpp>

#include "platform/word/word_document.h"

namespace zorkanca::word {

class SectionMargins final : public WordPageSetup {
 public:
  /// @param sections  gives the w:sectPr elements when a margin is set. Errors: 5825 when the document was closed
  /// @param changed   called after a change
  SectionMargins(std::function<std::vector<pugi::xml_node>()> sections, std::function<void()> changed)
      : sections_(std::move(sections)), changed_(std::move(changed)) {}

  void LeftMargin(float points) override { Set("w:left", points); }
  void TopMargin(float points) override { Set("w:top", points); }

 private:
  void Set(const char* side, float points);

  std::function<std::vector<pugi::xml_node>()> sections_;
  std::function<void()> changed_;
};

}  // namespace zorkanca::word
