#include "opc/inflater.h"

#include <new>

namespace zorkanca {

namespace {
constexpr std::size_t kBlock = 64 * 1024;
constexpr int kRawDeflate = -15;
}  // namespace

Inflater::Inflater(const Take& take, std::uint64_t sizeLimit) : take_(take), sizeLimit_(sizeLimit), output_(kBlock) {
  if (inflateInit2(&stream_, kRawDeflate) != Z_OK) throw std::bad_alloc();
}

Inflater::~Inflater() {
  inflateEnd(&stream_);
}

bool Inflater::Append(std::string_view compressed) {
  if (ended_) return compressed.empty();
  stream_.next_in = reinterpret_cast<z_const Bytef*>(const_cast<char*>(compressed.data()));
  stream_.avail_in = static_cast<uInt>(compressed.size());
  do {
    stream_.next_out = output_.data();
    stream_.avail_out = static_cast<uInt>(output_.size());
    const int result = inflate(&stream_, Z_NO_FLUSH);
    if (result == Z_BUF_ERROR) break;  // all input used up
    if (result != Z_OK && result != Z_STREAM_END) return false;
    const std::size_t count = output_.size() - stream_.avail_out;
    size_ += count;
    if (size_ > sizeLimit_) return false;
    crc_ = static_cast<std::uint32_t>(crc32_z(crc_, output_.data(), count));
    if (count > 0) take_({reinterpret_cast<const char*>(output_.data()), count});
    ended_ = result == Z_STREAM_END;
  } while (!ended_ && (stream_.avail_in > 0 || stream_.avail_out == 0));
  return stream_.avail_in == 0;
}

}  // namespace zorkanca
