// cAlternativeOfficeManager: the user's choice of another office package in place of Word and Excel. The settings lie
// in the user's part of the registry, see docs/formats/registry.md: the choice and the programs for all applications of
// the suite together, the folders for created files per application.
#pragma once

#include "foundation/registry_access.h"
#include "platform/platform.h"
#include "runtime/text.h"

namespace zorkanca {

enum class eTypeOfEditor {
  TableEditor = 0,    ///< spreadsheet program, for workbooks
  DocumentEditor = 1  ///< word processor, for documents
};

/// Keeps nothing: what is asked is read, what is saved is written at once. In all members `PrefixAppZorix` is the code
/// of an application of the suite, blanks around it dropped; a blank one stands for none.
/// Errors of all members unless they say otherwise: those of `RegistryAccess`.
class cAlternativeOfficeManager {
 public:
  explicit cAlternativeOfficeManager(const Platform& platform) : platform_(platform) {}

  bool GetUseAlternativeTableEditor() const { return UsesAlternative(eTypeOfEditor::TableEditor); }
  void SaveUseAlternativeTableEditor(bool setting) const { SaveUse(eTypeOfEditor::TableEditor, setting); }
  bool GetUseAlternativeDocumentEditor() const { return UsesAlternative(eTypeOfEditor::DocumentEditor); }
  void SaveUseAlternativeDocumentEditor(bool setting) const { SaveUse(eTypeOfEditor::DocumentEditor, setting); }

  /// Path of the program; empty when none was saved.
  Text GetTableEditorAppPath() const { return AppPath(eTypeOfEditor::TableEditor); }
  Text GetDocumentEditorAppPath() const { return AppPath(eTypeOfEditor::DocumentEditor); }
  void SaveTableEditorAppPath(TextView AppPath) const { SaveAppPath(eTypeOfEditor::TableEditor, AppPath); }
  void SaveDocumentEditorAppPath(TextView AppPath) const { SaveAppPath(eTypeOfEditor::DocumentEditor, AppPath); }

  /// Folder for created files; empty when none was saved.
  Text GetTableEditorStoreFolder(TextView PrefixAppZorix) const {
    return StoreFolder(eTypeOfEditor::TableEditor, PrefixAppZorix);
  }
  Text GetDocumentEditorStoreFolder(TextView PrefixAppZorix) const {
    return StoreFolder(eTypeOfEditor::DocumentEditor, PrefixAppZorix);
  }
  void SaveTableEditorStoreFolder(TextView StoreFolder, TextView PrefixAppZorix) const {
    SaveStoreFolder(eTypeOfEditor::TableEditor, StoreFolder, PrefixAppZorix);
  }
  void SaveDocumentEditorStoreFolder(TextView StoreFolder, TextView PrefixAppZorix) const {
    SaveStoreFolder(eTypeOfEditor::DocumentEditor, StoreFolder, PrefixAppZorix);
  }

  /// Shows the dialog of these settings, modally.
  /// @param OwnerForm  the form that it lies over; may be null
  /// Errors: also those of `UserInterface::ShowModal`.
  void ShowPresetForm(eTypeOfEditor TypeOfEditor, TextView PrefixAppZorix, Form* OwnerForm = nullptr) const;

  /// Starts the saved program on a file and does not wait for its end.
  /// Errors: internal error when the program does not start.
  void OpenFileInTableEditor(TextView fileName) const { OpenFile(fileName, eTypeOfEditor::TableEditor); }
  void OpenFileInDocumentEditor(TextView fileName) const { OpenFile(fileName, eTypeOfEditor::DocumentEditor); }

  /// Looks for the program where programs are installed. @return its path; empty when it is not there
  Text GetDefaultEditorAppPath(eTypeOfEditor TypeOfEditor) const;
  /// Makes the folder "Zorix\<prefix>\Worksheets" (or "Documents") in the temporary folder where it is missing.
  /// @return its path; empty without a temporary folder
  /// Errors: those of the file system.
  Text GetDefaultEditorStoreFolder(eTypeOfEditor TypeOfEditor, TextView PrefixAppZorix) const;
  /// Opens the saved folder, else the default one, in the desktop's program for folders. A folder that is not there is
  /// passed over; a program that fails is told to the user.
  /// @return true when it was opened
  /// Errors: also those of the file system.
  bool OpenEditorStoreFolder(eTypeOfEditor TypeOfEditor, TextView PrefixAppZorix) const;

  /// The settings again, by the kind of editor.
  bool UsesAlternative(eTypeOfEditor type) const;
  void SaveUse(eTypeOfEditor type, bool setting) const;
  Text AppPath(eTypeOfEditor type) const;
  void SaveAppPath(eTypeOfEditor type, TextView path) const;
  Text StoreFolder(eTypeOfEditor type, TextView prefix) const;
  void SaveStoreFolder(eTypeOfEditor type, TextView folder, TextView prefix) const;

 private:
  RegistryAccess getRegister() const;
  void OpenFile(TextView fileName, eTypeOfEditor type) const;

  Platform platform_;
};

}  // namespace zorkanca
