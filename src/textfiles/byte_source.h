// Where the bytes of a text file being read come from.
#pragma once

#include <cstddef>
#include <span>

namespace zorkanca {

/// A file opened for reading; closed, and no longer locked, with the object.
class ByteSource {
 public:
  virtual ~ByteSource() = default;
  /// Fills the front of the room and tells how many bytes that were; 0 at the end. Errors: 57.
  virtual std::size_t Read(std::span<char> room) = 0;
};

}  // namespace zorkanca
