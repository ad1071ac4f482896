// Commands around the office applications: the alternative office package, what is installed, opening documents.
#include <array>
#include <memory>

#include "cli/command_line.h"
#include "cli/document_kinds.h"
#include "cli/host_platform.h"
#include "cli/input_check.h"
#include "office/alternative_office_manager.h"
#include "office/kancel_apl.h"
#include "runtime/nearest_name.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

int StatusOf(bool done, const CommandContext& context) {
  return done ? kDone : context.interrupted ? kInterrupted : kFailed;
}

Text AbsolutePathOf(const CommandContext& context, const std::string& path) {
  return context.platform.files.GetAbsolutePathName(FromUtf8(path));
}

void AddInstalled(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("installed", "Tell whether Word and Excel are installed");
  command->callback([&chosen] {
    chosen = [](const CommandContext& context) {
      const cKancelApl applications(context.platform);
      context.report.Value(applications.DocEditorInstalovan() ? u"word 1" : u"word 0");
      context.report.Value(applications.XlsEditorInstalovan() ? u"excel 1" : u"excel 0");
      return kDone;
    };
  });
}

void AddOpen(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("open", "Open a document in Word or a workbook in Excel, by its extension");
  const auto file = std::make_shared<std::string>();
  command->add_option("FILE", *file, "document or workbook")->required();
  command->callback([&chosen, file] {
    chosen = [file](const CommandContext& context) {
      const Text path = AbsolutePathOf(context, *file);
      const bool isForExcel = IsForExcel(path);
      RequireFile(context, path);
      cKancelApl applications(context.platform);
      WordDocumentReference document;
      ExcelWorkbookReference workbook;
      const bool done = isForExcel ? applications.OtevriXls(path, workbook) : applications.OtevriDoc(path, document);
      if (!done) context.report.Failure(FromUtf8(*file) + u" could not be opened, see the error log");
      // Our engines have no windows of their own.
      if (done && HasDisplay()) context.platform.shell.OpenDocument(path);
      return StatusOf(done, context);
    };
  });
}

// --- the alternative office package --------------------------------------------------------------------------------

struct AlternativeOptions {
  std::string key;
  std::string value;
  std::string file;
  std::string kind;
  std::string prefix;
  bool table = false;
  bool document = false;

  eTypeOfEditor Type() const {
    return table || kind == "table" ? eTypeOfEditor::TableEditor : eTypeOfEditor::DocumentEditor;
  }
  Text Prefix() const { return FromUtf8(prefix); }
};

// One of the settings under its published name.
struct Setting {
  TextView key;
  Text (*read)(const cAlternativeOfficeManager& manager, const Text& prefix);
  void (*save)(const cAlternativeOfficeManager& manager, const std::string& value, const Text& prefix);
};

template <eTypeOfEditor kType>
constexpr std::array<Setting, 3> SettingsOfType(TextView useKey, TextView programKey, TextView folderKey) {
  using Manager = cAlternativeOfficeManager;
  return {
      {{useKey, [](const Manager& manager, const Text&) { return Text(manager.UsesAlternative(kType) ? u"1" : u"0"); },
        [](const Manager& manager, const std::string& value, const Text&) {
          if (value != "0" && value != "1") throw UsageError("the value is 0 or 1");
          manager.SaveUse(kType, value == "1");
        }},
       {programKey, [](const Manager& manager, const Text&) { return manager.AppPath(kType); },
        [](const Manager& manager, const std::string& value, const Text&) {
          manager.SaveAppPath(kType, FromUtf8(value));
        }},
       {folderKey, [](const Manager& manager, const Text& prefix) { return manager.StoreFolder(kType, prefix); },
        [](const Manager& manager, const std::string& value, const Text& prefix) {
          manager.SaveStoreFolder(kType, FromUtf8(value), prefix);
        }}}};
}

std::vector<Setting> AllSettings() {
  std::vector<Setting> all;
  for (const auto& settings :
       {SettingsOfType<eTypeOfEditor::TableEditor>(u"UseAlternativeTableEditor", u"TableEditorAppPath",
                                                   u"TableEditorStoreFolder"),
        SettingsOfType<eTypeOfEditor::DocumentEditor>(u"UseAlternativeDocumentEditor", u"DocumentEditorAppPath",
                                                      u"DocumentEditorStoreFolder")}) {
    all.insert(all.end(), settings.begin(), settings.end());
  }
  return all;
}

Setting FindSetting(const std::string& key) {
  const Text wanted = FromUtf8(key);
  std::string known;
  std::vector<std::string> names;
  for (const Setting& setting : AllSettings()) {
    if (EqualsIgnoringCase(setting.key, wanted)) return setting;
    names.push_back(ToUtf8(setting.key));
    known += " " + names.back();
  }
  const std::string nearest = NearestName(key, names);
  throw UsageError("no such setting: " + key +
                   (nearest.empty() ? "; known are" : "; did you mean " + nearest + "? Known are") + known);
}

int GetSettings(const CommandContext& context, const AlternativeOptions& options) {
  const cAlternativeOfficeManager manager(context.platform);
  if (!options.key.empty()) {
    context.report.Value(FindSetting(options.key).read(manager, options.Prefix()));
    return kDone;
  }
  for (const Setting& setting : AllSettings()) {
    context.report.Value(Text(setting.key) + u"\t" + setting.read(manager, options.Prefix()));
  }
  return kDone;
}

int SetSetting(const CommandContext& context, const AlternativeOptions& options) {
  const cAlternativeOfficeManager manager(context.platform);
  FindSetting(options.key).save(manager, options.value, options.Prefix());
  return kDone;
}

int DefaultFolder(const CommandContext& context, const AlternativeOptions& options) {
  const cAlternativeOfficeManager manager(context.platform);
  context.report.Value(manager.GetDefaultEditorStoreFolder(options.Type(), options.Prefix()));
  return kDone;
}

int DefaultProgram(const CommandContext& context, const AlternativeOptions& options) {
  const cAlternativeOfficeManager manager(context.platform);
  context.report.Value(manager.GetDefaultEditorAppPath(options.Type()));
  return kDone;
}

int OpenStoreFolder(const CommandContext& context, const AlternativeOptions& options) {
  const cAlternativeOfficeManager manager(context.platform);
  return manager.OpenEditorStoreFolder(options.Type(), options.Prefix()) ? kDone : kFailed;
}

int ShowDialog(const CommandContext& context, const AlternativeOptions& options) {
  const cAlternativeOfficeManager manager(context.platform);
  manager.ShowPresetForm(options.Type(), options.Prefix());
  return kDone;
}

int OpenFile(const CommandContext& context, const AlternativeOptions& options) {
  const cAlternativeOfficeManager manager(context.platform);
  const Text path = AbsolutePathOf(context, options.file);
  RequireFile(context, path);
  if (options.table) {
    manager.OpenFileInTableEditor(path);
  } else {
    manager.OpenFileInDocumentEditor(path);
  }
  return kDone;
}

using Operation = int (*)(const CommandContext&, const AlternativeOptions&);

class AlternativeCommands {
 public:
  AlternativeCommands(CLI::App& app, Command& chosen)
      : group_(*app.add_subcommand("alternative", "Another office package in place of Word and Excel")),
        chosen_(chosen) {
    group_.require_subcommand(1);
  }

  CLI::App* Add(const char* name, const char* description, Operation operation) {
    CLI::App* command = group_.add_subcommand(name, description);
    command->callback([&chosen = chosen_, options = options_, operation] {
      chosen = [options, operation](const CommandContext& context) { return operation(context, *options); };
    });
    return command;
  }
  void AddPrefix(CLI::App* command) {
    command->add_option("--prefix", options_->prefix,
                        "code of the application that the folder belongs to (default: none)");
  }
  CLI::App* AddForKind(const char* name, const char* description, Operation operation) {
    CLI::App* command = Add(name, description, operation);
    command->add_option("KIND", options_->kind, "table or document")
        ->required()
        ->check(CLI::IsMember({"table", "document"}));
    return command;
  }
  AlternativeOptions& options() { return *options_; }

 private:
  CLI::App& group_;
  Command& chosen_;
  std::shared_ptr<AlternativeOptions> options_ = std::make_shared<AlternativeOptions>();
};

void AddAlternative(CLI::App& app, Command& chosen) {
  AlternativeCommands commands(app, chosen);
  AlternativeOptions& options = commands.options();
  CLI::App* get = commands.Add("get", "Print the settings, or one of them", GetSettings);
  get->add_option("KEY", options.key, "setting; without it all");
  commands.AddPrefix(get);
  CLI::App* set = commands.Add("set", "Change a setting", SetSetting);
  set->add_option("KEY", options.key, "setting")->required();
  set->add_option("VALUE", options.value, "its value; 0 or 1 for the choice itself")->required();
  commands.AddPrefix(set);
  commands.AddPrefix(commands.AddForKind("default", "Print the default folder for created files", DefaultFolder));
  commands.AddForKind("program", "Print the program that is found on this computer", DefaultProgram);
  commands.AddPrefix(commands.AddForKind("folder", "Open the folder for created files", OpenStoreFolder));
  commands.AddPrefix(commands.AddForKind("dialog", "Show the dialog of the settings", ShowDialog));
  CLI::App* open = commands.Add("open", "Open a file in the alternative program", OpenFile);
  open->add_option("FILE", options.file, "file to open")->required();
  CLI::App* kinds = open->add_option_group("kind");
  kinds->add_flag("--table", options.table, "in the spreadsheet program");
  kinds->add_flag("--document", options.document, "in the word processor");
  kinds->require_option(1);
}

}  // namespace

void AddOfficeCommands(CLI::App& app, Command& chosen) {
  AddInstalled(app, chosen);
  AddOpen(app, chosen);
  AddAlternative(app, chosen);
}

}  // namespace zorkanca::cli
