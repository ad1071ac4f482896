// A table of looks at the computer. A look that raises has found something that does not work; nothing that a look
// makes stays behind.
#include "cli/doctor.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <span>
#include <vector>

#include "cli/config_file.h"
#include "cli/host_platform.h"
#include "cli/output_check.h"
#include "files/temporary_folder.h"
#include "foundation/ignore_errors.h"
#include "host/desktop/windows_library.h"
#include "host/installed_software.h"
#include "platform/excel/excel_application.h"
#include "platform/paths.h"
#include "platform/word/word_application.h"
#include "runtime/utf8.h"
#include "sqlite/sqlite_database.h"

namespace zorkanca::cli {

namespace {

using State = Finding::State;

Finding Ok(Text text) {
  return {.state = State::kOk, .text = std::move(text)};
}

Finding Missing(Text text) {
  return {.state = State::kMissing, .text = std::move(text)};
}

// --- the program and its folders -----------------------------------------------------------------------------------

Finding LookAtProgram(const CommandContext&) {
  std::error_code none;
  return Ok(u"" ZORKANCA_VERSION u", " + FromUtf8(std::filesystem::read_symlink("/proc/self/exe", none).string()));
}

Finding LookAtLocale(const CommandContext& context) {
  return Ok(FromUtf8(context.options.locale) + u", ANSI page " +
            DecimalText(context.platform.locale.codePage->number()));
}

Finding LookAtConfig(const CommandContext& context) {
  const std::string& asked = context.options.config;
  const Text path = FromUtf8(asked.empty() ? DefaultConfigFile() : asked);
  return context.platform.files.FileExists(path) ? Ok(path) : Missing(path + u" would be read if it were there");
}

// Files can be written in a folder, or in the first one above it that there is.
void RequireUsable(const CommandContext& context, const Text& folder) {
  Text existing = folder;
  while (existing.size() > 1 && !context.platform.files.FolderExists(existing) &&
         !context.platform.files.FileExists(existing)) {
    existing = GetParentFolderName(existing);
  }
  RequireWritableFolder(context, existing);
}

Finding LookAtHome(const CommandContext& context) {
  const std::string& asked = context.options.home;
  const Text home = context.platform.files.GetAbsolutePathName(FromUtf8(asked.empty() ? DefaultHomeFolder() : asked));
  for (const RegistryHive hive :
       {RegistryHive::kClassesRoot, RegistryHive::kCurrentUser, RegistryHive::kLocalMachine}) {
    context.platform.registry.SubkeyNames(hive, u"");
  }
  RequireUsable(context, home);
  return Ok(home);
}

Finding LookAtLog(const CommandContext& context) {
  const Text folder = context.platform.environment.LogFolder();
  RequireUsable(context, folder);
  return Ok(folder);
}

Finding LookAtWorkFolder(const CommandContext& context) {
  constexpr std::uintmax_t kMegabyte = 1 << 20;
  const std::string folder = PrivateTemporaryFolder();
  RequireWritableFolder(context, FromUtf8(folder));
  const auto left = static_cast<std::int64_t>(std::filesystem::space(folder).available / kMegabyte);
  return Ok(FromUtf8(folder) + u", " + DecimalText(left) + u" MB free");
}

Finding LookAtTemplates(const CommandContext& context) {
  const Text folder = context.platform.environment.DefaultTemplatesFolder();
  if (context.platform.files.FolderExists(folder)) return Ok(folder);
  return Missing(folder + u" would be looked through for templates if it were there");
}

// --- what makes and shows documents ----------------------------------------------------------------------------------

// A result that goes at once.
class Trial {
 public:
  explicit Trial(const CommandContext& context)
      : files_(context.platform.files),
        path_(BuildPath(files_, FromUtf8(PrivateTemporaryFolder()), files_.GetTempName() + u".pdf")) {}
  ~Trial() {
    IgnoreErrors([&] { files_.DeleteFile(path_, /*force=*/true); });
  }
  Trial(const Trial&) = delete;
  Trial& operator=(const Trial&) = delete;

  const Text& path() const { return path_; }

 private:
  FileSystem& files_;
  Text path_;
};

// An office package may lack the half that a document needs; only trying tells.
Finding LookAtLibreOffice(const CommandContext& context) {
  std::optional<InstalledProgram> program;
  try {
    program = InstalledLibreOffice();
  } catch (const Error& error) {
    if (error.number() != static_cast<std::int32_t>(RuntimeError::kCannotCreateObject)) throw;
    return Missing(error.description());
  }
  const Trial trial(context);
  const WordDocumentReference document = context.platform.office.StartWord()->AddDocument(u"", false);
  document->SaveAs(trial.path(), WordSaveFormat::kPdf);
  document->Close(/*SaveChanges=*/false);
  const ExcelWorkbookReference workbook = context.platform.office.StartExcel()->AddWorkbook(u"");
  workbook->ActiveSheet()->Range(u"A1")->Formula(u"1");
  workbook->ExportAsFixedFormat({.fileName = trial.path()});
  workbook->Close(/*SaveChanges=*/false);
  return Ok(program->version + u", " + program->path + u", writes documents and workbooks as PDF");
}

// What documents usually ask for, and the font of the same widths that stands in for it.
struct UsualFont {
  TextView name;
  TextView standIn;
  TextView package;
};

constexpr std::array<UsualFont, 5> kUsualFonts = {{{u"Arial", u"Liberation Sans", u"fonts-liberation"},
                                                   {u"Times New Roman", u"Liberation Serif", u"fonts-liberation"},
                                                   {u"Courier New", u"Liberation Mono", u"fonts-liberation"},
                                                   {u"Calibri", u"Carlito", u"fonts-crosextra-carlito"},
                                                   {u"Cambria", u"Caladea", u"fonts-crosextra-caladea"}}};

Finding LookAtFonts(const CommandContext&) {
  const Text lister = FindProgram(u"fc-list");
  if (lister.empty()) return Missing(u"fonts cannot be listed: install the package fontconfig");
  const std::vector<Text> families = FontFamilies(lister);
  const auto has = [&](TextView name) { return std::find(families.begin(), families.end(), name) != families.end(); };
  std::vector<Text> lacking;
  for (const UsualFont& font : kUsualFonts) {
    if (has(font.name) || has(font.standIn)) continue;
    lacking.push_back(Text(font.name) + u" (install " + Text(font.package) + u")");
  }
  if (!lacking.empty()) return Missing(u"in a PDF other fonts stand in for " + Join(lacking, u", "));
  return Ok(DecimalText(static_cast<std::int64_t>(families.size())) +
            u" families, the usual ones of documents among them");
}

Finding LookAtWindows(const CommandContext&) {
  Text plugin;
  try {
    plugin = WindowsLibraryPath();
  } catch (const Error& error) {
    return Missing(error.description() + u"; dialogs are asked on the terminal");
  }
  if (!HasDisplay())
    return Missing(u"no screen: DISPLAY and WAYLAND_DISPLAY are empty; dialogs are asked on the terminal");
  LoadWindows();
  return Ok(plugin);
}

Finding LookAtOpener(const CommandContext&) {
  Text opener = FindProgram(u"xdg-open");
  if (opener.empty()) return Missing(u"results are not opened: install the package xdg-utils");
  return Ok(std::move(opener));
}

Finding LookAtClipboard(const CommandContext&) {
  return Ok(u"is left alone: exports copy without it");
}

// --- databases -----------------------------------------------------------------------------------------------------

Finding LookAtSqlite(const CommandContext&) {
  return Ok(SqliteVersion());
}

constexpr auto kRows = std::to_array<DoctorRow>({{"program", LookAtProgram},
                                                 {"locale", LookAtLocale},
                                                 {"config", LookAtConfig},
                                                 {"home", LookAtHome},
                                                 {"log", LookAtLog},
                                                 {"work-folder", LookAtWorkFolder},
                                                 {"templates", LookAtTemplates},
                                                 {"libreoffice", LookAtLibreOffice},
                                                 {"fonts", LookAtFonts},
                                                 {"windows", LookAtWindows},
                                                 {"opener", LookAtOpener},
                                                 {"clipboard", LookAtClipboard},
                                                 {"sqlite", LookAtSqlite}});

Finding Found(const DoctorRow& row, const CommandContext& context) {
  try {
    return row.look(context);
  } catch (...) {
    const Error error = *ErrorBeingHandled();
    if (context.interrupted) throw;
    return {.state = State::kBroken, .text = error.description()};
  }
}

const char* NameOf(State state) {
  constexpr const char* kNames[] = {"ok", "missing", "broken"};
  return kNames[static_cast<std::size_t>(state)];
}

int RunDoctor(const CommandContext& context, const bool& json) {
  nlohmann::ordered_json array = nlohmann::ordered_json::array();
  std::string broken;
  for (const DoctorRow& row : kRows) {
    const Finding finding = Found(row, context);
    const std::string state = NameOf(finding.state);
    if (finding.state == State::kBroken) broken += (broken.empty() ? "" : ", ") + std::string(row.name);
    if (json) {
      array.push_back({{"name", row.name}, {"state", state}, {"text", ToUtf8(finding.text)}});
    } else {
      context.report.Value(FromUtf8(row.name + ("\t" + state) + "\t") + finding.text);
    }
  }
  if (json) context.report.Value(FromUtf8(array.dump(2, ' ', false, decltype(array)::error_handler_t::replace)));
  if (broken.empty()) return kDone;
  context.report.Failure(FromUtf8("does not work: " + broken));
  return kFailed;
}

}  // namespace

void AddDoctorCommand(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("doctor", "Tell what the computer has of what the program can use");
  const auto json = std::make_shared<bool>(false);
  command->add_flag("--json", *json, "print it as JSON");
  SetCallback(*command, chosen, json, RunDoctor);
}

}  // namespace zorkanca::cli
