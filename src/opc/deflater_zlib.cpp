#include <zlib.h>

#include <new>

#include "opc/deflater.h"

namespace zorkanca {

namespace {
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
  std::unique_ptr<unsigned char[]> output = std::make_unique_for_overwrite<unsigned char[]>(kBlock);
};

Deflater::Deflater(PartSink& output)
    : output_(output),
      state_(std::make_unique<State>()),
      input_(std::make_unique_for_overwrite<unsigned char[]>(kBlock)) {}

Deflater::~Deflater() = default;

void Deflater::Drain(bool last) {
  crc_ = static_cast<std::uint32_t>(crc32_z(crc_, input_.get(), filled_));
  size_ += filled_;
  z_stream& stream = state_->stream;
  stream.next_in = input_.get();
  stream.avail_in = static_cast<uInt>(filled_);
  filled_ = 0;
  do {
    stream.next_out = state_->output.get();
    stream.avail_out = static_cast<uInt>(kBlock);
    deflate(&stream, last ? Z_FINISH : Z_NO_FLUSH);  // fails for wrong parameters only
    const std::size_t count = kBlock - stream.avail_out;
    compressedSize_ += count;
    if (count > 0) output_.Append({reinterpret_cast<const char*>(state_->output.get()), count});
  } while (stream.avail_out == 0);
}

}  // namespace zorkanca
