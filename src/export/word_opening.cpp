#include "export/word_opening.h"

#include "export/office_opening.h"
#include "runtime/convert.h"

namespace zorkanca {

namespace {

constexpr OpeningTexts kTexts = {
    .opening = u"Otvírá se nový dokument v aplikaci MS Word ...",
    .opened = u"Dokončeno otvírání nového dokumentu aplikaci MS Word",
    .failed = u"Chyba při otvírání dokumentu v aplikaci MS Word: ",
};

bool IsTemplate(TextView path) {
  const Text lower = LowerCase(Trim(path));
  return lower.ends_with(u".dot") || lower.ends_with(u".dotx");
}

WordDocumentReference OpenIn(WordApplication& word, const Text& path) {
  if (IsBlank(path)) return word.AddDocument({}, /*NewTemplate=*/false);
  if (IsTemplate(path)) return word.AddDocument(path, /*NewTemplate=*/false);
  return word.OpenDocument({.FileName = path, .ConfirmConversions = false, .AddToRecentFiles = false});
}

}  // namespace

bool OpenWordDocument(const ExportContext& context, GetOpenDocArguments& arguments) {
  arguments.roRetDoc = nullptr;
  const bool opened = TellOfOpening(context, kTexts, /*showsHourglass=*/!context.withinDataProcess, [&] {
    const auto attached =
        AttachOrStart(context.platform.office, &OfficeApplications::AttachWord, &OfficeApplications::StartWord);
    const OpeningView view = {.visible = arguments.rAppVisible,
                              .visibleWithinDataProcess = context.settings.WordVisibleWithinDataProcess,
                              .screenUpdating = arguments.rbScreenUpdating};
    OpenUnseen(attached, view, [&](WordApplication& word) {
      context.platform.userInterface.ProcessPendingEvents();
      arguments.roRetDoc = OpenIn(word, arguments.rsTemplate);
    });
  });
  if (!opened) arguments.roRetDoc = nullptr;
  return opened;
}

std::int32_t MajorVersion(const WordApplication& word) {
  const Text version = word.Version();
  const TextView trimmed = Trim(version);
  return static_cast<std::int32_t>(Val(trimmed.substr(0, trimmed.find(u'.'))));
}

}  // namespace zorkanca
