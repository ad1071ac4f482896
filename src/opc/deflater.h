// Compresses a stream of bytes into raw deflate as ZIP packages hold it. Which library does the work is chosen when the
// project is configured: deflater_isal.cpp (a level between speed and size, several times as fast) or
// deflater_zlib.cpp.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "opc/part_sink.h"

namespace zorkanca {

/// One run over one stream. The compressed bytes go to a sink in blocks of some 64 KB.
class Deflater {
 public:
  /// @param output  takes the compressed bytes; outlives the deflater
  explicit Deflater(PartSink& output);
  ~Deflater();
  Deflater(const Deflater&) = delete;
  Deflater& operator=(const Deflater&) = delete;

  void Append(std::string_view bytes);
  /// Ends the stream and gives out what is left. The last call.
  void Finish();

  /// CRC-32, length of what came in, and length of what went out; complete after `Finish`.
  std::uint32_t crc() const { return crc_; }
  std::uint64_t size() const { return size_; }
  std::uint64_t compressedSize() const { return compressedSize_; }

 private:
  struct State;
  // Input is gathered to whole blocks, so that the result does not depend on the sizes of the pieces.
  static constexpr std::size_t kBlock = 64 * 1024;

  void Drain(bool last);

  PartSink& output_;
  std::unique_ptr<State> state_;
  std::unique_ptr<unsigned char[]> input_;
  std::size_t filled_ = 0;
  std::uint32_t crc_ = 0;
  std::uint64_t size_ = 0;
  std::uint64_t compressedSize_ = 0;
};

}  // namespace zorkanca
