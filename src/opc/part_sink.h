// Where the text of a part goes while it is produced.
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace zorkanca {

/// A part being written. Small pieces are cheap: they are gathered before they are compressed.
class PartSink {
 public:
  virtual ~PartSink() = default;
  /// Errors: 61 when the disk is full, 57.
  virtual void Append(std::string_view bytes) = 0;
};

/// Keeps a small part in memory.
class StringSink final : public PartSink {
 public:
  void Append(std::string_view piece) override { bytes_ += piece; }
  const std::string& bytes() const { return bytes_; }
  /// Hands the bytes over and starts again.
  std::string TakeBytes() { return std::exchange(bytes_, {}); }

 private:
  std::string bytes_;
};

}  // namespace zorkanca
