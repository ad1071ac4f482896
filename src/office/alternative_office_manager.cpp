#include "office/alternative_office_manager.h"

#include "foundation/application_name.h"
#include "foundation/argument_details.h"
#include "foundation/folders.h"
#include "foundation/guarded.h"
#include "foundation/windows_shell_api.h"
#include "office/alternative_office_preset.h"
#include "platform/paths.h"
#include "runtime/convert.h"

namespace zorkanca {

namespace {

constexpr TextView kSection = u"AlternativeOffice";

// What the settings and defaults of one kind of editor are called.
struct EditorNames {
  TextView useKey;
  TextView programKey;
  TextView folderKey;
  TextView program;  // file name without extension
  TextView folder;
};

const EditorNames& NamesOf(eTypeOfEditor type) {
  static constexpr EditorNames kTable{.useKey = u"UseAlternativeTableEditor",
                                      .programKey = u"TableEditorAppPath",
                                      .folderKey = u"TableEditorStoreFolder",
                                      .program = u"scalc",
                                      .folder = u"Worksheets"};
  static constexpr EditorNames kDocument{.useKey = u"UseAlternativeDocumentEditor",
                                         .programKey = u"DocumentEditorAppPath",
                                         .folderKey = u"DocumentEditorStoreFolder",
                                         .program = u"swriter",
                                         .folder = u"Documents"};
  return type == eTypeOfEditor::TableEditor ? kTable : kDocument;
}

// Folders are kept for each application of the suite apart.
Text FolderSection(TextView prefix) {
  const TextView trimmed = Trim(prefix);
  if (trimmed.empty()) return Text(kSection);
  return Text(trimmed).append(u"\\").append(kSection);
}

// As one word of a command line; other systems than the one that this comes from allow quotation marks in names.
Text Quoted(TextView path) {
  return u"\"" + Replace(path, u"\"", u"\"\"") + u"\"";
}

}  // namespace

RegistryAccess cAlternativeOfficeManager::getRegister() const {
  return Guarded(u"cAlternativeOfficeManager.getRegister", NoArguments, [&] {
    RegistryAccess access(platform_.registry);
    access.SetApplicationName(kApplicationName);
    return access;
  });
}

bool cAlternativeOfficeManager::UsesAlternative(eTypeOfEditor type) const {
  return Val(getRegister().GetSetting(kSection, NamesOf(type).useKey, u"0")) != 0;
}

void cAlternativeOfficeManager::SaveUse(eTypeOfEditor type, bool setting) const {
  getRegister().SaveSetting(kSection, NamesOf(type).useKey, setting ? u"1" : u"0");
}

Text cAlternativeOfficeManager::AppPath(eTypeOfEditor type) const {
  return getRegister().GetSetting(kSection, NamesOf(type).programKey, {});
}

void cAlternativeOfficeManager::SaveAppPath(eTypeOfEditor type, TextView path) const {
  getRegister().SaveSetting(kSection, NamesOf(type).programKey, path);
}

Text cAlternativeOfficeManager::StoreFolder(eTypeOfEditor type, TextView prefix) const {
  return getRegister().GetSetting(FolderSection(prefix), NamesOf(type).folderKey, {});
}

void cAlternativeOfficeManager::SaveStoreFolder(eTypeOfEditor type, TextView folder, TextView prefix) const {
  getRegister().SaveSetting(FolderSection(prefix), NamesOf(type).folderKey, folder);
}

void cAlternativeOfficeManager::ShowPresetForm(eTypeOfEditor TypeOfEditor, TextView PrefixAppZorix,
                                               Form* OwnerForm) const {
  frmAlternativeOfficePreset form(platform_);
  form.TypeOfEditor = TypeOfEditor;
  form.PrefixAppZorix = UpperCase(Trim(PrefixAppZorix));
  platform_.userInterface.ShowModal(form, OwnerForm);
}

void cAlternativeOfficeManager::OpenFile(TextView fileName, eTypeOfEditor type) const {
  Guarded(u"cAlternativeOfficeManager.OpenFile",
          ArgumentDetails({{u"fileName", fileName}, {u"TypeOfEditor", static_cast<std::int64_t>(type)}}),
          [&] { platform_.shell.StartCommandLine(Quoted(AppPath(type)) + u" " + Quoted(fileName)); });
}

Text cAlternativeOfficeManager::GetDefaultEditorAppPath(eTypeOfEditor TypeOfEditor) const {
  const ProgramPlaces places = platform_.shell.Programs();
  Text name(NamesOf(TypeOfEditor).program);
  if (!places.extension.empty()) name.append(u".").append(places.extension);
  for (const Text& folder : places.folders) {
    const Text found = platform_.shell.SearchTree(BuildPath(platform_.files, folder, {}), name);
    if (!found.empty()) return found;
  }
  return {};
}

Text cAlternativeOfficeManager::GetDefaultEditorStoreFolder(eTypeOfEditor TypeOfEditor, TextView PrefixAppZorix) const {
  FileSystem& files = platform_.files;
  Text folder = files.TemporaryFolder();
  if (folder.empty()) return {};
  if (folder.find(u'~') != Text::npos) folder = platform_.shell.LongPathName(folder);
  for (const TextView part : {TextView(u"Zorix"), Trim(PrefixAppZorix), NamesOf(TypeOfEditor).folder}) {
    if (part.empty()) continue;
    folder = BuildPath(files, folder, part);
    MakeFolder(files, folder);
  }
  return folder;
}

bool cAlternativeOfficeManager::OpenEditorStoreFolder(eTypeOfEditor TypeOfEditor, TextView PrefixAppZorix) const {
  Text folder = StoreFolder(TypeOfEditor, PrefixAppZorix);
  if (folder.empty()) folder = GetDefaultEditorStoreFolder(TypeOfEditor, PrefixAppZorix);
  if (folder.empty() || !platform_.files.FolderExists(folder)) return false;
  return WindowsShellApi::OpenInApplication(platform_, folder);
}

}  // namespace zorkanca
