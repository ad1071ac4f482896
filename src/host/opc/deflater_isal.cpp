#include <isa-l/crc.h>
#include <isa-l/igzip_lib.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "host/opc/deflater.h"

namespace zorkanca {

namespace {
// Input is gathered to whole blocks, so that the result does not depend on the sizes of the pieces.
constexpr std::size_t kBlock = 64 * 1024;
}  // namespace

struct Deflater::State {
  isal_zstream stream;
  std::vector<std::uint8_t> levelBuffer = std::vector<std::uint8_t>(ISAL_DEF_LVL1_DEFAULT);
  std::vector<std::uint8_t> input = std::vector<std::uint8_t>(kBlock);
  std::vector<std::uint8_t> output = std::vector<std::uint8_t>(kBlock);
  std::size_t filled = 0;
};

Deflater::Deflater(PartSink& output) : output_(output), state_(std::make_unique<State>()) {
  isal_deflate_init(&state_->stream);
  state_->stream.level = 1;
  state_->stream.level_buf = state_->levelBuffer.data();
  state_->stream.level_buf_size = static_cast<std::uint32_t>(state_->levelBuffer.size());
  state_->stream.gzip_flag = IGZIP_DEFLATE;
  state_->stream.flush = NO_FLUSH;
}

Deflater::~Deflater() = default;

void Deflater::Append(std::string_view bytes) {
  State& state = *state_;
  while (!bytes.empty()) {
    const std::size_t count = std::min(bytes.size(), kBlock - state.filled);
    std::memcpy(state.input.data() + state.filled, bytes.data(), count);
    state.filled += count;
    bytes.remove_prefix(count);
    if (state.filled == kBlock) Drain();
  }
}

void Deflater::Drain() {
  State& state = *state_;
  crc_ = crc32_gzip_refl(crc_, state.input.data(), state.filled);
  size_ += state.filled;
  state.stream.next_in = state.input.data();
  state.stream.avail_in = static_cast<std::uint32_t>(state.filled);
  state.filled = 0;
  do {
    state.stream.next_out = state.output.data();
    state.stream.avail_out = static_cast<std::uint32_t>(kBlock);
    isal_deflate(&state.stream);  // fails for wrong parameters only
    const std::size_t count = kBlock - state.stream.avail_out;
    compressedSize_ += count;
    if (count > 0) output_.Append({reinterpret_cast<const char*>(state.output.data()), count});
  } while (state.stream.avail_out == 0);
}

void Deflater::Finish() {
  state_->stream.end_of_stream = 1;
  Drain();
}

}  // namespace zorkanca
