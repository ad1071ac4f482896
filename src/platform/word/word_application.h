// Word as the product drives it: the application and its documents, with exactly the members that are used, under the
// names of its object model. A member that an implementation does not support raises error 438; none returns quietly.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/word/word_document.h"
#include "runtime/text.h"

namespace zorkanca {

/// Arguments of `Documents.Open`; the defaults are the object model's.
struct OpenDocumentArguments {
  Text FileName = {};
  bool ConfirmConversions = true;
  bool ReadOnly = false;
  bool AddToRecentFiles = true;
  Text PasswordDocument = {};
  Text PasswordTemplate = {};
  bool Revert = false;
  Text WritePasswordDocument = {};
  Text WritePasswordTemplate = {};
  std::int32_t Format = 0;  ///< 0: the application finds out
};

/// The running Word. References to it are shared; the product never quits it.
class WordApplication : public Object {
 public:
  /// `Documents.Add`: a new document based on a template, a blank one for an empty template.
  /// Errors: 5174 when the template is missing, 5 when it cannot be read, with a description that says why.
  virtual WordDocumentReference AddDocument(TextView Template, bool NewTemplate) = 0;
  /// `Documents.Open`. Errors: as `AddDocument`.
  virtual WordDocumentReference OpenDocument(const OpenDocumentArguments& arguments) = 0;
  /// `Documents(index)`, from 1, the document used last first. Errors: 5941 outside the open documents.
  virtual WordDocumentReference Documents(std::int32_t index) = 0;
  /// `Documents.Count`.
  virtual std::int32_t DocumentCount() const = 0;
  /// Errors: 4248 when no document is open.
  virtual WordDocumentReference ActiveDocument() = 0;

  virtual Text Version() const = 0;  ///< for example "16.0"
  virtual bool Visible() const = 0;
  virtual void Visible(bool visible) = 0;
  virtual bool ScreenUpdating() const = 0;
  virtual void ScreenUpdating(bool updating) = 0;
  virtual bool CheckLanguage() const = 0;
  virtual void CheckLanguage(bool check) = 0;
  virtual WordWindowState WindowState() const = 0;
  virtual void WindowState(WordWindowState state) = 0;
  /// `ActiveWindow.WindowState`. Errors: 4248 when no document is open.
  virtual void ActiveWindowState(WordWindowState state) = 0;
  /// Brings the application to the front.
  virtual void Activate() = 0;
  /// Draws the screen anew.
  virtual void ScreenRefresh() = 0;
};
using WordApplicationReference = std::shared_ptr<WordApplication>;

}  // namespace zorkanca
