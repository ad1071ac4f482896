#include "export/template_choice.h"

#include <utility>

#include "export/export_failure.h"
#include "foundation/registry_access.h"
#include "platform/paths.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr TextView kInstallationKey = u"SOFTWARE\\QRD\\Zorix\\Instalace";
constexpr TextView kDefaultFolder = u"C:\\Program Files\\QRD\\Zorix\\Sablony";

Text InSharedFolder(const ExportContext& context, TextView name) {
  const RegistryAccess access(context.platform.registry);
  const Text folder = access.ReadValue(RegistryHive::kLocalMachine, kInstallationKey, u"sablony", kDefaultFolder);
  return PathInFolder(context.platform.files, folder, name);
}

// The list that a name in brackets means; a bracket that nothing closes takes the rest.
std::optional<Text> ListNameIn(TextView name) {
  const std::size_t open = name.find(u'[');
  if (open == TextView::npos || name.find(u']') == TextView::npos) return std::nullopt;
  const TextView rest = name.substr(open + 1);
  return Text(Trim(rest.substr(0, rest.find(u']'))));
}

}  // namespace

TemplateChoice::TemplateChoice(const ExportContext& context, ApplOffice kind, TemplateArguments& arguments)
    : context_(context), kind_(kind), arguments_(arguments), source_(Source::kList) {
  if (const std::optional<Text> list = ListNameIn(arguments.rsTemplate)) {
    listName_ = *list;
  } else {
    source_ = FindFile();
  }
}

TemplateChoice::Source TemplateChoice::FindFile() {
  Text& name = arguments_.rsTemplate;
  FileSystem& files = context_.platform.files;
  std::vector<Text> places{name};
  if (GetParentFolderName(name).empty()) {
    if (IsBlank(name)) return Source::kList;
    places = {InSharedFolder(context_, name)};
    if (context_.preferences.currentFolder) places.push_back(files.GetAbsolutePathName(name));
  }
  for (const Text& path : places) {
    if (!files.FileExists(path)) continue;
    name = path;
    return Source::kFile;
  }
  return Missing(places);
}

TemplateChoice::Source TemplateChoice::Missing(const std::vector<Text>& places) {
  FileSystem& files = context_.platform.files;
  RuntimeError number = RuntimeError::kFileNotFound;
  Text description = u"The template was not found: ";
  Text separator;
  for (const Text& place : places) {
    // The shared folder stands as the installation has it; what the caller wrote is read from the current folder on.
    const bool isShared = places.size() > 1 && &place == &places.front();
    const Text path = isShared ? place : files.GetAbsolutePathName(place);
    if (files.FolderExists(path)) {
      number = RuntimeError::kPathFileAccess;
      description = Text(u"The template is a folder: ").append(path);
      break;
    }
    description.append(std::exchange(separator, u", ")).append(path);
  }
  missing_ = Error(static_cast<std::int32_t>(number), Text(), std::move(description));
  return Source::kNothing;
}

void TemplateChoice::RequireExisting() const {
  if (source_ == Source::kNothing) StopExport(kInvalidTemplateName, *missing_);
}

bool TemplateChoice::Settle() {
  RequireExisting();
  if (source_ == Source::kFile) return true;
  if (!context_.templateList) Raise(RuntimeError::kNotSupported, u"not supported: TemplateList");
  TemplateListArguments list{.rsZorApl = arguments_.rsZorApl,
                             .TypeOfApplOffice = kind_,
                             .rbAdmin = arguments_.rbAdmin,
                             .rsListName = listName_,
                             .rsCaption = arguments_.rsListCaption,
                             .Supply = arguments_.rbSupply};
  arguments_.rsTemplate = context_.templateList(list);
  return !arguments_.rsTemplate.empty();
}

}  // namespace zorkanca
