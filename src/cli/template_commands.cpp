// Commands that show and change the lists of registered templates.
#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <optional>

#include "cli/command_line.h"
#include "host/console/console_user_interface.h"
#include "platform/paths.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/utf8.h"
#include "templates/seznam_sablon_office.h"
#include "templates/template_lists.h"

namespace zorkanca::cli {

namespace {

struct TemplateOptions {
  std::string application;
  std::string list;
  std::string type = "all";
  bool json = false;
  std::int32_t position = 0;
  std::optional<std::string> file;
  std::optional<std::string> description;
  std::optional<std::int32_t> id;
  std::optional<std::int32_t> before;
  bool admin = false;
  std::string caption;
};

ApplOffice TypeNamed(const std::string& name) {
  if (name == "word") return ApplOffice::MSWord;
  if (name == "excel") return ApplOffice::MSExcel;
  return name == "sds" ? ApplOffice::SDS : ApplOffice::AllTypes;
}

// A user who is told nothing until a list is loaded.
class QuietWhileLoading final : public UserInterface {
 public:
  explicit QuietWhileLoading(UserInterface& user) : user_(user) {}

  void Speak() { speaks_ = true; }

  MessageAnswer Show(const Message& message) override {
    const bool isQuestion = message.buttons != MessageButtons::kOk;
    return speaks_ || isQuestion ? user_.Show(message) : MessageAnswer::kOk;
  }
  void SetMousePointer(MousePointer pointer) override { user_.SetMousePointer(pointer); }
  void Beep() override { user_.Beep(); }
  void ProcessPendingEvents() override { user_.ProcessPendingEvents(); }
  Text ChooseFile(const FileDialog& dialog) override { return user_.ChooseFile(dialog); }
  Text ChooseFolder(TextView title, TextView startFolder) override { return user_.ChooseFolder(title, startFolder); }
  WorkingArea GetWorkingArea() override { return user_.GetWorkingArea(); }
  void ShowModal(Form& form, Form* owner) override { user_.ShowModal(form, owner); }

 private:
  UserInterface& user_;
  bool speaks_ = false;
};

// The list of a command and what the command does to it.
class ListedTemplates {
 public:
  /// An empty list looks for the supply file; that there is none is news only to who asked for it.
  /// @param mayAsk  whether "--yes" may put a wrong extension right
  /// Errors: why the list cannot be loaded.
  ListedTemplates(const CommandContext& context, const TemplateOptions& options, bool mayAsk)
      : report_(context.report),
        console_(ConsoleUserInterface::Answers::kNo),
        unattended_(console_, report_),
        loading_(mayAsk && context.options.yes ? context.platform.userInterface : unattended_),
        platform_(context.platform.With(loading_)),
        options_(options),
        list_(platform_) {
    list_.TypeOfApplOffice(TypeNamed(options.type));
    if (!list_.Fill({.ZorAplName = FromUtf8(options.application), .listName = FromUtf8(options.list)})) Fail();
    loading_.Speak();
  }

  int Show();
  int Add();
  int Edit();
  int Supply();

  int Remove() {
    return Change([&](std::int32_t position) { list_.KillItem(position - 1); });
  }
  int MoveUp() {
    return Change([&](std::int32_t position) { list_.MoveUp(position); });
  }
  int MoveDown() {
    return Change([&](std::int32_t position) { list_.MoveDown(position); });
  }
  int Activate() {
    std::int16_t position = ToInteger(RequirePosition(), platform_.locale);
    list_.SetActive(position);
    return kDone;
  }

 private:
  [[noreturn]] void Fail() const { throw Error(list_.Failure().value()); }
  std::int32_t RequirePosition() const;
  int Change(const std::function<void(std::int32_t)>& change);
  void SetDetails(c_SablonaOffice& changed) const;
  bool Save(c_SablonaOffice& changed);

  Report& report_;
  ConsoleUserInterface console_;
  ReportedUserInterface unattended_;  // says why a template is refused; a wrong extension is one of the reasons
  QuietWhileLoading loading_;
  Platform platform_;
  const TemplateOptions& options_;
  c_SeznamSablonOffice list_;
};

std::int32_t ListedTemplates::RequirePosition() const {
  if (options_.position >= 1 && options_.position <= list_.Count()) return options_.position;
  Text text = u"There is no template at position ";
  AppendDecimal(text, options_.position);
  text.append(u"; the list has ");
  AppendDecimal(text, list_.Count());
  Raise(RuntimeError::kSubscriptOutOfRange, std::move(text));
}

// A change that moves templates, with the positions that they have then.
int ListedTemplates::Change(const std::function<void(std::int32_t)>& change) {
  const std::int32_t position = RequirePosition();
  platform_.registry.Change([&] {
    change(position);
    list_.SaveKeys();
  });
  return kDone;
}

// A value as one cell of a line.
Text Cell(TextView value) {
  Text cell(value);
  std::replace_if(
      cell.begin(), cell.end(), [](char16_t unit) { return unit < u' '; }, u' ');
  return cell;
}

Text Quoted(TextView value) {
  constexpr TextView kDigits = u"0123456789abcdef";
  Text quoted(u"\"");
  for (const char16_t unit : value) {
    if (unit < u' ') {
      quoted.append(u"\\u00").append({kDigits[unit >> 4], kDigits[unit & 15]});
      continue;
    }
    if (unit == u'"' || unit == u'\\') quoted.push_back(u'\\');
    quoted.push_back(unit);
  }
  return quoted.append(u"\"");
}

Text AsLine(const c_SablonaOffice& shown) {
  const std::vector<Text> cells = {DecimalText(shown.key()), shown.Active() ? u"*" : u"", DecimalText(shown.Id()),
                                   Cell(shown.name()),       Cell(shown.description()),   Cell(shown.Path())};
  return Join(cells, u"\t");
}

Text AsJson(const c_SablonaOffice& shown) {
  return u"{\"position\": " + DecimalText(shown.key()) + u", \"active\": " + (shown.Active() ? u"true" : u"false") +
         u", \"id\": " + DecimalText(shown.Id()) + u", \"file\": " + Quoted(shown.name()) + u", \"description\": " +
         Quoted(shown.description()) + u", \"path\": " + Quoted(shown.Path()) + u", \"exists\": " +
         (shown.FileExist() ? u"true" : u"false") + u"}";
}

int ListedTemplates::Show() {
  if (!options_.json) {
    for (const auto& each : list_) report_.Value(AsLine(*each));
    return kDone;
  }
  std::vector<Text> objects;
  for (const auto& each : list_) objects.push_back(u"\n  " + AsJson(*each));
  report_.Value(u"[" + Join(objects, u",") + (objects.empty() ? u"]" : u"\n]"));
  return kDone;
}

// The path comes after name and description: it looks for the file, and marks the description where there is none.
void ListedTemplates::SetDetails(c_SablonaOffice& changed) const {
  Text folder = changed.Path();
  if (options_.file) {
    const Text path = platform_.files.GetAbsolutePathName(FromUtf8(*options_.file));
    changed.name(WithExtension(GetFileName(path), list_.TypeOfApplOffice()));
    folder = GetParentFolderName(path);
  }
  if (options_.description) changed.description(FromUtf8(*options_.description));
  if (changed.description().empty()) changed.description(changed.name());
  changed.Path(folder);
  if (options_.id) changed.Id(*options_.id);
  if (changed.FileExist()) return;
  report_.Warning(u"no such file: " + changed.FullFileName());
}

// False after a message that says why.
bool ListedTemplates::Save(c_SablonaOffice& changed) {
  bool saved = false;
  platform_.registry.Change([&] {
    saved = changed.Save(true);
    if (saved) list_.SaveKeys();
  });
  return saved;
}

int ListedTemplates::Add() {
  const std::int32_t behind = list_.Count() + 1;
  const auto added = list_.AddNewItem(std::min(options_.before.value_or(behind), behind) - 1);
  SetDetails(*added);
  return Save(*added) ? kDone : kFailed;
}

int ListedTemplates::Edit() {
  if (!options_.file && !options_.description && !options_.id) throw UsageError("nothing to change");
  c_SablonaOffice& edited = *list_.Item(RequirePosition());
  SetDetails(edited);
  return Save(edited) ? kDone : kFailed;
}

int ListedTemplates::Supply() {
  if (list_.SupplyFromFile()) return kDone;
  if (list_.Failure()) Fail();
  return kFailed;  // the message was shown
}

// Lets the person choose in the dialog. Who chose nothing knows it, and has seen a message when something failed.
int Choose(const CommandContext& context, const TemplateOptions& options) {
  TemplateListArguments arguments{.rsZorApl = FromUtf8(options.application),
                                  .TypeOfApplOffice = TypeNamed(options.type),
                                  .rbAdmin = options.admin,
                                  .rsListName = FromUtf8(options.list),
                                  .rsCaption = FromUtf8(options.caption)};
  const Text path = TemplateLists(context.platform).TemplateList(arguments);
  if (path.empty()) return kFailed;
  context.report.File(path);
  return kDone;
}

// Adds the commands of the group; all share one set of options.
class TemplateCommands {
 public:
  TemplateCommands(CLI::App& app, Command& chosen)
      : group_(*app.add_subcommand("templates", "Show and change the lists of templates")), chosen_(chosen) {
    group_.require_subcommand(1);
  }

  using Operation = std::function<int(const CommandContext&, const TemplateOptions&)>;

  CLI::App& Add(const char* name, const char* description, Operation operation) {
    CLI::App& command = *group_.add_subcommand(name, description);
    command.add_option("--application", options_->application, "code of the suite application")->required();
    command.add_option("--list", options_->list, "name of the list; without it the default list");
    command.add_option("--type", options_->type, "which templates are meant, by their extensions")
        ->check(CLI::IsMember({"all", "word", "excel", "sds"}))
        ->capture_default_str();
    command.callback([&chosen = chosen_, options = options_, operation] {
      chosen = [options, operation](const CommandContext& context) { return operation(context, *options); };
    });
    return command;
  }

  CLI::App& Add(const char* name, const char* description, int (ListedTemplates::*operation)(), bool mayAsk = false) {
    return Add(name, description, [operation, mayAsk](const CommandContext& context, const TemplateOptions& options) {
      return (ListedTemplates(context, options, mayAsk).*operation)();
    });
  }

  CLI::App& AddAtPosition(const char* name, const char* description, int (ListedTemplates::*operation)(),
                          bool mayAsk = false) {
    CLI::App& command = Add(name, description, operation, mayAsk);
    command.add_option("POSITION", options_->position, "position in the list, from 1")->required();
    return command;
  }

  TemplateOptions& options() { return *options_; }

 private:
  CLI::App& group_;
  Command& chosen_;
  std::shared_ptr<TemplateOptions> options_ = std::make_shared<TemplateOptions>();
};

void AddDetails(CLI::App& command, TemplateOptions& options, const std::string& textOtherwise,
                const std::string& idOtherwise) {
  command.add_option("--description", options.description, "text for the list (default: " + textOtherwise + ")");
  command.add_option("--id", options.id, "identifier, 0 for none (default: " + idOtherwise + ")");
}

}  // namespace

void AddTemplateCommands(CLI::App& app, Command& chosen) {
  TemplateCommands group(app, chosen);
  TemplateOptions& options = group.options();
  group.Add("show", "Print a list", &ListedTemplates::Show).add_flag("--json", options.json, "print it as JSON");
  CLI::App& add = group.Add("add", "Register a template", &ListedTemplates::Add);
  add.add_option("FILE", options.file, "the template")->required();
  AddDetails(add, options, "the file name", "0");
  add.add_option("--before", options.before, "position of the template before which it goes (default: at the end)")
      ->check(CLI::PositiveNumber);
  CLI::App& edit = group.AddAtPosition("edit", "Change a template", &ListedTemplates::Edit, /*mayAsk=*/true);
  edit.add_option("--file", options.file, "the template (default: as it is)");
  AddDetails(edit, options, "as it is", "as it is");
  group.AddAtPosition("remove", "Take a template out of the list", &ListedTemplates::Remove);
  group.AddAtPosition("up", "Move a template up", &ListedTemplates::MoveUp);
  group.AddAtPosition("down", "Move a template down", &ListedTemplates::MoveDown);
  group.AddAtPosition("activate", "Make a template the active one", &ListedTemplates::Activate);
  group.Add("supply", "Register the templates of the supply file", &ListedTemplates::Supply);
  CLI::App& choose = group.Add("choose", "Choose a template in the dialog and print its path", Choose);
  choose.add_flag("--admin", options.admin, "let templates be added, edited and deleted there");
  choose.add_option("--caption", options.caption, "caption of the dialog (default: its own)");
}

}  // namespace zorkanca::cli
