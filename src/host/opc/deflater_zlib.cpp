#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <vector>

#include "host/opc/deflater.h"

namespace zorkanca {

namespace {
// Input is gathered to whole blocks, so that the result does not depend on the sizes of the pieces.
constexpr std::size_t kBlock = 64 * 1024;
constexpr int kLevel = 1;
constexpr int kRawDeflate = -15;
constexpr int kMemoryLevel = 8;
}  // namespace

struct Deflater::State {
  State() {
    if (deflateInit2(&stream, kLevel, Z_DEFLATED, kRawDeflate, kMemoryLevel, Z_DEFAULT_STRATEGY) != Z_OK) {
      throw std::bad_alloc();
    }
  }
  ~State() { deflateEnd(&stream); }
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  z_stream stream{};
  std::vector<unsigned char> input = std::vector<unsigned char>(kBlock);
  std::vector<unsigned char> output = std::vector<unsigned char>(kBlock);
  std::size_t filled = 0;
  int flush = Z_NO_FLUSH;
};

Deflater::Deflater(PartSink& output) : output_(output), state_(std::make_unique<State>()) {}

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
  crc_ = static_cast<std::uint32_t>(crc32_z(crc_, state.input.data(), state.filled));
  size_ += state.filled;
  state.stream.next_in = state.input.data();
  state.stream.avail_in = static_cast<uInt>(state.filled);
  state.filled = 0;
  do {
    state.stream.next_out = state.output.data();
    state.stream.avail_out = static_cast<uInt>(kBlock);
    deflate(&state.stream, state.flush);  // fails for wrong parameters only
    const std::size_t count = kBlock - state.stream.avail_out;
    compressedSize_ += count;
    if (count > 0) output_.Append({reinterpret_cast<const char*>(state.output.data()), count});
  } while (state.stream.avail_out == 0);
}

void Deflater::Finish() {
  state_->flush = Z_FINISH;
  Drain();
}

}  // namespace zorkanca
