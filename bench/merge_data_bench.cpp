// Writes the data file of a mail merge from a query, as the Word exports do, for bench/merge_data.py:
//   bench_merge_data DATABASE SELECT OUTPUT [FORMAT ...]
#include <cstdio>

#include "export/export_failure.h"
#include "export/query_merge_data.h"
#include "files/linux_file_system.h"
#include "files/system_clock.h"
#include "host/console/console_user_interface.h"
#include "host/desktop/desktop_shell.h"
#include "host/office_engines.h"
#include "host/registry/file_registry.h"
#include "host/system/linux_suite_environment.h"
#include "host/system/syslog_event_log.h"
#include "runtime/utf8.h"
#include "sqlite/sqlite_database.h"

int main(int count, char** arguments) {
  using namespace zorkanca;
  if (count < 4) {
    std::fputs("usage: bench_merge_data DATABASE SELECT OUTPUT [FORMAT ...]\n", stderr);
    return 2;
  }
  const Locale& locale = *FindLocale(u"cs-CZ");
  LinuxFileSystem files(*locale.codePage);
  FileRegistry registry("/nonexistent");
  ConsoleUserInterface userInterface(ConsoleUserInterface::Answers::kNo);
  DesktopShell frame;
  SystemClock clock;
  SyslogEventLog eventLog;
  LinuxSuiteEnvironment environment("/nonexistent", "0", registry);
  OfficeEngines office(locale);
  ExportContext context{
      .platform = {files, registry, userInterface, frame, clock, locale, eventLog, environment, office}};

  SqliteDatabase database(arguments[1]);
  const Text select = FromUtf8(arguments[2]);
  Text path = files.GetAbsolutePathName(FromUtf8(arguments[3]));
  std::vector<Text> formats;
  for (int index = 4; index < count; ++index) formats.push_back(FromUtf8(arguments[index]));

  ExportSession session(context);
  return RunToEdge(session, u"bench",
                   [&] {
                     Text names;
                     const ColumnNameSource source = ChooseColumnNames(select, names);
                     QueryReader reader(session);
                     reader.Open(database, select, 0);
                     WriteQueryMergeData(session, reader, source, names, path, {.formats = formats});
                     return true;
                   })
             ? 0
             : 1;
}
