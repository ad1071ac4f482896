// A whole computer in memory, whose user, desktop and clock write down what happened as lines of a journal.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "runtime/error.h"
#include "runtime/utf8.h"
#include "support/fake_office.h"
#include "support/fake_word.h"
#include "support/memory_file_system.h"
#include "support/memory_registry.h"

namespace zorkanca::testing {

class JournalUserInterface final : public UserInterface {
 public:
  explicit JournalUserInterface(Journal& journal) : journal_(journal) {}

  MessageAnswer answer = MessageAnswer::kOk;

  MessageAnswer Show(const Message& message) override {
    journal_.push_back("message " + std::to_string(static_cast<int>(message.icon)) + " [" + ToUtf8(message.title) +
                       "] " + ToUtf8(message.text));
    return answer;
  }
  void SetMousePointer(MousePointer pointer) override {
    journal_.push_back("pointer " + std::to_string(static_cast<int>(pointer)));
  }
  void Beep() override { journal_.push_back("beep"); }
  void ProcessPendingEvents() override { journal_.push_back("pending events"); }

  /// What the person chooses in the next file or folder dialog.
  Text chosen;
  /// The last file dialog that was shown.
  FileDialog fileDialog;
  WorkingArea workingArea{.width = 1920, .height = 1040};
  /// The person in front of the dialogs, one script per `ShowModal`; a form that its script leaves open is closed.
  std::deque<std::function<void(Form&)>> scripts;

  Text ChooseFile(const FileDialog& dialog) override {
    fileDialog = dialog;
    return chosen;
  }
  Text ChooseFolder(TextView title, TextView startFolder) override {
    journal_.push_back("choose folder [" + ToUtf8(title) + "] " + ToUtf8(startFolder));
    return chosen;
  }
  WorkingArea GetWorkingArea() override { return workingArea; }
  void ShowModal(Form& form, Form*) override {
    if (scripts.empty()) Raise(RuntimeError::kInvalidCall, u"no script for a dialog");
    const auto script = std::move(scripts.front());
    scripts.pop_front();
    form.Show();
    form.Activate();
    script(form);
    while (form.visible()) form.Close();
  }

 private:
  Journal& journal_;
};

class JournalShell final : public Shell {
 public:
  JournalShell(Journal& journal, FileSystem& files) : journal_(journal), files_(files) {}

  /// Called with each path before it is opened and each command line before it is started; may raise.
  std::function<void(TextView)> onOpen;

  void OpenDocument(TextView path) override {
    if (onOpen) onOpen(path);
    journal_.push_back("open " + ToUtf8(path));
  }
  void StartCommandLine(TextView commandLine) override {
    if (onOpen) onOpen(commandLine);
    journal_.push_back("start " + ToUtf8(commandLine));
  }

  ProgramPlaces programs{.extension = u"exe", .folders = {u"C:\\Program Files (x86)", u"C:\\Program Files"}};

  ProgramPlaces Programs() override { return programs; }
  bool IsProgram(TextView path) override { return files_.FileExists(path); }

  /// Answers of `SearchTree` by the root folder, an empty one elsewhere.
  std::map<Text, Text> found;

  Text SearchTree(TextView rootFolder, TextView fileName) override {
    journal_.push_back("search " + ToUtf8(rootFolder) + " " + ToUtf8(fileName));
    const auto entry = found.find(Text(rootFolder));
    return entry == found.end() ? Text() : entry->second;
  }
  Text LongPathName(TextView path) override { return Text(path); }
  void ClearClipboard() override { journal_.push_back("clear clipboard"); }

 private:
  Journal& journal_;
  FileSystem& files_;
};

/// The clock stands still until a test sets it.
class FixedClock final : public Clock {
 public:
  Date now{46342};  ///< 16.11.2026 0:00

  Date Now() override { return now; }
  std::int64_t ThreadId() override { return 4711; }
};

class JournalEventLog final : public EventLog {
 public:
  explicit JournalEventLog(Journal& journal) : journal_(journal) {}

  bool refuses = false;  ///< raises error 70 instead of writing

  void Write(TextView message, std::int32_t eventType) override {
    if (refuses) Raise(RuntimeError::kPermissionDenied);
    journal_.push_back("event " + std::to_string(eventType) + " " + ToUtf8(message));
  }

 private:
  Journal& journal_;
};

class FixedSuiteEnvironment final : public SuiteEnvironment {
 public:
  Text logFolder = u"C:\\Temp\\Suite\\Log";  ///< not there at first, nor its parent

  Text supplyFolder = u"C:\\Suite";
  Text defaultTemplatesFolder = u"C:\\Suite\\Sablony";

  Text LogFolder() override { return logFolder; }
  Text SupplyFolder() override { return supplyFolder; }
  Text DefaultTemplatesFolder() override { return defaultTemplatesFolder; }
  Text VersionText() override { return u"4.1.0"; }
};

class MemoryPlatform {
 public:
  explicit MemoryPlatform(TextView localeTag = u"cs-CZ") : locale(*FindLocale(localeTag)), files(*locale.codePage) {}

  Locale locale;
  Journal journal;
  MemoryFileSystem files;
  MemoryRegistry registry;
  JournalUserInterface userInterface{journal};
  JournalShell shell{journal, files};
  FixedClock clock;
  JournalEventLog eventLog{journal};
  FixedSuiteEnvironment environment;
  FakeWord word{journal};
  FakeExcel excel{journal, files};
  FakeOffice office{word, excel};
  /// Paths of all files but the error log's.
  std::vector<Text> PathsBesideLog() const {
    std::vector<Text> paths = files.Paths();
    std::erase_if(paths, [this](const Text& path) { return path.starts_with(environment.logFolder); });
    return paths;
  }

  Platform platform{files, registry, userInterface, shell, clock, locale, eventLog, environment, office};
};

}  // namespace zorkanca::testing
