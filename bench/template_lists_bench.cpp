// What a list of 1,000 templates costs in the registry files of a home folder, with real template files.
#include <benchmark/benchmark.h>

#include "files/linux_file_system.h"
#include "host/registry/file_registry.h"
#include "support/memory_platform.h"
#include "support/temporary_folder.h"
#include "templates/seznam_sablon_office.h"

namespace zorkanca {
namespace {

constexpr int kCount = 1000;

/// A computer on the disk whose suite brings 1,000 templates.
class Computer {
 public:
  Computer() {
    std::filesystem::create_directories(folder_.Path("A1"));
    std::string lines;
    for (int number = 0; number < kCount; ++number) {
      const std::string name = "sablona" + std::to_string(number) + ".dot";
      folder_.Write("A1/" + name, "");
      lines += "A1||" + name + "|Popis " + name + "|" + std::to_string(number) + "|\r\n";
    }
    folder_.Write("ZorSabl.txt", lines);
    memory_.environment.supplyFolder = FromUtf8(folder_.path());
    memory_.environment.defaultTemplatesFolder = FromUtf8(folder_.path());
  }

  std::unique_ptr<c_SeznamSablonOffice> Filled() {
    auto list = std::make_unique<c_SeznamSablonOffice>(platform_);
    list->Fill({.ZorAplName = u"A1"});
    if (list->Count() != kCount) throw std::runtime_error("the list is not complete");
    return list;
  }
  void Forget() { registry_.DeleteKey(RegistryHive::kCurrentUser, u"Software"); }

 private:
  testing::TemporaryFolder folder_;
  testing::MemoryPlatform memory_;
  LinuxFileSystem files_{*memory_.locale.codePage};
  FileRegistry registry_{folder_.Path("home"), folder_.Path("system")};
  Platform platform_{files_,         registry_,        memory_.userInterface, memory_.shell, memory_.clock,
                     memory_.locale, memory_.eventLog, memory_.environment,   memory_.office};
};

void Supply(benchmark::State& state) {
  Computer computer;
  for (auto _ : state) {
    state.PauseTiming();
    computer.Forget();
    state.ResumeTiming();
    computer.Filled();
  }
}

void Load(benchmark::State& state) {
  Computer computer;
  computer.Filled();
  for (auto _ : state) benchmark::DoNotOptimize(computer.Filled());
}

// The first template to the end, and the order saved.
void ReorderAndSave(benchmark::State& state) {
  Computer computer;
  const auto list = computer.Filled();
  for (auto _ : state) {
    for (int position = 1; position < kCount; ++position) list->MoveDown(position);
    list->SaveKeys();
  }
}

BENCHMARK(Supply)->Unit(benchmark::kMillisecond);
BENCHMARK(Load)->Unit(benchmark::kMillisecond);
BENCHMARK(ReorderAndSave)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zorkanca
