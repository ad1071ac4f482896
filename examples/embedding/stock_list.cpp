// Writes the stock of the sample database as an HTML table, with progress: stock_list sklad.db zasoby.htm
#include <cstdio>

#include "export/zor_office.h"
#include "host/desktop/quiet_shell.h"
#include "host/linux_platform.h"
#include "runtime/utf8.h"
#include "sqlite/sqlite_database.h"

namespace {

class ProgressOnStandardError final : public zorkanca::ZorOfficeEvents {
 public:
  void ExportState(zorkanca::ExportStateValue, zorkanca::TextView message) override {
    std::fprintf(stderr, "%s\n", zorkanca::ToUtf8(message).c_str());
  }
  void PercentDone(float percent, bool& /*cancel*/) override {
    std::fprintf(stderr, "%.0f %%\n", static_cast<double>(percent));
  }
};

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::fputs("usage: stock_list DATABASE OUTPUT\n", stderr);
    return 2;
  }
  const zorkanca::LinuxPlatform computer({.answers = zorkanca::ConsoleUserInterface::Answers::kNo});
  zorkanca::SqliteDatabase database(arguments[1]);
  zorkanca::QuietShell nothingOpens(computer.platform().shell);  // else the table opens in the browser
  zorkanca::cZorOffice office(computer.platform().With(nothingOpens));
  ProgressOnStandardError progress;
  office.Advise(&progress);
  office.PercentInterval(25);
  zorkanca::HtmlExportArguments table{.rsSourceFile = zorkanca::FromUtf8(arguments[2]), .rsTitle = u"Zásoby"};
  return office.HTMLExport(database, u"SELECT kod, nazev, zasoba FROM zbozi ORDER BY kod", table) ? 0 : 1;
}
