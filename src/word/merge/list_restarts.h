// Numbered lists begin again in each letter: every copy has list numbers (w:num) of its own.
#pragma once

#include <string>

#include "opc/package.h"
#include "word/document/word_package.h"
#include "word/merge/unique_numbers.h"

namespace zorkanca::word {

class ListRestarts {
 public:
  /// Takes note of the numbered lists of a body; lists that come from a paragraph style are written into the
  /// paragraphs. Bullets need no restart.
  void Gather(WordPackage& package, pugi::xml_node body, UniqueNumbers& numbers);
  /// Gives the package the lists of all copies; produced while it is written.
  void AddTo(Package& package, std::size_t copies) const;

 private:
  struct List {
    NumberStep number;
    std::string beforeNumber;  // XML of a copy's w:num round its number
    std::string afterNumber;
  };

  void Compile(WordPackage& package, const UniqueNumbers& numbers);

  std::string part_;
  std::string prologue_;
  std::string epilogue_;
  std::vector<List> lists_;
};

}  // namespace zorkanca::word
