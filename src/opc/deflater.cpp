#include "opc/deflater.h"

#include <algorithm>
#include <cstring>

namespace zorkanca {

void Deflater::Append(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t count = std::min(bytes.size(), kBlock - filled_);
    std::memcpy(input_.get() + filled_, bytes.data(), count);
    filled_ += count;
    bytes.remove_prefix(count);
    if (filled_ == kBlock) Drain(false);
  }
}

void Deflater::Finish() {
  Drain(true);
}

}  // namespace zorkanca
