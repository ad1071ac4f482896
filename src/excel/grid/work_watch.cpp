#include "excel/grid/work_watch.h"

#include <algorithm>

#include "runtime/error.h"

namespace zorkanca::excel {

void WatchedWork::Ask() const {
  if (watch_.cancelled && watch_.cancelled()) Raise(RuntimeError::kUserInterrupt);
}

void WatchedWork::Tell(std::uint64_t place) const {
  if (!watch_.reached || end_ == 0) return;
  watch_.reached(work_, 100.0 * static_cast<double>(std::min(place, end_)) / static_cast<double>(end_));
}

}  // namespace zorkanca::excel
