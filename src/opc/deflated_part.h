// A part compressed ahead of its package: produced now, put into one or several packages later without compressing
// again.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "files/file_descriptor.h"
#include "opc/deflater.h"
#include "opc/part_sink.h"

namespace zorkanca {

/// Takes a stream and keeps it compressed: the first megabytes in memory, what is more in a file without a name in the
/// private temporary folder, gone with the object or with the process.
class DeflatedPart final : public PartSink {
 public:
  /// Takes bytes of a stream, piece by piece.
  using Take = std::function<void(std::string_view)>;

  /// @param memoryLimit  compressed bytes that stay in memory
  explicit DeflatedPart(std::size_t memoryLimit = 16 * 1024 * 1024);

  void Append(std::string_view bytes) override { deflater_.Append(bytes); }
  /// Ends the stream; nothing may be appended after it, nothing read before it.
  void Finish();

  std::uint32_t crc() const { return deflater_.crc(); }
  std::uint64_t size() const { return deflater_.size(); }
  std::uint64_t compressedSize() const { return deflater_.compressedSize(); }

  /// Gives out the compressed bytes in order.
  void ReadCompressed(const Take& take) const;
  /// Gives out the original bytes in order.
  void Read(const Take& take) const;

 private:
  // Takes the deflater's output.
  class Store final : public PartSink {
   public:
    explicit Store(std::size_t memoryLimit) : memoryLimit_(memoryLimit) {}
    void Append(std::string_view bytes) override;
    void Read(const Take& take) const;

   private:
    void Spill(std::string_view bytes);

    std::size_t memoryLimit_;
    std::size_t inMemory_ = 0;
    std::vector<std::string> chunks_;
    FileDescriptor file_;
    std::uint64_t fileSize_ = 0;
  };

  Store store_;
  Deflater deflater_;
};

}  // namespace zorkanca
