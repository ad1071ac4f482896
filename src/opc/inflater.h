// The way back from raw deflate.
#pragma once

#include <zlib.h>

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace zorkanca {

/// One run over one compressed stream.
class Inflater {
 public:
  using Take = std::function<void(std::string_view)>;

  /// @param sizeLimit  more inflated bytes than this are never given out
  Inflater(const Take& take, std::uint64_t sizeLimit);
  ~Inflater();
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;

  /// @return false when the stream is damaged, goes on after its end, or exceeds the limit; the run is over then
  bool Append(std::string_view compressed);
  /// True when the stream has come to its end.
  bool ended() const { return ended_; }
  std::uint32_t crc() const { return crc_; }
  std::uint64_t size() const { return size_; }

 private:
  const Take& take_;
  std::uint64_t sizeLimit_;
  std::vector<unsigned char> output_;
  z_stream stream_{};
  std::uint32_t crc_ = 0;
  std::uint64_t size_ = 0;
  bool ended_ = false;
};

}  // namespace zorkanca
