#include <isa-l/crc.h>
#include <isa-l/igzip_lib.h>

#include "opc/deflater.h"

namespace zorkanca {

// Half a megabyte of which a small part needs little; it is not cleared, as that would take longer than the work.
struct Deflater::State {
  isal_zstream stream;
  std::uint8_t levelBuffer[ISAL_DEF_LVL1_DEFAULT];
  std::uint8_t output[kBlock];
};

Deflater::Deflater(PartSink& output)
    : output_(output),
      state_(std::make_unique_for_overwrite<State>()),
      input_(std::make_unique_for_overwrite<unsigned char[]>(kBlock)) {
  isal_deflate_init(&state_->stream);
  state_->stream.level = 1;
  state_->stream.level_buf = state_->levelBuffer;
  state_->stream.level_buf_size = static_cast<std::uint32_t>(sizeof state_->levelBuffer);
  state_->stream.gzip_flag = IGZIP_DEFLATE;
  state_->stream.flush = NO_FLUSH;
}

Deflater::~Deflater() = default;

void Deflater::Drain(bool last) {
  crc_ = crc32_gzip_refl(crc_, input_.get(), filled_);
  size_ += filled_;
  isal_zstream& stream = state_->stream;
  stream.end_of_stream = last ? 1 : 0;
  stream.next_in = input_.get();
  stream.avail_in = static_cast<std::uint32_t>(filled_);
  filled_ = 0;
  do {
    stream.next_out = state_->output;
    stream.avail_out = static_cast<std::uint32_t>(kBlock);
    isal_deflate(&stream);  // fails for wrong parameters only
    const std::size_t count = kBlock - stream.avail_out;
    compressedSize_ += count;
    if (count > 0) output_.Append({reinterpret_cast<const char*>(state_->output), count});
  } while (stream.avail_out == 0);
}

}  // namespace zorkanca
