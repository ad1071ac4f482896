#include <isa-l/crc.h>
#include <isa-l/igzip_lib.h>

#include "host/opc/deflater.h"

namespace zorkanca {

struct Deflater::State {
  isal_zstream stream;
  std::vector<std::uint8_t> levelBuffer = std::vector<std::uint8_t>(ISAL_DEF_LVL1_DEFAULT);
  std::vector<std::uint8_t> output = std::vector<std::uint8_t>(kBlock);
};

Deflater::Deflater(PartSink& output) : output_(output), state_(std::make_unique<State>()), input_(kBlock) {
  isal_deflate_init(&state_->stream);
  state_->stream.level = 1;
  state_->stream.level_buf = state_->levelBuffer.data();
  state_->stream.level_buf_size = static_cast<std::uint32_t>(state_->levelBuffer.size());
  state_->stream.gzip_flag = IGZIP_DEFLATE;
  state_->stream.flush = NO_FLUSH;
}

Deflater::~Deflater() = default;

void Deflater::Drain(bool last) {
  crc_ = crc32_gzip_refl(crc_, input_.data(), filled_);
  size_ += filled_;
  isal_zstream& stream = state_->stream;
  stream.end_of_stream = last ? 1 : 0;
  stream.next_in = input_.data();
  stream.avail_in = static_cast<std::uint32_t>(filled_);
  filled_ = 0;
  do {
    stream.next_out = state_->output.data();
    stream.avail_out = static_cast<std::uint32_t>(kBlock);
    isal_deflate(&stream);  // fails for wrong parameters only
    const std::size_t count = kBlock - stream.avail_out;
    compressedSize_ += count;
    if (count > 0) output_.Append({reinterpret_cast<const char*>(state_->output.data()), count});
  } while (stream.avail_out == 0);
}

}  // namespace zorkanca
