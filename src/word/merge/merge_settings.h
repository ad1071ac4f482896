// What a template's own settings say about its merge (w:settings/w:mailMerge).
#pragma once

#include "platform/word/mail_merge.h"
#include "word/document/word_package.h"

namespace zorkanca::word {

struct MergeSettings {
  MainDocumentType type = MainDocumentType::kNotAMergeDocument;
  bool suppressBlankLines = true;
};

MergeSettings ReadMergeSettings(WordPackage& package);
/// Takes the settings away with the relationships to data sources and the parts that these alone lead to.
void RemoveMergeSettings(WordPackage& package);

}  // namespace zorkanca::word
