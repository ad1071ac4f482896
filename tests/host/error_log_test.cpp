// The error log on a real disk, shared by processes; what the host gives it.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <syslog.h>
#include <unistd.h>

#include <cstdarg>
#include <thread>

#include "files/linux_file_system.h"
#include "files/system_clock.h"
#include "foundation/error_log_writer.h"
#include "host/system/linux_suite_environment.h"
#include "host/system/syslog_event_log.h"
#include "support/child_process.h"
#include "support/memory_platform.h"
#include "support/memory_registry.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {
std::vector<std::string> loggedEvents;
}

// The C library's own routines, replaced in this program by a record of the calls.
extern "C" void openlog(const char* ident, int, int) {
  zorkanca::testing::loggedEvents.push_back(ident);
}
extern "C" void syslog(int priority, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  zorkanca::testing::loggedEvents.push_back(std::to_string(priority) + " " + va_arg(arguments, const char*));
  va_end(arguments);
}
extern "C" void closelog() {}

namespace zorkanca::testing {
namespace {

/// A message of one to many lines, some of it longer than a page, that shows who wrote it and where it ends.
Text MessageOf(int writer, int number) {
  Text message = Text(u"begin ").append(DecimalText(writer)).append(u" ").append(DecimalText(number));
  for (int line = 0; line < number % 7; ++line) {
    message.append(kCrLf).append(static_cast<std::size_t>(number % 11 * 97), static_cast<char16_t>(u'a' + writer));
  }
  return message.append(u" end");
}

TEST(ErrorLogOnDisk, TwoProcessesNeverMixTheirEntries) {
  constexpr int kEntries = 1000;
  const TemporaryFolder folder;
  MemoryPlatform rest;
  LinuxFileSystem files(*rest.locale.codePage);
  LinuxSuiteEnvironment environment(folder.Path("home"), "4.1.0", rest.registry);
  const Platform platform{files,       rest.registry, rest.userInterface, rest.shell, rest.clock,
                          rest.locale, rest.eventLog, environment,        rest.office};
  const auto write = [&](int writer) {
    ErrorLogWriter log(platform);
    for (int number = 0; number < kEntries; ++number) log.WriteMessage(MessageOf(writer, number), kErrorEvent);
    return rest.journal.empty() ? 0 : 1;  // an event would be an entry that the file did not take
  };
  const pid_t children[] = {StartChild([&] { return write(0); }), StartChild([&] { return write(1); })};
  for (const pid_t child : children) EXPECT_EQ(ExitOf(child), 0);

  const std::string bytes = folder.Read("home/log/ZorixLog_2026-11-16.txt");
  const std::string header = "\r\n16.11.2026 0:00:00 Chyba zorKancA 4.1.0 ThreadID = 4711\r\n";
  int next[] = {0, 0};
  std::size_t position = 0;
  while (position < bytes.size()) {
    const bool second = bytes.compare(position + header.size(), 8, "\tbegin 1") == 0;
    const int writer = second ? 1 : 0;
    const Text message = Replace(MessageOf(writer, next[writer]++), kCrLf, u"\r\n\t");
    const std::string entry = header + "\t" + ToUtf8(message) + "\r\n";
    ASSERT_EQ(bytes.compare(position, entry.size(), entry), 0) << "at byte " << position;
    position += entry.size();
  }
  EXPECT_EQ(next[0], kEntries);
  EXPECT_EQ(next[1], kEntries);
}

TEST(SyslogEventLog, WritesUtf8WithThePriorityOfTheType) {
  SyslogEventLog log;
  loggedEvents.clear();
  log.Write(u"Chyba\r\nzápisu %s", kErrorEvent);
  for (const std::int32_t type : {2, 4, 3}) log.Write(u"x", type);
  EXPECT_EQ(loggedEvents, (std::vector<std::string>{"zorkanca", "3 Chyba\nzápisu %s", "zorkanca", "4 x", "zorkanca",
                                                    "6 x", "zorkanca", "5 x"}));
}

TEST(LinuxSuiteEnvironment, FoldersLieBelowTheHomeFolderUnlessTheInstallationSaysOtherwise) {
  testing::MemoryRegistry registry;
  LinuxSuiteEnvironment environment("/data/../home/./suite/", "4.1.0", registry);
  EXPECT_EQ(ToUtf8(environment.LogFolder()), "/home/suite/log");
  EXPECT_EQ(ToUtf8(environment.VersionText()), "4.1.0");
  EXPECT_EQ(ToUtf8(environment.SupplyFolder()), "/home/suite/Sablony");
  EXPECT_TRUE(LinuxSuiteEnvironment("relative", "", registry).LogFolder().starts_with(u'/'));

  const Text key = u"SOFTWARE\\QRD\\Zorix\\Instalace";
  registry.Write(RegistryHive::kLocalMachine, key, u"SupplyFolder", Text(u"/srv/suite/"));
  registry.Write(RegistryHive::kLocalMachine, key, u"DefaultPath", std::int32_t{1});
  EXPECT_EQ(ToUtf8(environment.SupplyFolder()), "/srv/suite");
  EXPECT_EQ(ToUtf8(environment.DefaultTemplatesFolder()), "/home/suite/Sablony") << "a number is no folder";
}

TEST(SystemClock, EachThreadHasItsNumber) {
  SystemClock clock;
  std::int64_t other = 0;
  std::thread([&] { other = clock.ThreadId(); }).join();
  EXPECT_EQ(clock.ThreadId(), getpid()) << "the first thread has the number of its process";
  EXPECT_NE(other, clock.ThreadId());
}

}  // namespace
}  // namespace zorkanca::testing
