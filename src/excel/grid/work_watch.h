// What the engine asks and tells while it works on many rows: whether to stop, and how far it is.
#pragma once

#include <cstdint>
#include <functional>

namespace zorkanca {

/// The parts of the engine's work that can take long.
enum class ExcelWork { kImporting, kFitting, kSaving };

/// Who watches the engine. Either may be empty.
struct ExcelWatch {
  std::function<bool()> cancelled{};                         ///< true ends the work with error 18
  std::function<void(ExcelWork, double percent)> reached{};  ///< told many times a second
};

namespace excel {

/// One part of the work, step by step.
class WatchedWork {
 public:
  /// @param watch  outlives the work
  /// @param end    place that the work ends at, in any unit
  /// Errors: 18 when it was cancelled already.
  WatchedWork(const ExcelWatch& watch, ExcelWork work, std::uint64_t end) : watch_(watch), work_(work), end_(end) {
    Ask();
  }

  /// One step was done. Cheap enough to be called for each row. Errors: 18 when the work was cancelled.
  void Reach(std::uint64_t place) {
    constexpr std::uint32_t kStepsAtOnce = 64;
    if (++steps_ % kStepsAtOnce != 0) return;
    Ask();
    Tell(place);
  }

 private:
  void Ask() const;
  void Tell(std::uint64_t place) const;

  const ExcelWatch& watch_;
  ExcelWork work_;
  std::uint64_t end_;
  std::uint32_t steps_ = 0;
};

}  // namespace excel
}  // namespace zorkanca
