// A Word package with the trees of the parts that somebody asked for; the others stay as they are.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "opc/package.h"

namespace zorkanca::word {

class WordPackage {
 public:
  /// Takes the package as a document: a template becomes one.
  /// Errors: 5 when it is no Word package.
  explicit WordPackage(Package package);
  /// An empty document.
  static WordPackage Blank();

  WordPackage(WordPackage&&) = default;
  WordPackage& operator=(WordPackage&&) = default;

  /// Reads what nearly every document needs, so that copies find it read: the body, the settings, other parts to fill.
  /// Errors: 5 for a part that is missing or not sound.
  void Prepare();
  /// An independent package with copies of the trees.
  WordPackage Copy() const;

  const std::string& mainPart() const { return mainPart_; }
  const std::string& file() const { return package_.path(); }

  /// The tree of a part, with the usual prefixes and without layout. Errors: 5 for a part that is missing or not sound.
  pugi::xml_document& Tree(const std::string& part);
  /// To be called after a tree was changed: the part is then written from it.
  void Changed(const std::string& part) { trees_.at(part).changed = true; }
  pugi::xml_node Body();

  /// The part that the main part's relationship of this kind leads to.
  std::optional<std::string> Related(std::string_view kind) const { return package_.RelatedPart(mainPart_, kind); }
  /// The parts beside the main one that hold content controls: headers, footers, notes.
  const std::vector<std::string>& ControlParts();
  /// The settings, made when they are missing.
  pugi::xml_document& Settings();
  void SettingsChanged() { Changed(settingsPart_); }

  /// Parts, relationships and content types, for changes that need no tree. Trees count over what it holds.
  Package& package() { return package_; }
  /// The package with all changes.
  Package Written() const;

 private:
  WordPackage() = default;

  struct PartTree {
    std::unique_ptr<pugi::xml_document> document;
    bool changed = false;
  };

  Package package_;
  std::string mainPart_;
  std::string settingsPart_;
  std::optional<std::vector<std::string>> controlParts_;  // once somebody asked
  std::map<std::string, PartTree> trees_;
};

/// Takes the macros out of a package that is to be a document without them.
void RemoveMacros(Package& package, const std::string& mainPart);

}  // namespace zorkanca::word
