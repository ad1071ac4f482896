// XML of rows on its way to the compressor. A sheet has millions of cells, each of a dozen small pieces: they are put
// into a plain array and handed over in blocks.
#pragma once

#include <charconv>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

#include "opc/part_sink.h"
#include "opc/xml_escape.h"

namespace zorkanca::excel {

/// What stands for a carriage return in the texts of cells.
inline constexpr std::string_view kCarriageReturn = "_x000D_";

class XmlBuffer {
 public:
  explicit XmlBuffer(PartSink& sink) : sink_(sink), bytes_(std::make_unique<char[]>(kCapacity)) {}

  void Put(char c) {
    if (size_ == kCapacity) Flush();
    bytes_[size_++] = c;
  }
  void Put(const char* piece) { Put(std::string_view(piece)); }
  void Put(std::string_view piece) {
    if (piece.size() > kCapacity - size_) {
      Flush();
      if (piece.size() > kCapacity) return sink_.Append(piece);
    }
    std::memcpy(bytes_.get() + size_, piece.data(), piece.size());
    size_ += piece.size();
  }
  void PutNumber(std::int64_t number) {
    constexpr std::size_t kLongest = 20;
    if (kCapacity - size_ < kLongest) Flush();
    const auto end = std::to_chars(bytes_.get() + size_, bytes_.get() + kCapacity, number).ptr;
    size_ = static_cast<std::size_t>(end - bytes_.get());
  }
  void PutText(std::string_view utf8) {
    EscapeXmlText(utf8, kCarriageReturn, [this](std::string_view piece) { Put(piece); });
  }

  void Flush() {
    if (size_ > 0) sink_.Append({bytes_.get(), size_});
    size_ = 0;
  }

 private:
  static constexpr std::size_t kCapacity = 128 * 1024;

  PartSink& sink_;
  std::unique_ptr<char[]> bytes_;
  std::size_t size_ = 0;
};

}  // namespace zorkanca::excel
