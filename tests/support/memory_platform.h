// A whole computer in memory, whose user, desktop and clock write down what happened as lines of a journal.
#pragma once

#include <cstdint>
#include <functional>
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

 private:
  Journal& journal_;
};

class JournalShell final : public Shell {
 public:
  explicit JournalShell(Journal& journal) : journal_(journal) {}

  /// Called with each path before it is opened; may raise.
  std::function<void(TextView)> onOpen;

  void OpenDocument(TextView path) override {
    if (onOpen) onOpen(path);
    journal_.push_back("open " + ToUtf8(path));
  }

 private:
  Journal& journal_;
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

  Text LogFolder() override { return logFolder; }
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
  JournalShell shell{journal};
  FixedClock clock;
  JournalEventLog eventLog{journal};
  FixedSuiteEnvironment environment;
  FakeWord word{journal};
  FakeOffice office{word};
  Platform platform{files, registry, userInterface, shell, clock, locale, eventLog, environment, office};
};

}  // namespace zorkanca::testing
