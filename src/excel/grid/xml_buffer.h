// XML of rows on its way to the compressor. A sheet has millions of cells, each of a dozen small pieces: they are put
// into a plain array and handed over in blocks.
#pragma once

#include <charconv>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

#include "opc/part_sink.h"

namespace zorkanca::excel {

/// Gives out character data piece by piece: & < > escaped, what XML 1.0 forbids left out. The text is valid UTF-8.
/// @param put  called with std::string_view
template <typename Put>
void EscapeText(std::string_view utf8, Put put) {
  const auto isPlain = [](char c) { return static_cast<unsigned char>(c) >= 0x20 && c != '&' && c != '<' && c != '>'; };
  std::size_t start = 0;
  for (std::size_t at = 0; at < utf8.size(); ++at) {
    if (isPlain(utf8[at])) continue;
    put(utf8.substr(start, at - start));
    start = at + 1;
    if (utf8[at] == '&') put("&amp;");
    if (utf8[at] == '<') put("&lt;");
    if (utf8[at] == '>') put("&gt;");
    if (utf8[at] == '\t' || utf8[at] == '\n') put(utf8.substr(at, 1));
    if (utf8[at] == '\r') put("_x000D_");  // a reader would make a line feed of it
  }
  put(utf8.substr(start));
}

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
    EscapeText(utf8, [this](std::string_view piece) { Put(piece); });
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
