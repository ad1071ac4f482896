// Where the bytes of a written file go.
#pragma once

#include <string_view>

namespace zorkanca {

/// A file being written. Nothing of it takes effect before `Commit`.
class ByteSink {
 public:
  virtual ~ByteSink() = default;
  /// Errors: 61 when the disk is full, 57; then the file is lost, and `Commit` raises the same again.
  virtual void Write(std::string_view bytes) = 0;
  /// Gives the file its effect; the last call. Errors: 61, 57, 70.
  virtual void Commit() = 0;
};

}  // namespace zorkanca
