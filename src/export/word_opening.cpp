#include "export/word_opening.h"

#include <optional>

#include "export/suspended_screen.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr TextView kOpening = u"Otvírá se nový dokument v aplikaci MS Word ...";
constexpr TextView kOpened = u"Dokončeno otvírání nového dokumentu aplikaci MS Word";
constexpr TextView kOpeningFailed = u"Chyba při otvírání dokumentu v aplikaci MS Word: ";

struct AttachedWord {
  WordApplicationReference word;
  bool startedHere = false;
};

AttachedWord Attach(OfficeApplications& office) {
  try {
    return {.word = office.AttachWord()};
  } catch (const Error& error) {
    if (error.number() != static_cast<std::int32_t>(RuntimeError::kCannotCreateObject)) throw;
  }
  office.StartWord();
  return {.word = office.AttachWord(), .startedHere = true};
}

bool IsTemplate(TextView path) {
  const Text lower = LowerCase(Trim(path));
  return lower.ends_with(u".dot") || lower.ends_with(u".dotx");
}

WordDocumentReference OpenIn(WordApplication& word, const Text& path) {
  if (IsBlank(path)) return word.AddDocument({}, /*NewTemplate=*/false);
  if (IsTemplate(path)) return word.AddDocument(path, /*NewTemplate=*/false);
  return word.OpenDocument({.FileName = path, .ConfirmConversions = false, .AddToRecentFiles = false});
}

void Open(const ExportContext& context, GetOpenDocArguments& arguments) {
  const auto [word, startedHere] = Attach(context.platform.office);
  if (arguments.rAppVisible == AppVisible::avFalse) word->Visible(context.settings.WordVisibleWithinDataProcess);
  std::optional<SuspendedScreen> suspended;
  if (!startedHere && arguments.rbScreenUpdating && word->Visible()) {
    suspended.emplace(*word, /*afterwards=*/true);
  } else {
    word->ScreenUpdating(arguments.rbScreenUpdating);
  }
  arguments.roRetDoc = OpenIn(*word, arguments.rsTemplate);
  suspended.reset();
  if (arguments.rAppVisible == AppVisible::avTrue) word->Visible(true);
}

}  // namespace

bool OpenWordDocument(const ExportContext& context, GetOpenDocArguments& arguments) {
  UserInterface& user = context.platform.userInterface;
  context.RaiseExportState(ExportStateValue::esOpenApp, kOpening);
  if (!context.withinDataProcess) user.SetMousePointer(MousePointer::kHourglass);
  Text message(kOpened);
  arguments.roRetDoc = nullptr;
  try {
    Open(context, arguments);
  } catch (...) {
    message = Text(kOpeningFailed).append(ErrorBeingHandled()->description());
    arguments.roRetDoc = nullptr;
  }
  context.RaiseExportState(ExportStateValue::esStill, message);
  user.SetMousePointer(MousePointer::kDefault);
  return arguments.roRetDoc != nullptr;
}

std::int32_t MajorVersion(const WordApplication& word) {
  const Text version = word.Version();
  const TextView trimmed = Trim(version);
  return static_cast<std::int32_t>(Val(trimmed.substr(0, trimmed.find(u'.'))));
}

}  // namespace zorkanca
