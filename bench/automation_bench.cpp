// What automation costs under Wine: properties read by name, and an export over a database of another program's
// objects. The database stands in memory and costs next to nothing; what its calls cost alone is measured beside the
// export, so that the rest is the library's own share.
#include <chrono>
#include <cstdio>

#include "com/server_under_test.h"
#include "com/stand_in_database.h"

namespace zorkanca::testing {
namespace {

constexpr int kReads = 20'000;
constexpr std::int32_t kRecords = 100'000;

class Stopwatch {
 public:
  double Seconds() const { return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count(); }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// As a script reads: the name is asked for each time.
double PropertyReads() {
  const win32::LateObject office = CreateByName(L"cZorOffice");
  const Stopwatch watch;
  for (int read = 0; read < kReads; ++read) {
    wchar_t name[] = L"PercentInterval";
    wchar_t* pointer = name;
    DISPID id = 0;
    DISPPARAMS none{};
    win32::Variant value;
    office.dispatch()->GetIDsOfNames(IID_NULL, &pointer, 1, 0, &id);
    const HRESULT result =
        office.dispatch()->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, value.Receive(), nullptr, nullptr);
    if (FAILED(result) || value.type() != VT_R4) return -1;
  }
  return watch.Seconds();
}

StandInTable Table() {
  StandInTable table{.records = kRecords};
  table.columns.push_back({L"nazev", 10, win32::ToVariant(u"Šroub M6 x 20")});
  table.columns.push_back({L"cena", 5, win32::ToVariant(Value(Currency{12'345'000}))});
  table.columns.push_back({L"kusu", 4, win32::ToVariant(std::int32_t{250})});
  table.columns.push_back({L"sklad", 10, win32::ToVariant(u"Hlavní sklad")});
  return table;
}

// The same calls to the database that the export makes, and nothing else.
double DatabaseAlone(std::int32_t calls) {
  StandInTable table = Table();
  const win32::ComPointer<IDispatch> field(new StandInField(table, 0));
  const Stopwatch watch;
  for (std::int32_t call = 0; call < calls; ++call) {
    DISPPARAMS none{};
    win32::Variant value;
    field->Invoke(4, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, value.Receive(), nullptr, nullptr);
  }
  return watch.Seconds();
}

int Run() {
  const Apartment apartment;
  const double reads = PropertyReads();
  std::printf("%d property reads by name: %.3f s (at most 0.5)\n", kReads, reads);

  const TestFolder folder;
  StandInTable table = Table();
  const win32::ComPointer<IDispatch> database(new StandInDatabase(table));
  const auto office = New<::_cZorOffice>(__uuidof(::cZorOffice));
  if (!office) return 1;
  IDispatch* handed = database.get();
  BSTR select = SysAllocString(L"SELECT * FROM zbozi");
  BSTR path = SysAllocString(folder.File(L"zbozi.htm").c_str());
  VARIANT_BOOL done = VARIANT_FALSE;
  const Stopwatch watch;
  office->HTMLExport(&handed, &select, nullptr, nullptr, &path, nullptr, nullptr, nullptr, nullptr, &done);
  const double exported = watch.Seconds();
  SysFreeString(select);
  SysFreeString(path);
  const double alone = DatabaseAlone(table.calls);
  std::printf(
      "%d records of %zu columns to HTML: %.3f s (at most 1.5), %d calls to the database, which take %.3f s alone\n",
      kRecords, table.columns.size(), exported, table.calls, alone);
  const bool kept = reads >= 0 && reads <= 0.5 && done == VARIANT_TRUE && exported <= 1.5;
  if (!kept) std::printf("%s\n", TheDesktop().Messages().c_str());
  return kept ? 0 : 1;
}

}  // namespace
}  // namespace zorkanca::testing

int main() {
  return zorkanca::testing::Run();
}
