// GetOpenDoc: the one way in which the exports get Word and a document in it.
#pragma once

#include "export/export_context.h"
#include "export/export_types.h"
#include "platform/word/word_application.h"

namespace zorkanca {

/// The first document of an export could not be opened.
inline constexpr TextView kWordNotOpened = u"Nepodařilo se otevřít aplikaci MS Word !";
/// A further one could not.
inline constexpr TextView kDocumentNotOpened = u"Nepodařilo se otevřít dokument v aplikaci MS Word !";

/// Arguments of GetOpenDoc under their published names.
struct GetOpenDocArguments {
  /// Empty for a blank document; a path ending in .dot or .dotx gives a new document based on it; any other file is
  /// opened itself.
  Text rsTemplate{};
  WordDocumentReference roRetDoc{};  ///< receives the document; null after a failure
  AppVisible rAppVisible = AppVisible::avTrue;
  bool rbScreenUpdating = true;
};

/// Attaches to the running Word, or starts it, and opens the document. Failures are told by ExportState.
/// @return true when the document is open
bool OpenWordDocument(const ExportContext& context, GetOpenDocArguments& arguments);

/// The number before the first "." of the application's version: 16 of "16.0".
std::int32_t MajorVersion(const WordApplication& word);

}  // namespace zorkanca
