// A Word for tests: one plain text a document, every call that matters written into a journal.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/word/word_application.h"

namespace zorkanca::testing {

/// Lines like "message 48 [title] text", "pointer 11", "open C:\x.htm".
using Journal = std::vector<std::string>;

class FakeDocument;

/// Files and merges are what a test says they are.
class FakeWord final {
 public:
  explicit FakeWord(Journal& lines) : journal(lines) {}

  bool running = false;
  std::int32_t attachError = 0;  ///< raised instead of 429 when Word does not run
  Text version = u"16.0";
  Text templateText;                       ///< main text of every document that is opened
  Text headerText, footerText;             ///< of every merged document
  std::function<Text(const Text&)> merge;  ///< text of the merged document from the main document's; may raise
  bool refusesKind = false;                ///< setting the kind of the main document raises 4605
  bool refusesToOpen = false;              ///< opening raises 5174
  std::string refusedLine;                 ///< the change that would write this line raises 5
  bool isFound = true;                     ///< once started; else attaching to it raises 429
  bool ends = false;                       ///< unseen and without references, Word ends before it is attached to
  bool refusesToExport = false;            ///< ExportAsFixedFormat raises 5
  std::set<Text> formFields;               ///< of every document; others raise 5941
  std::int32_t sections = 1;               ///< of every document; others raise 5941
  std::optional<ExportDocumentArguments> exported;  ///< those of the last export
  std::int32_t windowCount = 1;                     ///< of every document
  std::size_t unitsSearched = 0;                    ///< by all searches; error 18 ends one without end
  WordWindowState windowState = WordWindowState::kNormal;
  WordWindowState documentState = WordWindowState::kNormal;  ///< of every document's window
  Journal& journal;
  std::vector<std::shared_ptr<FakeDocument>> documents;  ///< open ones, in order of creation
  std::shared_ptr<WordApplication> application;          ///< once started

  WordApplicationReference AttachWord();
  WordApplicationReference StartWord();
  WordDocumentReference GetDocument(TextView path);
};

}  // namespace zorkanca::testing
